#include "pages/headers/menu_row.h"

#include <optional>
#include <string_view>
#include <vector>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "pages/fast_string.h"
#include "pages/headers/host_page.h"
#include "pages/headers/security.h"

namespace pages {

namespace {

constexpr std::string_view kSelectItems =
    "SELECT MenuItem, MenuURL, ParentID, SecureLevel, MenuImage FROM Menus WHERE ";
constexpr std::string_view kSelectOwnEntry =
    "SELECT LevelID, ParentID, MenuID, SecureLevel FROM Menus WHERE MenuURL Like '%";
constexpr std::string_view kOrder = " ORDER BY SortOrder";

// The page's own entry in the menu.
struct OwnEntry {
    std::string parent;
    std::string id;
    std::int16_t level = 0;
};

std::vector<host::DatabaseRow> select_items(const HostPage& page, const std::string& condition) {
    std::string statement(kSelectItems);
    statement += condition + " AND SecureLevel <= " + std::to_string(page.SecureLevel);
    return page.rows(statement.append(kOrder));
}

std::optional<OwnEntry> find_own_entry(const HostPage& page, const std::string& name) {
    if (name.empty()) {  // would be like any entry
        return std::nullopt;
    }
    const auto rows = page.rows(std::string(kSelectOwnEntry) + quoted_part(name) + "%'");
    if (rows.empty()) {
        return std::nullopt;
    }
    const double level = automation::numeric_prefix(column(rows.front(), 3));
    return OwnEntry{.parent = column(rows.front(), 1),
                    .id = column(rows.front(), 2),
                    .level = automation::checked_int16(level)};
}

std::string item_cell(const host::DatabaseRow& row, std::string_view kind) {
    const std::string text = column(row, 0);
    const std::string location = column(row, 1);
    const std::string image = column(row, 4);
    if (kind == "LINK") {
        return "<td><a href=\"" + location + "\">" + text + "</a></td>";
    }
    if (kind == "IMAGE" && !image.empty()) {
        return "<td><a href=\"" + location + "\"><img src=\"" + image + "\" alt=\"" + text +
               "\" border=\"0\"></a></td>";
    }
    return "<td><input type=\"button\" class=\"linkrowbutton\" value=\"" + text +
           "\" onClick=\"location.href='" + location + "'\"></td>";
}

std::string item_row(const std::vector<host::DatabaseRow>& items, std::string_view kind) {
    std::string cells;
    for (const host::DatabaseRow& item : items) {
        cells += item_cell(item, kind);
    }
    return cells;
}

// Numbers of the menu are digits; anything else finds nothing.
std::string number_of(const std::string& text) {
    return std::to_string(automation::checked_int32(automation::numeric_prefix(text)));
}

std::string around_own_entry(const HostPage& page, const OwnEntry& own, std::string_view kind) {
    std::string rows;
    for (const std::string& condition :
         {"MenuID = " + number_of(own.parent), "ParentID = " + number_of(own.id)}) {
        if (const auto items = select_items(page, condition); !items.empty()) {
            rows.append("</tr><tr>").append(item_row(items, kind));
        }
    }
    return rows;
}

std::string weather_alerts(const HostPage& page) {
    const std::string ids =
        page.setting("WeatherCom_CurrentData", "AlertIDs", "", "WeatherData.ini");
    if (ids.empty() || !is_on(page.page_setting("useAlerts", "0"))) {
        return "";
    }
    std::string cells;
    for (const std::string& id : automation::split(ids, ',')) {
        cells.append("<td><a href=\"/weather_alert.asp?id=").append(id);
        cells.append("\">Weather Alert ").append(id).append("</a></td>");
    }
    return cells;
}

void note_hit(HostPage& page, const std::string& name) {
    if (page.page_setting("logpagehits", "0") == "1") {
        page.log().VeloraWriteLog("Web Log", name + " was accessed by " +
                                                 page.server_variable("REMOTE_ADDR") +
                                                 " the user: " + page.SecureUser);
    }
}

bool is_off(std::string_view kind) {
    return kind.empty() || kind == "0" || kind == "NO";
}

}  // namespace

std::string MenuRow(HostPage& page) {
    return automation::guarded(page.log(), "MenuRow: ", [&] {
        const std::string name = fnPageName(page);
        note_hit(page, name);
        const std::optional<OwnEntry> own = find_own_entry(page, name);
        if (own) {
            LogAuthorized(page, own->level);
        }
        const std::string kind = automation::to_upper(page.page_setting("useMenuRow", "0"));
        if (is_off(kind)) {
            return std::string();
        }
        FastString html;
        html.Add("<table border=\"0\" cellpadding=\"0\" cellspacing=\"0\"><tr>");
        html.Add(item_row(select_items(page, "LevelID = 1"), kind));
        if (own) {
            html.Add(around_own_entry(page, *own, kind));
        }
        html.Add(weather_alerts(page));
        html.Add("</tr></table>");
        return html.value();
    });
}

}  // namespace pages
