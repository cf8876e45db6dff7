#include "automation/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace automation {
namespace {

// The bytes 0x80 to 0x9F; all others are the Unicode character of the same number.
constexpr std::size_t kFirstSpecialByte = 0x80;
constexpr auto kSpecialCharacters = std::to_array<char16_t>({
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
});

constexpr char32_t kMalformed = 0xFFFD;

constexpr char16_t character_of(unsigned char byte) {
    const std::size_t special = std::size_t{byte} - kFirstSpecialByte;
    return special < kSpecialCharacters.size() ? kSpecialCharacters[special] : char16_t{byte};
}

char byte_of(char32_t character) {
    const bool has_own_number = character < 0x80 || (character >= 0xA0 && character <= 0xFF);
    if (has_own_number) {
        return static_cast<char>(character);
    }
    const auto special = std::ranges::find(kSpecialCharacters, character);
    if (special == kSpecialCharacters.end()) {
        return '?';
    }
    return static_cast<char>(kFirstSpecialByte +
                             static_cast<std::size_t>(special - kSpecialCharacters.begin()));
}

void append_utf8(std::string& utf8, char16_t character) {
    const auto append = [&utf8](unsigned int byte) { utf8.push_back(static_cast<char>(byte)); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0U | character >> 6U);
        append(0x80U | (character & 0x3FU));
    } else {
        append(0xE0U | character >> 12U);
        append(0x80U | (character >> 6U & 0x3FU));
        append(0x80U | (character & 0x3FU));
    }
}

// The well-formed sequences by their first byte, as table 3-7 of the Unicode Standard has them.
struct Utf8Lead {
    std::uint8_t first;
    std::uint8_t last;
    std::uint8_t second_first;
    std::uint8_t second_last;
    std::size_t length;
    std::uint8_t payload;
};

constexpr auto kUtf8Leads = std::to_array<Utf8Lead>({
    {0xC2, 0xDF, 0x80, 0xBF, 2, 0x1F},
    {0xE0, 0xE0, 0xA0, 0xBF, 3, 0x0F},
    {0xE1, 0xEC, 0x80, 0xBF, 3, 0x0F},
    {0xED, 0xED, 0x80, 0x9F, 3, 0x0F},
    {0xEE, 0xEF, 0x80, 0xBF, 3, 0x0F},
    {0xF0, 0xF0, 0x90, 0xBF, 4, 0x07},
    {0xF1, 0xF3, 0x80, 0xBF, 4, 0x07},
    {0xF4, 0xF4, 0x80, 0x8F, 4, 0x07},
});

struct Decoded {
    char32_t character;
    std::size_t length;  // bytes taken, also by a malformed sequence
};

Decoded decode_utf8(std::string_view bytes) {
    const auto byte_at = [bytes](std::size_t index) {
        return static_cast<std::uint8_t>(bytes[index]);
    };
    const std::uint8_t first = byte_at(0);
    if (first < 0x80) {
        return {first, 1};
    }
    const auto lead = std::ranges::find_if(kUtf8Leads, [first](const Utf8Lead& row) {
        return first >= row.first && first <= row.last;
    });
    if (lead == kUtf8Leads.end()) {
        return {kMalformed, 1};
    }
    char32_t character = first & lead->payload;
    for (std::size_t index = 1; index < lead->length; ++index) {
        const std::uint8_t lowest = index == 1 ? lead->second_first : 0x80;
        const std::uint8_t highest = index == 1 ? lead->second_last : 0xBF;
        if (index >= bytes.size() || byte_at(index) < lowest || byte_at(index) > highest) {
            return {kMalformed, index};
        }
        character = character << 6U | (byte_at(index) & 0x3FU);
    }
    return {character, lead->length};
}

constexpr unsigned char kCaseDistance = 0x20;

constexpr bool has_lower_case_above(unsigned char byte) {
    const bool is_ascii_capital = byte >= 'A' && byte <= 'Z';
    const bool is_accented_capital = byte >= 0xC0 && byte <= 0xDE && byte != 0xD7;
    return is_ascii_capital || is_accented_capital;
}

using CaseTable = std::array<char, 256>;

// Š, Œ and Ž stand 16 below their small letters, Ÿ far from its own.
constexpr CaseTable make_lower_case() {
    CaseTable table{};
    for (std::size_t index = 0; index < table.size(); ++index) {
        const auto byte = static_cast<unsigned char>(index);
        table[index] = static_cast<char>(has_lower_case_above(byte) ? byte + kCaseDistance : byte);
    }
    for (const std::size_t capital : {0x8AU, 0x8CU, 0x8EU}) {
        table[capital] = static_cast<char>(capital + 0x10);
    }
    table[0x9F] = static_cast<char>(0xFF);
    return table;
}

constexpr CaseTable kLowerCase = make_lower_case();

constexpr CaseTable make_upper_case() {
    CaseTable table{};
    for (std::size_t index = 0; index < table.size(); ++index) {
        table[index] = static_cast<char>(index);
    }
    for (std::size_t index = 0; index < table.size(); ++index) {
        const auto lower = static_cast<unsigned char>(kLowerCase[index]);
        if (lower != index) {
            table[lower] = static_cast<char>(index);
        }
    }
    return table;
}

constexpr CaseTable kUpperCase = make_upper_case();

char lower(char byte) {
    return kLowerCase[static_cast<unsigned char>(byte)];
}

std::string mapped(std::string_view bytes, const CaseTable& table) {
    std::string result(bytes);
    for (char& byte : result) {
        byte = table[static_cast<unsigned char>(byte)];
    }
    return result;
}

}  // namespace

std::u16string code_page_to_utf16(std::string_view bytes) {
    std::u16string units(bytes.size(), u'\0');
    std::ranges::transform(bytes, units.begin(), [](char byte) {
        return character_of(static_cast<unsigned char>(byte));
    });
    return units;
}

std::string utf16_to_code_page(std::u16string_view units) {
    std::string bytes(units.size(), '\0');
    std::ranges::transform(units, bytes.begin(), byte_of);
    return bytes;
}

std::string code_page_to_utf8(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char byte : bytes) {
        append_utf8(utf8, character_of(static_cast<unsigned char>(byte)));
    }
    return utf8;
}

std::string utf8_to_code_page(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    while (!utf8.empty()) {
        const Decoded decoded = decode_utf8(utf8);
        bytes.push_back(byte_of(decoded.character));
        utf8.remove_prefix(decoded.length);
    }
    return bytes;
}

std::string to_lower(std::string_view bytes) {
    return mapped(bytes, kLowerCase);
}

std::string to_upper(std::string_view bytes) {
    return mapped(bytes, kUpperCase);
}

bool equals_ignoring_case(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, lower, lower);
}

std::size_t find_ignoring_case(std::string_view whole, std::string_view part) {
    const auto found =
        std::search(whole.begin(), whole.end(), part.begin(), part.end(),
                    [](char left, char right) { return lower(left) == lower(right); });
    if (found == whole.end() && !part.empty()) {
        return std::string_view::npos;
    }
    return static_cast<std::size_t>(found - whole.begin());
}

std::string replace_ignoring_case(std::string_view text, std::string_view what,
                                  std::string_view with) {
    std::string result;
    for (std::size_t at = 0; (at = find_ignoring_case(text, what)) != std::string_view::npos;) {
        result.append(text.substr(0, at)).append(with);
        text.remove_prefix(at + what.size());
    }
    return result.append(text);
}

}  // namespace automation
