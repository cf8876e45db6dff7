#pragma once

#include <string>
#include <string_view>

#include "vbscript/value/string.h"

// Texts as the bytes that they are in memory, the low byte of a unit first, for the functions of
// the language that count bytes.
namespace vbscript {

[[nodiscard]] std::string bytes_of(const String& text);

// An odd count leaves half a unit at the end. Throws: ScriptError 14.
[[nodiscard]] Ref<String> text_of_bytes(std::string_view bytes);

}  // namespace vbscript
