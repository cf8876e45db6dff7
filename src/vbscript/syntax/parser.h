#pragma once

#include <string_view>

#include "vbscript/syntax/program.h"
#include "vbscript/syntax/syntax_errors.h"

namespace vbscript {

// What surrounds a text that is parsed on its own.
struct ParseOptions {
    bool may_use_me = false;  // the text runs inside a class: `Execute` and `Eval` in a method
    int current_year = 2000;  // of date literals without a year: whoever has a clock sets it
};

// The tree of a whole script. The source is copied and need not outlive the call.
// Throws: SyntaxError for the first fault; 1001 for a script that nests too deeply.
[[nodiscard]] Program parse(std::u16string_view source, ParseOptions options = {});

// The tree of one expression, as `Eval` takes it: see `Program::expression()`.
// Throws: SyntaxError.
[[nodiscard]] Program parse_expression(std::u16string_view source, ParseOptions options = {});

}  // namespace vbscript
