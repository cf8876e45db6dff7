#pragma once

#include <string_view>

namespace plugin {

struct Subsystems;

// Carries out an entry of the host's menu; the entry is compared exactly, and one that is not
// known does nothing. Nothing happens in an instance that is not active. May pump.
void select_menu(Subsystems& parts, std::string_view entry);

}  // namespace plugin
