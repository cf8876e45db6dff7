#include "pages/headers/cells.h"

#include <algorithm>
#include <array>

#include "automation/code_page.h"
#include "automation/guarded.h"
#include "pages/headers/host_page.h"

namespace pages {

namespace {

struct Look {
    std::string_view cell_class;
    bool is_bold = false;
    std::string_view color;
    std::string_view bgcolor;
};

constexpr std::array<Look, 5> kLooks{{
    {"TABLECOLUMN", true, "#FFFFFF", "#31639C"},
    {"TABLEHEADER", true, "#FFFFFF", "#63639C"},
    {"TABLEROWODD", false, "#000000", "#C0C0C0"},
    {"TABLEROWEVEN", false, "#000000", "#949494"},
    {"TABLECELLCUSTOM", false, "#FFFFFF", "#000000"},
}};

constexpr std::string_view kFont = "<font face=\"Verdana, Arial, sans-serif\" size=\"2\"";

// A class that is not in the table has a font and no colours.
Look look_of(std::string_view cell_class) {
    const auto look = std::ranges::find_if(kLooks, [cell_class](const Look& each) {
        return automation::equals_ignoring_case(each.cell_class, cell_class);
    });
    return look == kLooks.end() ? Look{} : *look;
}

std::string attribute(std::string_view name, std::string_view value) {
    return value.empty() ? "" : " " + std::string(name) + "=" + std::string(value);
}

std::string quoted_attribute(std::string_view name, std::string_view value) {
    return value.empty() ? "" : " " + std::string(name) + "=\"" + std::string(value) + "\"";
}

std::string with_font(std::string_view text, const Look& look) {
    const std::string content =
        look.is_bold ? "<b>" + std::string(text) + "</b>" : std::string(text);
    return std::string(kFont) + quoted_attribute("color", look.color) + ">" + content + "</font>";
}

std::string inline_cell(std::string_view text, std::string_view place, const Look& look) {
    return "<td" + std::string(place) + quoted_attribute("bgcolor", look.bgcolor) + ">" +
           with_font(text, look) + "</td>";
}

}  // namespace

std::string FormatCell(HostPage& page, std::string_view text, std::string_view align,
                       std::string_view colspan, std::string_view cell_class) {
    return automation::guarded(page.log(), " FormatCell: ", [&] {
        const std::string place = attribute("colspan", colspan) + attribute("align", align);
        if (page.IsTouchscreen) {
            return inline_cell(text, place, look_of(cell_class));
        }
        return "<td" + attribute("class", cell_class) + place + ">" + std::string(text) + "</td>";
    });
}

}  // namespace pages
