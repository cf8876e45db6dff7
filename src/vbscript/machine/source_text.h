#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "vbscript/syntax/ast.h"

namespace vbscript {

// An expression as error messages name it: "list(...).name", "[number: 5]", "[string: "abc"]".
[[nodiscard]] std::u16string text_of(const ast::Expression& node);

// One line of a source, from 1, without its end.
[[nodiscard]] std::u16string_view line_of(std::u16string_view source,
                                          std::uint32_t number) noexcept;

}  // namespace vbscript
