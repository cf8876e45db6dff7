#pragma once

#include <span>

#include "vbscript/value/context.h"

namespace vbscript {

// One text in, a part, a form or a length of it out: `Left`, `Trim`, `UCase`, `Len`, `Space`, ...
[[nodiscard]] std::span<const LibraryFunction> text_functions();

// From characters to their numbers and back: `Asc`, `ChrW`, `Escape`, ...
[[nodiscard]] std::span<const LibraryFunction> character_functions();

// The same that counts bytes: `LeftB`, `InStrB`, ...
[[nodiscard]] std::span<const LibraryFunction> byte_functions();

// One text in another: `InStr`, `Replace`, `StrComp`, ...
[[nodiscard]] std::span<const LibraryFunction> search_functions();

// Between one text and an array of texts: `Split`, `Join`, `Filter`.
[[nodiscard]] std::span<const LibraryFunction> list_functions();

}  // namespace vbscript
