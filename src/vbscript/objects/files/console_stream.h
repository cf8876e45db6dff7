#pragma once

#include <cstdint>

#include "vbscript/objects/console.h"
#include "vbscript/objects/files/text_stream.h"

namespace vbscript {

enum class StandardStream : std::uint8_t { Input = 0, Output = 1, Error = 2 };

// A TextStream on the terminal. `console` outlives it.
[[nodiscard]] Ref<TextStream> console_stream(Console& console, StandardStream which);

}  // namespace vbscript
