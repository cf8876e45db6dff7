#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace core {
class VeloraLog;
}

// Device numbers as two hex digits, the way endpoints are numbered.
namespace xap {

// "0E" for 14. A number above 255 is logged, and gives "00".
[[nodiscard]] std::string ToHex(core::VeloraLog& log, std::int16_t value);

// By the first and the last character; a text of one character counts it twice.
[[nodiscard]] std::int32_t FromHex(std::string_view text);

// A numeric text gives its value, "A" to "F" in any case 10 to 15, anything else 0.
[[nodiscard]] std::int32_t HexDigitValue(std::string_view text);

}  // namespace xap
