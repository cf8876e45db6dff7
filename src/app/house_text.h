#pragma once

#include <string>

#include "app/json.h"

// Devices, events and menu as a person reads them on a terminal, in UTF-8. Each gives whole lines.
namespace app {

// One line a device.
[[nodiscard]] std::string devices_text(const Json& devices);

// The device, its values and its buttons.
[[nodiscard]] std::string device_text(const Json& device);

// One line an event, its actions below it.
[[nodiscard]] std::string events_text(const Json& events);

// One line an entry.
[[nodiscard]] std::string menu_text(const Json& menu);

}  // namespace app
