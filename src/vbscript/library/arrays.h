#pragma once

#include <span>

#include "vbscript/value/context.h"

namespace vbscript {

// `Array`, `LBound` and `UBound`, and what can be asked of any value: `IsNumeric`, `TypeName`, ...
[[nodiscard]] std::span<const LibraryFunction> array_functions();
[[nodiscard]] std::span<const LibraryFunction> information_functions();

}  // namespace vbscript
