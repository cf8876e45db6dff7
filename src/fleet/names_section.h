#pragma once

#include <string>
#include <string_view>

namespace core {
class Instance;
}

// The section of the settings file that lists the units, one line for each.
namespace fleet {

inline constexpr std::string_view kNamesSection = "Velora Names";

// "[" and "]" open and close sections of the file, and are stored as "~1" and "~2".
[[nodiscard]] std::string restore_brackets(std::string_view text);
[[nodiscard]] std::string store_brackets(std::string_view text);

// All lines, each ended by a NUL character, without quotes and with their brackets.
[[nodiscard]] std::string names_section(const core::Instance& instance);

}  // namespace fleet
