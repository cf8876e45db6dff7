#pragma once

#include <chrono>

#include "automation/date.h"

namespace platform {

// The moment on the house's wall clock, in the zone that the machine has at that moment.
[[nodiscard]] automation::DateTime local_time(
    std::chrono::sys_time<std::chrono::milliseconds> moment);

}  // namespace platform
