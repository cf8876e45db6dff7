#pragma once

#include "vbscript/syntax/ast.h"
#include "vbscript/value/value.h"

namespace vbscript {

// The value that a literal of the source stands for.
[[nodiscard]] Value value_of(const ast::LiteralValue& literal);

// The literal with a minus in front of it; Empty if it is no number.
[[nodiscard]] Value negated(const ast::LiteralValue& literal);

}  // namespace vbscript
