#pragma once

#include <span>
#include <string>
#include <string_view>

#include "vbscript/syntax/parser.h"

namespace vbscript {

// A tree as S-expressions, for comparison: `x = f(1, , y)` is "(= x (apply f 1 _ y))". Texts are
// ASCII. Statements stand one after the other with a blank between; classes and procedures come
// first.
[[nodiscard]] std::string tree_text(const Program& program);
[[nodiscard]] std::string tree_text(const ast::Expression& expression);

// The tree of a source, or "NUMBER line:column" of its error.
[[nodiscard]] std::string parsed(std::u16string_view source);
[[nodiscard]] std::string parsed_expression(std::u16string_view source);

// A source and its `parsed` form.
struct TreeCase {
    std::u16string_view source;
    std::string_view tree;
};

void expect_scripts(std::span<const TreeCase> cases);
void expect_expressions(std::span<const TreeCase> cases);

[[nodiscard]] std::string narrow(std::u16string_view text);

}  // namespace vbscript
