#pragma once

#include <string>
#include <string_view>

namespace vbscript {

// The text of a script file: UTF-16 of either byte order or UTF-8 with a mark at its start, UTF-8
// without one, and else code page 1252.
[[nodiscard]] std::u16string source_text(std::string_view bytes);

}  // namespace vbscript
