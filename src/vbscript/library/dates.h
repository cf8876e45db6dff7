#pragma once

#include <span>

#include "vbscript/value/context.h"

namespace vbscript {

// `Now`, `DateAdd`, `Weekday` and the like. Dates that leave the calendar are error 5, an unknown
// interval or first day of the week too.
[[nodiscard]] std::span<const LibraryFunction> date_functions();

}  // namespace vbscript
