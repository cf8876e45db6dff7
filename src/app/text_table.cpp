#include "app/text_table.h"

#include <algorithm>

namespace app {
namespace {

constexpr std::size_t kGap = 2;

using Row = std::vector<std::string>;

// The continuation bytes of a character do not count.
bool starts_character(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

std::string line_of(const Row& row, const std::vector<Column>& columns,
                    const std::vector<std::size_t>& widths) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string padding(widths[i] - width_of(row[i]), ' ');
        line += columns[i].align == Align::Left ? row[i] + padding : padding + row[i];
        line.append(kGap, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

}  // namespace

std::string printable(std::string_view utf8) {
    std::string text;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        const bool is_line_end = byte == '\n' || byte == '\t';
        // U+0080 to U+009F, the second block of controls.
        const bool is_wide_control =
            byte == 0xC2U && i + 1 < utf8.size() && static_cast<unsigned char>(utf8[i + 1]) < 0xA0U;
        if (byte == '\r' && i + 1 < utf8.size() && utf8[i + 1] == '\n') {
            continue;
        }
        if (is_wide_control) {
            ++i;
        }
        const bool is_control = byte < 0x20U || byte == 0x7FU || is_wide_control;
        text += is_line_end ? ' ' : is_control ? '?' : utf8[i];
    }
    return text;
}

std::size_t width_of(std::string_view utf8) {
    return static_cast<std::size_t>(std::ranges::count_if(utf8, starts_character));
}

std::vector<std::string> text_table(const std::vector<Column>& columns,
                                    const std::vector<Row>& rows) {
    Row titles;
    std::vector<std::size_t> widths;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        titles.push_back(columns[i].title);
        std::size_t width = width_of(columns[i].title);
        for (const Row& row : rows) {
            width = std::max(width, width_of(row[i]));
        }
        widths.push_back(width);
    }
    std::vector<std::string> lines = {line_of(titles, columns, widths)};
    for (const Row& row : rows) {
        lines.push_back(line_of(row, columns, widths));
    }
    return lines;
}

}  // namespace app
