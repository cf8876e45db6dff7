#include "xapnet/wire_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "automation/code_page.h"

namespace xapnet {

namespace {

// The well-formed sequences of the Unicode Standard, table 3-7: neither overlong forms nor
// surrogates nor numbers beyond the last character.
struct Sequence {
    std::uint8_t first_from, first_to;
    std::uint8_t second_from, second_to;
    std::size_t length;
};

constexpr std::array<Sequence, 8> kSequences{{
    {0xC2, 0xDF, 0x80, 0xBF, 2},
    {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3},
    {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4},
    {0xF4, 0xF4, 0x80, 0x8F, 4},
}};

bool is_ascii(char character) noexcept {
    return static_cast<std::uint8_t>(character) < 0x80;
}

bool lies_within(char character, std::uint8_t from, std::uint8_t to) noexcept {
    const auto byte = static_cast<std::uint8_t>(character);
    return byte >= from && byte <= to;
}

// Bytes of the character that a text begins with; 0 for none.
std::size_t character_length(std::string_view text) noexcept {
    if (is_ascii(text.front())) {
        return 1;
    }
    for (const Sequence& row : kSequences) {
        if (!lies_within(text.front(), row.first_from, row.first_to)) {
            continue;
        }
        const bool is_whole =
            text.size() >= row.length && lies_within(text[1], row.second_from, row.second_to) &&
            std::ranges::all_of(text.substr(2, row.length - 2),
                                [](char c) { return lies_within(c, 0x80, 0xBF); });
        return is_whole ? row.length : 0;
    }
    return 0;
}

bool is_utf8(std::string_view text) noexcept {
    while (!text.empty()) {
        const std::size_t length = character_length(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace

std::string text_from_wire(std::string_view bytes) {
    if (std::ranges::all_of(bytes, is_ascii) || !is_utf8(bytes)) {
        return std::string(bytes);
    }
    return automation::utf8_to_code_page(bytes);
}

std::string wire_from_text(std::string_view text) {
    return automation::code_page_to_utf8(text);
}

}  // namespace xapnet
