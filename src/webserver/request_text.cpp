#include "webserver/request_text.h"

#include <algorithm>

#include "automation/code_page.h"
#include "automation/convert.h"

namespace webserver {
namespace {

constexpr int kLowestCode = 32;  // control characters cannot be passed

// Position of a hexadecimal digit, counted from 1; 0 for any other character and past the end.
int digit_position(std::string_view text, std::size_t index) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    if (index >= text.size()) {
        return 0;
    }
    const auto position = kDigits.find(text[index]);
    return position == std::string_view::npos ? 0 : static_cast<int>(position) + 1;
}

char coded_character(std::string_view text, std::size_t percent) {
    const int high = digit_position(text, percent + 1) - 1;
    const int low = digit_position(text, percent + 2);
    return static_cast<char>(std::max(high * 16 + low - 1, kLowestCode));
}

}  // namespace

std::string decoded(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] == '%') {
            result += coded_character(text, index);
            index += 2;
        } else {
            result += text[index] == '+' ? ' ' : text[index];
        }
    }
    return result;
}

std::vector<std::string_view> split(std::string_view text, std::string_view delimiter) {
    std::vector<std::string_view> pieces;
    for (;;) {
        const auto end = text.find(delimiter);
        pieces.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return pieces;
        }
        text.remove_prefix(end + delimiter.size());
    }
}

bool lacks_more_of_post(std::string_view text) {
    constexpr std::size_t kLargest = 1 << 20;
    constexpr std::string_view kLength = "\r\nContent-Length:";
    if (!text.starts_with("POST ") || text.size() > kLargest) {
        return false;
    }
    const auto header_end = text.find(kHeaderEnd);
    if (header_end == std::string_view::npos) {
        return true;
    }
    const std::string_view header = text.substr(0, header_end);
    const auto length = automation::find_ignoring_case(header, kLength);
    if (length == std::string_view::npos) {
        return false;
    }
    const double promised = automation::numeric_prefix(header.substr(length + kLength.size()));
    return static_cast<double>(text.size() - header_end - kHeaderEnd.size()) < promised;
}

std::string without_line_ends(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const std::string_view line : split(text, kLineEnd)) {
        result += line;
    }
    return result;
}

}  // namespace webserver
