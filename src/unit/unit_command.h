#pragma once

#include <chrono>
#include <string_view>
#include <variant>

#include "unit/fault.h"

namespace unit {

enum class PowerSwitch { Off, On };

// What the client program does at the daemon.
enum class Subscription { Start, End };

struct SetBootTime {
    std::chrono::seconds boot_time;
};

struct AskState {};

// One line of the control socket:
//   normal | silent | slow MS | drop | not-found | hang | power off | power on | boot SECONDS |
//   subscribe | unsubscribe | state
using UnitCommand = std::variant<Fault, PowerSwitch, SetBootTime, Subscription, AskState>;

constexpr std::chrono::seconds kLongestBoot = std::chrono::hours(1);

// Blanks around the line do not matter.
// Throws: std::invalid_argument, which says what is wrong and lists the commands.
[[nodiscard]] UnitCommand parse_unit_command(std::string_view line);

}  // namespace unit
