#pragma once

#include <vector>

#include "vbscript/syntax/arena.h"
#include "vbscript/syntax/nesting.h"
#include "vbscript/syntax/surroundings.h"
#include "vbscript/syntax/token_stream.h"

namespace vbscript::syntax {

// Reads expressions off the token stream. Each operation starts at the current token and leaves
// the first token that no longer belongs to it.
class ExpressionParser {
  public:
    ExpressionParser(TokenStream& tokens, Arena& arena, Nesting& nesting,
                     const Surroundings& surroundings)
        : tokens_(tokens), arena_(arena), nesting_(nesting), surroundings_(surroundings) {}

    [[nodiscard]] const ast::Expression* expression();

    // One or more, with commas between.
    [[nodiscard]] std::span<const ast::Expression* const> expressions();

    // What can be assigned to or called: a name, a member, `Me`, with all brackets and members
    // behind it. In front of a statement's arguments a dot behind a blank belongs to those.
    enum class Place : std::uint8_t { InExpression, StartOfStatement };
    [[nodiscard]] const ast::Expression* target(Place place);

    // `first (second) + 1, third`: what was read as brackets of a call turns out to be the start of
    // its first argument. Reads on from there.
    [[nodiscard]] ast::Arguments arguments_from(const ast::Apply& apply);

    // The arguments of a call without brackets.
    [[nodiscard]] ast::Arguments arguments();

    [[nodiscard]] const ast::Expression* parenthesized(const ast::Expression* inner,
                                                       ast::Position position);

    [[nodiscard]] bool is_at_operator() const;
    [[nodiscard]] bool is_at_operand() const;

  private:
    [[nodiscard]] const ast::Expression* binary(int lowest);
    [[nodiscard]] const ast::Expression* continue_binary(const ast::Expression* left, int lowest);
    [[nodiscard]] const ast::Expression* operand();
    [[nodiscard]] const ast::Expression* unary(ast::UnaryOperator operation, int lowest);
    [[nodiscard]] const ast::Expression* primary();
    [[nodiscard]] const ast::Expression* word();
    [[nodiscard]] const ast::Expression* literal(const ast::LiteralValue& value);
    [[nodiscard]] const ast::Expression* in_parentheses();
    [[nodiscard]] const ast::Expression* new_object();
    [[nodiscard]] const ast::Expression* target_start();
    [[nodiscard]] const ast::Expression* continue_target(const ast::Expression* start, Place place);
    [[nodiscard]] bool is_member_dot(Place place) const;
    [[nodiscard]] const ast::Expression* member(const ast::Expression* object);
    [[nodiscard]] const ast::Expression* apply(const ast::Expression* callee);
    void rest_of_arguments(std::vector<const ast::Expression*>& arguments);
    [[nodiscard]] const ast::Expression* argument();
    [[nodiscard]] std::uint16_t height_above(std::uint32_t height) const;

    TokenStream& tokens_;
    Arena& arena_;
    Nesting& nesting_;
    const Surroundings& surroundings_;
};

}  // namespace vbscript::syntax
