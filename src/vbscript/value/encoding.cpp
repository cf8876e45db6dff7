#include <cstddef>

#include "vbscript/value/convert.h"

namespace vbscript {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstBeyondUnit = 0x10000;
constexpr char32_t kLast = 0x10FFFF;

bool is_high_half(char32_t unit) noexcept {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool is_low_half(char32_t unit) noexcept {
    return unit >= 0xDC00 && unit < 0xE000;
}

struct Lead {
    int following = 0;     // bytes behind the first one
    char32_t payload = 0;  // bits of the first one
    char32_t lowest = 0;   // smaller characters have a shorter form
};

// A lead without following bytes is malformed.
Lead lead_of(unsigned char byte) noexcept {
    if (byte >= 0xC2 && byte < 0xE0) {
        return {1, byte & 0x1FU, 0x80};
    }
    if (byte >= 0xE0 && byte < 0xF0) {
        return {2, byte & 0x0FU, 0x800};
    }
    if (byte >= 0xF0 && byte < 0xF5) {
        return {3, byte & 0x07U, kFirstBeyondUnit};
    }
    return {};
}

// Reads one character of more than one byte; what is malformed is one replacement character.
char32_t take_character(std::string_view text, std::size_t& place) noexcept {
    const Lead lead = lead_of(static_cast<unsigned char>(text[place++]));
    if (lead.following == 0) {
        return kReplacement;
    }
    char32_t character = lead.payload;
    for (int count = 0; count < lead.following; ++count) {
        if (place == text.size()) {
            return kReplacement;
        }
        const auto byte = static_cast<unsigned char>(text[place]);
        if ((byte & 0xC0U) != 0x80U) {
            return kReplacement;
        }
        character = character << 6 | (byte & 0x3FU);
        ++place;
    }
    const bool is_half = is_high_half(character) || is_low_half(character);
    return character < lead.lowest || character > kLast || is_half ? kReplacement : character;
}

void append_units(std::u16string& units, char32_t character) {
    if (character < kFirstBeyondUnit) {
        units.push_back(static_cast<char16_t>(character));
        return;
    }
    const char32_t rest = character - kFirstBeyondUnit;
    units.push_back(static_cast<char16_t>(0xD800 + (rest >> 10)));
    units.push_back(static_cast<char16_t>(0xDC00 + (rest & 0x3FFU)));
}

void append_bytes(std::string& bytes, char32_t character) {
    const auto following = [&bytes, character](unsigned int shift) {
        bytes.push_back(static_cast<char>(0x80U | (character >> shift & 0x3FU)));
    };
    if (character < 0x80) {
        bytes.push_back(static_cast<char>(character));
    } else if (character < 0x800) {
        bytes.push_back(static_cast<char>(0xC0U | character >> 6));
        following(0);
    } else if (character < kFirstBeyondUnit) {
        bytes.push_back(static_cast<char>(0xE0U | character >> 12));
        following(6);
        following(0);
    } else {
        bytes.push_back(static_cast<char>(0xF0U | character >> 18));
        following(12);
        following(6);
        following(0);
    }
}

// One character from one or two units; a half without its other half is the replacement.
char32_t take_character(std::u16string_view units, std::size_t& place) noexcept {
    const char32_t first = units[place++];
    if (is_low_half(first)) {
        return kReplacement;
    }
    if (!is_high_half(first)) {
        return first;
    }
    if (place == units.size() || !is_low_half(units[place])) {
        return kReplacement;
    }
    const char32_t second = units[place++];
    return kFirstBeyondUnit + ((first - 0xD800) << 10) + (second - 0xDC00);
}

}  // namespace

std::u16string from_utf8(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    for (std::size_t place = 0; place < text.size();) {
        const auto byte = static_cast<unsigned char>(text[place]);
        if (byte < 0x80) {
            units.push_back(byte);
            ++place;
        } else {
            append_units(units, take_character(text, place));
        }
    }
    return units;
}

std::string to_utf8(std::u16string_view units) {
    std::string bytes;
    bytes.reserve(units.size());
    for (std::size_t place = 0; place < units.size();) {
        append_bytes(bytes, take_character(units, place));
    }
    return bytes;
}

}  // namespace vbscript
