#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace automation {

// The digit in any case, -1 for another character.
[[nodiscard]] constexpr int hexadecimal_digit(char character) noexcept {
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    const char upper =
        character >= 'a' && character <= 'f' ? static_cast<char>(character - 'a' + 'A') : character;
    return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}

// One byte or more, two digits each, in any case.
[[nodiscard]] constexpr bool is_hexadecimal(std::string_view text) noexcept {
    return !text.empty() && text.size() % 2 == 0 &&
           std::ranges::all_of(text, [](char c) { return hexadecimal_digit(c) >= 0; });
}

// The bytes of such a text. Requires: `is_hexadecimal`.
[[nodiscard]] inline std::string bytes_of_hexadecimal(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size() / 2);
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        bytes +=
            static_cast<char>(hexadecimal_digit(text[i]) * 16 + hexadecimal_digit(text[i + 1]));
    }
    return bytes;
}

}  // namespace automation
