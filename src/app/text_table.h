#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// A UTF-8 text as a terminal may show it: line ends and tabs are blanks, and what else could
// command the terminal is '?'.
[[nodiscard]] std::string printable(std::string_view utf8);

// Characters that a UTF-8 text takes on a terminal, as long as none is wider than a cell.
[[nodiscard]] std::size_t width_of(std::string_view utf8);

enum class Align : std::uint8_t { Left, Right };

struct Column {
    std::string title;
    Align align = Align::Left;
};

// Lines with the titles and one line for each row, columns two blanks apart, no blanks at the end.
// Requires: as many cells in each row as there are columns.
[[nodiscard]] std::vector<std::string> text_table(
    const std::vector<Column>& columns, const std::vector<std::vector<std::string>>& rows);

}  // namespace app
