#include "pages/headers/sliding_menu.h"

#include <array>
#include <string_view>

#include "automation/guarded.h"
#include "pages/fast_string.h"
#include "pages/headers/host_page.h"

namespace pages {

namespace {

constexpr std::string_view kSelectLooks =
    "SELECT yoffset, xoffset, staticyoffset, slidespeed, waittime, menuIsStatic, menuwidth, "
    "barlink, bartext, barwidth, mouseovercolor, mouseoutcolor, targetwindow FROM MenuPOPPref "
    "WHERE UserID = '";
constexpr std::string_view kSelectItems =
    "SELECT P.MenuID, P.MenuText, P.MenuURL, M.MenuItem, M.MenuURL, P.IsHeader, P.IsActive "
    "FROM MenuPOP P LEFT JOIN Menus M ON P.MenuID = M.MenuID WHERE P.IsActive=1 AND P.UserID = "
    "(SELECT Top 1 UserID FROM MenuUsers WHERE SecID = '";
constexpr std::string_view kOrder = " ) ORDER BY P.SortOrder, M.MenuItem";

enum class Form : bool { Number, Text };

constexpr int kNoColumn = -1;

// One assignment of the menu's script, in the script's order.
struct Assignment {
    std::string_view variable;
    int column = kNoColumn;  // of the looks
    Form form = Form::Number;
    std::string_view fallback;  // for a user without looks
};

constexpr std::array<Assignment, 14> kAssignments{{
    {"YOffset", 0, Form::Number, "100"},
    {"XOffset", 1, Form::Number, "0"},
    {"staticYOffset", 2, Form::Number, "30"},
    {"slideSpeed", 3, Form::Number, "0"},
    {"waitTime", 4, Form::Number, "1500"},
    {"menuIsStatic", 5, Form::Text, "yes"},
    {"menuWidth", 6, Form::Number, "150"},
    {"menuCols", kNoColumn, Form::Number, "2"},
    {"barLink", 7, Form::Text, ""},
    {"barWidth", 9, Form::Number, "20"},
    {"barText", 8, Form::Text, ""},
    {"linkTarget", 12, Form::Text, "_top"},
    {"linkBGColor", 11, Form::Text, "white"},
    {"linkOverBGColor", 10, Form::Text, "#FFFF99"},
}};

std::string in_quotes(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::string assignment(const Assignment& each, std::string_view value) {
    return std::string(each.variable) + "=" +
           (each.form == Form::Text ? in_quotes(value) : std::string(value)) + ";\r\n";
}

// The bar of a new user leads to the forum of the house's host, whose place the installation
// tells.
std::string fallback_of(const HostPage& page, const Assignment& each) {
    if (each.variable == "barLink") {
        return page.page_setting("forumLink", "/");
    }
    if (each.variable == "barText") {
        return page.page_setting("forumText", "Forum");
    }
    return std::string(each.fallback);
}

std::string looks(const HostPage& page) {
    const auto rows = page.rows(std::string(kSelectLooks) + quoted_part(page.SecureUser) + "'");
    std::string script;
    for (const Assignment& each : kAssignments) {
        const bool is_stored = !rows.empty() && each.column != kNoColumn;
        script +=
            assignment(each, is_stored ? column(rows.front(), static_cast<std::size_t>(each.column))
                                       : fallback_of(page, each));
    }
    return script;
}

// The item's own text and place win over those of the menu that it stands for.
std::string item(const host::DatabaseRow& row) {
    const std::string own_text = column(row, 1);
    const std::string own_place = column(row, 2);
    const std::string text = in_quotes(own_text.empty() ? column(row, 3) : own_text);
    const std::string place = in_quotes(own_place.empty() ? column(row, 4) : own_place);
    return is_on(column(row, 5)) ? text + ", " + place + ", \"\"" : text + ", " + place;
}

std::string items(const HostPage& page) {
    const std::string session = quoted_part(page.server_variable("REMOTE_ADDR"));
    const auto rows = page.rows(std::string(kSelectItems) + session + "'" + std::string(kOrder));
    std::string script;
    for (std::size_t index = 0; index < rows.size(); ++index) {
        script += "ssmItems[" + std::to_string(index) + "]=[" + item(rows[index]) + "];\r\n";
    }
    return script;
}

}  // namespace

std::string ssmItems(HostPage& page) {
    return automation::guarded(page.log(), "ssmItems: ", [&] {
        std::string script = looks(page);
        return script += items(page);
    });
}

}  // namespace pages
