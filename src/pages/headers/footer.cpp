#include "pages/headers/footer.h"

#include <array>
#include <string_view>

#include "automation/guarded.h"
#include "host/host_interface.h"
#include "host/settings.h"
#include "pages/fast_string.h"
#include "pages/headers/host_page.h"
#include "pages/headers/links.h"

namespace pages {

namespace {

struct Button {
    std::string_view label;
    std::string_view action;
};

constexpr std::array<Button, 3> kButtons{{
    {" << ", "history.back()"},
    {"Refresh", "history.go(0)"},
    {" >> ", "history.forward()"},
}};

// Where the host keeps its own per-user settings.
bool shows_navigation(HostPage& page) {
    host::UserStore& store = page.instance().platform().user_store;
    return is_on(store.GetSetting("HomeSeer", "Settings", "NavigationButtons", "0"));
}

std::string navigation() {
    std::string html = "<div align=\"center\"><form>";
    for (const Button& button : kButtons) {
        html += "<input type=\"button\" value=\"" + std::string(button.label) + "\" onClick=\"" +
                std::string(button.action) + "\">";
    }
    return html + "</form></div>";
}

}  // namespace

std::string XCustomFooter(HostPage& page) {
    FastString html;
    automation::guarded(page.log(), "XCustomFooter: ", [&] {
        if (shows_navigation(page)) {
            html.Add(navigation());
        }
        html.Add(optional_page_part(page, "tail"));
        html.Add("<div class=\"footer\">");
        if (is_on(page.web_setting("showhsversion", "0"))) {
            html.Add("Version: " + page.instance().hs().Version());
        }
        if (is_on(page.web_setting("showhssystime", "0"))) {
            html.Add(" System Uptime: " + page.host_word("SystemUpTime"));
        }
        html.Add("</div></body></html>");
    });
    return html.value();
}

}  // namespace pages
