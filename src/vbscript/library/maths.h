#pragma once

#include <span>

#include "vbscript/value/context.h"

namespace vbscript {

// `Abs` to `Tan`, `Round`, `Rnd` and `Randomize`, `RGB`.
[[nodiscard]] std::span<const LibraryFunction> maths_functions();

}  // namespace vbscript
