#pragma once

#include <span>

#include "vbscript/value/context.h"

namespace vbscript {

// What reaches out of the script: message boxes, objects of other programs, the locale and what the
// engine tells about itself.
[[nodiscard]] std::span<const LibraryFunction> environment_functions();

}  // namespace vbscript
