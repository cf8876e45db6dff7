#pragma once

#include <span>

#include "vbscript/value/context.h"

// Everything that a script can call or name without having written it. Some functions belong to
// the machine, since they run code or need a variable itself: Eval, Execute, ExecuteGlobal, GetRef
// and Erase.
namespace vbscript {

// One row for each name; names are unique without regard to case.
[[nodiscard]] std::span<const LibraryFunction> library_functions();

// The constants of the language, from vbAbort to vbYesNoCancel.
[[nodiscard]] std::span<const LibraryConstant> library_constants();

}  // namespace vbscript
