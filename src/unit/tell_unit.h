#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace unit {

// Name of the Unix socket in a unit's state directory.
constexpr std::string_view kControlSocketName = "control.sock";

// Gives one command line to the unit that runs with that state directory, and its answer without
// the line end: "ok", the state as JSON for "state", or "error: " and what is wrong. Blocks for
// at most five seconds; does not pump.
//   normal | silent | slow MS | drop | not-found | hang | power off | power on | boot SECONDS |
//   subscribe | unsubscribe | state
// Throws: std::runtime_error when no unit runs there or it does not answer.
[[nodiscard]] std::string tell_unit(const std::filesystem::path& state_directory,
                                    std::string_view command);

}  // namespace unit
