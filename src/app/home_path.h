#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace app {

// Where things lie when nobody says otherwise. `environment` is the value of a variable, a null
// pointer or "" when it is not set; a relative path starts in the present folder.

// The home that a sub-command works on: its option, else $ZYNVELORA_HOME, else the project's.
[[nodiscard]] std::filesystem::path home_path(const std::string& option, const char* environment);

// What a fresh home gets: $ZYNVELORA_DATA, else the project's.
[[nodiscard]] std::filesystem::path data_path(const char* environment);

// State of a simulated unit that was given no place of its own: beside the home.
[[nodiscard]] std::filesystem::path unit_path(const std::filesystem::path& home,
                                              const std::string& unit);

// The programs that may run on one home: the daemon, and the separate one of the xAP network.
enum class HomeProgram : std::uint8_t { Daemon, XapNode };

[[nodiscard]] std::filesystem::path control_socket_path(const std::filesystem::path& home,
                                                        HomeProgram program = HomeProgram::Daemon);

}  // namespace app
