#include "automation/utf8.h"

#include <array>
#include <cstddef>

namespace automation {
namespace {

// The lead bytes of RFC 3629, section 4, with the range of the second byte; all further bytes lie
// between 80 and BF.
struct Sequence {
    unsigned char first_lead;
    unsigned char last_lead;
    std::size_t length;
    unsigned char second_low;
    unsigned char second_high;
};

constexpr std::array<Sequence, 9> kSequences = {{
    {0x00, 0x7F, 1, 0x00, 0x00},
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
}};

bool lies_between(char byte, unsigned char low, unsigned char high) noexcept {
    const auto number = static_cast<unsigned char>(byte);
    return number >= low && number <= high;
}

bool is_whole(std::string_view bytes, const Sequence& sequence) noexcept {
    if (bytes.size() < sequence.length) {
        return false;
    }
    if (sequence.length > 1 && !lies_between(bytes[1], sequence.second_low, sequence.second_high)) {
        return false;
    }
    for (std::size_t i = 2; i < sequence.length; ++i) {
        if (!lies_between(bytes[i], 0x80, 0xBF)) {
            return false;
        }
    }
    return true;
}

// Length of the character at the start of `bytes`, 0 when it is malformed.
std::size_t character_length(std::string_view bytes) noexcept {
    for (const Sequence& sequence : kSequences) {
        if (lies_between(bytes.front(), sequence.first_lead, sequence.last_lead)) {
            return is_whole(bytes, sequence) ? sequence.length : 0;
        }
    }
    return 0;
}

}  // namespace

bool is_well_formed_utf8(std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const std::size_t length = character_length(bytes);
        if (length == 0) {
            return false;
        }
        bytes.remove_prefix(length);
    }
    return true;
}

}  // namespace automation
