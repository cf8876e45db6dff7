#pragma once

#include <string>
#include <string_view>

// The names of the controls by which the status page sets devices: "V", the character code of the
// device code's letter in two hex digits, and the rest of the code. So every code is safe in a
// form: "V5B12" for "[12".
namespace status {

[[nodiscard]] std::string control_name(std::string_view device_code);

// The way back. Any other name gives the code of no device.
[[nodiscard]] std::string device_of_control(std::string_view name);

// "B" for 11, the number of an endpoint as the network shows it.
[[nodiscard]] std::string hex_text(std::int32_t number);

}  // namespace status
