#pragma once

#include <cstdint>
#include <span>

#include "home/device_list.h"

namespace home {

// Character code of the first house code outside "A" to "Z" that none of the devices has: "[",
// then "]", "^", "_" and more. Characters that mean something in a settings file are left out.
// Throws: RunTimeError 68 when all are taken.
[[nodiscard]] std::int32_t next_free_io_code(std::span<const DeviceRecord> devices);

}  // namespace home
