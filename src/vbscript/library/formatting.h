#pragma once

#include <span>

#include "vbscript/value/context.h"

namespace vbscript {

// `FormatNumber`, `FormatCurrency`, `FormatPercent`, `FormatDateTime`, by the rules of the locale.
[[nodiscard]] std::span<const LibraryFunction> formatting_functions();

}  // namespace vbscript
