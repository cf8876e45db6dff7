#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

enum class Parity : std::uint8_t { None, Even, Odd };

// How bytes travel on a serial line.
struct SerialLine {
    std::uint32_t bits_a_second = 9600;
    Parity parity = Parity::None;
    std::uint32_t data_bits = 8;  // 5 to 8
    std::uint32_t stop_bits = 1;  // 1 or 2
};

// From "9600,n,8,1", blanks and upper case allowed. Throws: RunTimeError 5 with the text and the
// field at fault.
[[nodiscard]] SerialLine parse_serial_line(std::string_view text);

}  // namespace platform
