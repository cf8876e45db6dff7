#pragma once

#include <string>

#include "vbscript/machine/code.h"

namespace vbscript {

// The instructions of a code as text, one line each, for whoever wants to see what the compiler
// made: "AddNumber r1 r0 ; 5". r are registers, k constants, g other places of the arena; a jump
// shows the number of the line that it leads to.
[[nodiscard]] std::string listing(const Code& code);

}  // namespace vbscript
