#pragma once

#include <chrono>
#include <cstdint>
#include <string_view>

#include "automation/date.h"
#include "home/device_table.h"
#include "home/events/event.h"

namespace home {

// Which of the things that happen set off an event with this trigger.

[[nodiscard]] bool matches(const Trigger& trigger, const DeviceChange& change);
[[nodiscard]] bool matches_x10(const Trigger& trigger, std::string_view code,
                               std::string_view command);
[[nodiscard]] bool matches_phone(const Trigger& trigger, std::int16_t line);

// Whether this is the minute of its time of day, and no such minute of the day was before.
[[nodiscard]] bool matches_minute(const Event& event, automation::DateTime now);

// Minutes after which it comes again and again; 0 for other triggers.
[[nodiscard]] std::chrono::minutes interval_of(const Trigger& trigger);

}  // namespace home
