#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/devices.h"

namespace home {

// One value that a device offers.
struct DeviceChoice {
    std::string word;
    std::int32_t number = 0;

    friend bool operator==(const DeviceChoice&, const DeviceChoice&) = default;
};

// One button of a device.
struct DeviceButton {
    std::string plugin;
    std::string caption;  // what is to be pressed: "<label> @ <location> Velora"

    friend bool operator==(const DeviceButton&, const DeviceButton&) = default;
};

// What the fields `values` and `buttons` of a device say. Entries that are not well formed are
// left out.
[[nodiscard]] std::vector<DeviceChoice> choices_of(const host::DeviceFields& fields);
[[nodiscard]] std::vector<DeviceButton> buttons_of(const host::DeviceFields& fields);

// Whether the code is one of the power line, "A1" to "P16".
[[nodiscard]] bool is_x10_device(const host::DeviceFields& fields);

// The number that a person means by a number or a word, without regard to case. A device with a
// list of values takes what is on the list; an X10 device without one takes "on" and "off" as 1
// and 0, and whole numbers; any other takes whole numbers.
// Throws: RunTimeError 5 "[13 takes no 'blue'; there is 0 Turn Backlight Off, 1 Turn Backlight On".
[[nodiscard]] std::int32_t device_value(const host::DeviceFields& fields, std::string_view text);

// "on" or "off": what an X10 device is sent for a value. The word of its list decides where it is
// one of these two, else 0 is off and anything else on.
[[nodiscard]] std::string x10_command(const host::DeviceFields& fields, std::int32_t value);

}  // namespace home
