#include "vbscript/control/source_text.h"

#include "automation/code_page.h"
#include "vbscript/value/convert.h"

namespace vbscript {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";
constexpr char16_t kMalformed = 0xFFFD;

// `low` is the place of the low byte within a unit. Half a unit at the end is passed over.
std::u16string units_of(std::string_view bytes, std::size_t low) {
    std::u16string units;
    units.reserve(bytes.size() / 2);
    for (std::size_t place = 0; place + 1 < bytes.size(); place += 2) {
        const auto lower = static_cast<unsigned char>(bytes[place + low]);
        const auto upper = static_cast<unsigned char>(bytes[place + 1 - low]);
        units += static_cast<char16_t>((upper << 8U) | lower);
    }
    return units;
}

}  // namespace

std::u16string source_text(std::string_view bytes) {
    if (bytes.starts_with(kLittleEndianMark)) {
        return units_of(bytes.substr(kLittleEndianMark.size()), 0);
    }
    if (bytes.starts_with(kBigEndianMark)) {
        return units_of(bytes.substr(kBigEndianMark.size()), 1);
    }
    if (bytes.starts_with(kUtf8Mark)) {
        return from_utf8(bytes.substr(kUtf8Mark.size()));
    }
    const std::u16string text = from_utf8(bytes);
    const bool is_utf8 = text.find(kMalformed) == std::u16string::npos;
    return is_utf8 ? text : automation::code_page_to_utf16(bytes);
}

}  // namespace vbscript
