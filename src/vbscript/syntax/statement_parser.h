#pragma once

#include <utility>

#include "vbscript/syntax/declared_names.h"
#include "vbscript/syntax/expression_parser.h"

namespace vbscript::syntax {

// Reads the statements that procedures and scripts are made of, but no procedures and classes
// themselves. Each operation starts at the current token and leaves the first token behind the
// statement; whoever calls it looks for the statement's end.
class StatementParser {
  public:
    StatementParser(TokenStream& tokens, Arena& arena, Nesting& nesting, Surroundings& surroundings)
        : tokens_(tokens),
          arena_(arena),
          nesting_(nesting),
          surroundings_(surroundings),
          expressions_(tokens, arena, nesting, surroundings) {}

    [[nodiscard]] const ast::Statement* statement();

    // Statements up to a word that ends a block, such as End, Else or Next, or the script's end.
    [[nodiscard]] ast::Block block();

    // Fails unless a line's end or a colon follows.
    void end_statement() const;

    // Passes "End" and the word that must follow it.
    void close_with_end(Keyword word, SyntaxErrorNumber otherwise);

    // `a, b(3), c()` behind Dim, Public or Private.
    [[nodiscard]] std::span<const ast::Declarator> declarators(DeclaredNames& names);

    [[nodiscard]] const ast::Statement* dim(ast::Visibility visibility, ast::Position position);
    [[nodiscard]] const ast::Statement* constants(ast::Visibility visibility,
                                                  ast::Position position);

    // The scope that declarations go to; gives back the one before.
    DeclaredNames* set_scope(DeclaredNames* names) noexcept { return std::exchange(names_, names); }

  private:
    [[nodiscard]] bool is_at_block_end() const noexcept;
    [[nodiscard]] const ast::Statement* statement_of(Keyword keyword);
    [[nodiscard]] ast::Block rest_of_line();
    [[nodiscard]] bool is_at_end_of_procedure();
    void refuse_me(const ast::Expression& target, const Token& token) const;
    void expect_block_end(Keyword word, SyntaxErrorNumber otherwise);

    [[nodiscard]] const ast::Statement* call_or_assign();
    [[nodiscard]] const ast::Statement* call_of(const ast::Expression* callee,
                                                ast::Position position);
    [[nodiscard]] const ast::Statement* call_with_brackets(const ast::Apply& apply,
                                                           ast::Position position);
    [[nodiscard]] const ast::Statement* call_by_word();
    [[nodiscard]] const ast::Statement* set_assign();
    [[nodiscard]] const ast::Statement* redim();
    [[nodiscard]] const ast::Statement* erase();
    [[nodiscard]] ast::Declarator declarator(DeclaredNames& names);
    [[nodiscard]] std::span<const std::int32_t> fixed_bounds();
    [[nodiscard]] std::int32_t fixed_bound();
    [[nodiscard]] ast::Constant constant();
    [[nodiscard]] ast::LiteralValue constant_value();
    [[nodiscard]] ast::LiteralValue negated_constant();

    [[nodiscard]] const ast::Statement* if_statement();
    [[nodiscard]] ast::Branch if_head();
    [[nodiscard]] bool goes_on_below();
    void block_branches(ast::If& node, std::vector<ast::Branch>& branches);
    void line_branches(ast::If& node, std::vector<ast::Branch>& branches);
    [[nodiscard]] const ast::Statement* select_case();
    [[nodiscard]] const ast::Statement* for_statement();
    [[nodiscard]] const ast::Statement* for_each(ast::Position position);
    [[nodiscard]] const ast::Statement* for_next(ast::Position position);
    [[nodiscard]] ast::Block for_body(const ast::Name& variable);
    [[nodiscard]] const ast::Statement* do_statement();
    [[nodiscard]] const ast::Statement* while_statement();
    [[nodiscard]] const ast::Statement* with_statement();
    [[nodiscard]] const ast::Statement* exit_statement();
    [[nodiscard]] const ast::Statement* on_error();
    [[nodiscard]] const ast::Statement* stop();

    TokenStream& tokens_;
    Arena& arena_;
    Nesting& nesting_;
    Surroundings& surroundings_;
    ExpressionParser expressions_;
    DeclaredNames* names_ = nullptr;
};

}  // namespace vbscript::syntax
