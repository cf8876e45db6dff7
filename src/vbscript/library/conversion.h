#pragma once

#include <span>

#include "vbscript/value/context.h"

namespace vbscript {

// `CInt` and its like, `Hex` and `Oct`, `Fix` and `Int`.
[[nodiscard]] std::span<const LibraryFunction> conversion_functions();

}  // namespace vbscript
