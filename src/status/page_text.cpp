#include "status/page_text.h"

#include "automation/html.h"
#include "pages/html_includes.h"

namespace status {

namespace {

constexpr std::string_view kTable = "<Table width='600' border='5' frame='box'><tr>";

// Each piece in turn, in one text.
template <typename... Pieces>
std::string joined(const Pieces&... pieces) {
    std::string text;
    text.reserve((std::string_view(pieces).size() + ...));
    (text.append(pieces), ...);
    return text;
}

}  // namespace

void PageText::cell(std::string_view html, const CellPlace& place) {
    text_.Add(looks_.FormatCell(html, place.align, place.colspan, place.cell_class));
}

void PageText::begin_table(std::string_view opening) {
    text_.Add(opening);
    text_.Add(kTable);
    row_class_ = kEvenRow;
    has_row_ = false;
}

void PageText::separate_row() {
    if (has_row_) {
        text_.Add(kNextRow);
    }
    has_row_ = true;
}

void PageText::begin_row() {
    separate_row();
    row_class_ = other_row(row_class_);
}

void PageText::begin_heading() {
    separate_row();
}

void PageText::end_table() {
    text_.Add("</tr></table>");
}

std::string PageText::value(std::string_view text) const {
    return instance_.platform().protection.page_values_are_escaped
               ? automation::html_encoded(text, automation::Apostrophe::Escape)
               : std::string(text);
}

std::string PageText::text_field(std::string_view name, std::string_view text, int size) const {
    return joined("<input type='text' size='", std::to_string(size), "' name='", name, "' value='",
                  value(text), "'>");
}

std::string PageText::check_box(std::string_view name, bool is_checked,
                                std::string_view caption) const {
    return joined("<input type='checkbox' name='", name, "' value='1'",
                  is_checked ? " checked" : "", ">&nbsp;", caption);
}

std::string PageText::radio_button(std::string_view name, std::string_view choice, bool is_chosen,
                                   std::string_view caption) const {
    return joined("<input type='radio' name='", name, "' value='", choice, "'",
                  is_chosen ? " checked" : "", ">", caption);
}

}  // namespace status
