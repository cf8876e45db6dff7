#include "status/status_asp.h"

#include <array>

#include "automation/guarded.h"
#include "devices/host_devices.h"
#include "dialogs/controls.h"
#include "pages/headers/host_page.h"
#include "pages/headers/security.h"
#include "pages/html_includes.h"
#include "status/filter_table.h"
#include "status/setup_sections.h"
#include "status/status_state.h"

namespace status {

namespace {

using automation::guarded;

constexpr std::string_view kScript =
    "<html><head>"
    "<SCRIPT LANGUAGE=\"JavaScript\">\r\n"
    "function ClearSubmit(button) {\r\n"
    "  document.control.clientvalue.value = button.value;\r\n"
    "  document.control.clientinput.value = button.name;\r\n"
    "  document.control.submit();}\r\n"
    "</script>\r\n";

constexpr std::string_view kFormBegin =
    "<div><center><small>"
    "<form name='control' method='post'>"
    "<input type='hidden' name='clientinput' value='yes'>"
    "<input type='hidden' name='clientvalue' value='yes'>"
    "<input type='hidden' name='page' value='status'>"
    "<center><input type='submit' name='Save' value='Save Setup Changes'></center><br>";

constexpr std::string_view kEnd =
    "<IFRAME frameborder=0 scrolling='no' name='hiddenframe' cols='0' rows='0' width='0' "
    "height='0' size='0'></IFRAME></tr></table></small></center></div>";

struct Option {
    std::string_view name;
    bool StatusState::*field;
    std::string_view text;
};

constexpr std::array<Option, 4> kOptions{{
    {"ShowControl", &StatusState::ShowControl, "Include Control and Status"},
    {"ShowSetup", &StatusState::ShowSetup, "Include Setup Options"},
    {"ShowReceiveMessages", &StatusState::ShowReceiveMessages, "Include Received Messages"},
    {"ShowReceiveDetail", &StatusState::ShowReceiveDetail, "Show Received Detail"},
}};
constexpr std::size_t kOptionsInRow = 2;

constexpr std::array<std::string_view, 3> kShowStatus{"Dont Show Status", "Show Status",
                                                      "Show Status and Config"};

struct Column {
    std::string_view button;
    std::string_view text;
    bool is_left_out_of_xap = false;
};

constexpr std::array<Column, 6> kColumns{{
    {"Status", "Status"},
    {"ID", "ID"},
    {"UID", "ID", true},
    {"Name", "Name"},
    {"Changed", "Changed"},
    {"Refresh", "Control / Refresh"},
}};

std::string option_box(const Option& option, bool is_checked) {
    return "<input type='checkbox' value='1'" + std::string(is_checked ? " checked" : "") +
           " name='" + std::string(option.name) + "'>&nbsp;" + std::string(option.text);
}

std::string submit_button(const Column& column) {
    return "<input type='submit' name='" + std::string(column.button) + "' value='" +
           std::string(column.text) + "'>";
}

std::string title() {
    return "Velora Status&nbsp;&nbsp;<small><font size='1'></b> V" +
           std::string(devices::kProgramVersion) + "</font></small>";
}

}  // namespace

std::string StatusAsp::StatusPage(const std::shared_ptr<automation::Object>& request,
                                  const std::shared_ptr<automation::Object>& response) {
    return guarded(services_.instance.log, "StatusPage: ", [&] {
        pages::HostPage& host_page = services_.host_page;
        host_page.set_objects(request, response);
        pages::XStartMiscFunctionsASP(host_page);
        pages::XSecurityCheck(host_page);
        pages::xStartHeaderASP(host_page);
        std::string page = Status_ASP(request);
        services_.instance.log.clear_pending();
        return page;
    });
}

std::string StatusAsp::Status_ASP(const std::shared_ptr<automation::Object>& request) {
    core::Instance& instance = services_.instance;
    PageText page(instance, services_.looks);
    guarded(instance.log, "Status_ASP: ", [&] {
        const Form form(instance, request);
        if (form.FormChecked("clientinput")) {
            requests_.ClientRequest(form);
        }
        services_.state.load_sorting(instance);
        FormatScreen(page);
        instance.log.clear_pending();
    });
    return page.html();
}

void StatusAsp::FormatScreen(PageText& page) {
    guarded(services_.instance.log, "Status FormatScreen ", [&] {
        FilterTable filters(services_.instance, services_.filters, page);
        add_header(page);
        page.Add(kFormBegin);
        add_options(page);
        add_devices(page);
        if (services_.state.ShowSetup) {
            add_setup(page);
        }
        if (services_.state.ShowReceiveMessages) {
            filters.AddFilter(services_.state);
        }
        page.Add("</form>");
        filters.AddScriptButton();
        add_end(page);
        services_.state.FiltersOnPage = services_.state.ShowReceiveMessages;
    });
}

void StatusAsp::add_header(PageText& page) const {
    const core::UtilitySettings& settings = services_.instance.settings;
    page.Add(kScript);
    page.Add(services_.looks.CustomHeader({.title = title(),
                                           .links = "",
                                           .style_sheet = page.value(settings.StyleSheet),
                                           .header = "x",
                                           .background = page.value(settings.Background)}));
    page.Add("\r\n");
}

void StatusAsp::add_options(PageText& page) const {
    const StatusState& state = services_.state;
    page.begin_table("");
    for (std::size_t i = 0; i < kOptions.size(); ++i) {
        if (i % kOptionsInRow == 0) {
            page.begin_heading();
        }
        page.cell(option_box(kOptions[i], state.*kOptions[i].field), {});
    }
    page.begin_heading();
    std::string choices;
    for (std::size_t i = 0; i < kShowStatus.size(); ++i) {
        choices +=
            page.radio_button("ShowStatus", std::to_string(i),
                              state.ShowStatus == static_cast<std::int16_t>(i), kShowStatus[i]);
    }
    page.cell(choices, {"Center", "2"});
    page.end_table();
}

// The table has no end of its own: the next one, or the end of the page, ends it (kept).
void StatusAsp::add_devices(PageText& page) {
    page.Add("<br><table  width=600 border='5' frame='box'><tr>");
    for (const Column& column : kColumns) {
        if (!column.is_left_out_of_xap || !services_.instance.XapHosted) {
            page.cell(submit_button(column), {"Center", "1"});
        }
    }
    page.Add(kNextRow);
    if (services_.state.ShowControl) {
        devices_.add_rows(page, services_.state);
    }
}

void StatusAsp::add_setup(PageText& page) {
    services_.setup.Load();
    SetupSections sections(services_.instance, services_.setup, page);
    sections.AddVeloras();
    sections.AddDefinitions();
    sections.AddPower();
    sections.AddScreen();
    sections.AddSlideGroup();
    sections.AddCID();
}

void StatusAsp::add_end(PageText& page) const {
    page.Add(kEnd);
    page.Add(services_.instance.XapHosted ? "</body></html>" : services_.looks.CustomFooter());
}

}  // namespace status
