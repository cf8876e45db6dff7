#pragma once

#include <string>
#include <string_view>

#include "core/instance.h"
#include "pages/fast_string.h"

namespace pages {
class HTMLIncludes;
}

namespace status {

// One cell of a table: its place and its look.
struct CellPlace {
    std::string_view align = "Left";
    std::string_view colspan = "1";
    std::string_view cell_class = "TABLEHEADER";
};

// The status page under construction, with the mark-up that its tables and fields share. A value
// for the time of one page; what it is made of outlives it.
class PageText {
  public:
    PageText(core::Instance& instance, pages::HTMLIncludes& looks)
        : instance_(instance), looks_(looks) {}

    void Add(std::string_view html) { text_.Add(html); }

    void cell(std::string_view html, const CellPlace& place);

    // --- a table of rows, each in the other colour --------------------------------------------

    // `opening` goes before the table's tag.
    void begin_table(std::string_view opening = "<br>");

    // Begins a row and gives it the other one of both colours; a table begins with the odd one.
    void begin_row();

    // A row that is a heading: it leaves the colours as they are.
    void begin_heading();

    // A cell of the present row.
    void row_cell(std::string_view html, std::string_view align = "Left",
                  std::string_view colspan = "1") {
        cell(html, {align, colspan, row_class_});
    }

    void set_row_class(std::string_view row_class) noexcept { row_class_ = row_class; }

    void end_table();

    // --- values ---------------------------------------------------------------------------------

    // A text as the page shows it: as it stands, or, under protection, with its mark-up undone.
    [[nodiscard]] std::string value(std::string_view text) const;

    // Fields of a form. `caption` is mark-up.
    [[nodiscard]] std::string text_field(std::string_view name, std::string_view text,
                                         int size) const;
    [[nodiscard]] std::string check_box(std::string_view name, bool is_checked,
                                        std::string_view caption) const;
    [[nodiscard]] std::string radio_button(std::string_view name, std::string_view choice,
                                           bool is_chosen, std::string_view caption) const;

    [[nodiscard]] core::Instance& instance() const noexcept { return instance_; }

    [[nodiscard]] const std::string& html() const noexcept { return text_.value(); }

  private:
    void separate_row();

    core::Instance& instance_;
    pages::HTMLIncludes& looks_;
    pages::FastString text_;
    std::string_view row_class_;
    bool has_row_ = false;  // of the present table
};

inline constexpr std::string_view kOddRow = "TABLEROWODD";
inline constexpr std::string_view kEvenRow = "TABLEROWEVEN";
inline constexpr std::string_view kNextRow = "</tr><tr>";

// The class of the row behind one of this class.
[[nodiscard]] constexpr std::string_view other_row(std::string_view row_class) noexcept {
    return row_class == kEvenRow ? kOddRow : kEvenRow;
}

}  // namespace status
