#include "app/echo_rows.h"

#include <algorithm>

#include "app/text_table.h"

namespace app {
namespace {

bool continues_character(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// Cuts so many characters off the text's front.
std::string_view take_characters(std::string_view& text, std::size_t count) {
    std::size_t end = 0;
    for (; end < text.size() && count > 0; --count) {
        ++end;
        while (end < text.size() && continues_character(text[end])) {
            ++end;
        }
    }
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end);
    return taken;
}

}  // namespace

std::vector<std::string> last_rows(std::string_view text, std::size_t width, std::size_t height) {
    std::vector<std::string> rows;
    while (!text.empty()) {
        const auto end = text.find('\n');
        std::string_view raw = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (raw.ends_with('\r')) {
            raw.remove_suffix(1);
        }
        const std::string line = printable(raw);
        std::string_view rest = line;
        do {
            rows.emplace_back(take_characters(rest, width));
        } while (!rest.empty());
    }
    const auto surplus = static_cast<std::ptrdiff_t>(rows.size() - std::min(height, rows.size()));
    rows.erase(rows.begin(), rows.begin() + surplus);
    return rows;
}

}  // namespace app
