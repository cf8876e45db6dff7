#pragma once

#include <cstddef>
#include <string_view>

#include "vbscript/syntax/arena.h"
#include "vbscript/syntax/names.h"
#include "vbscript/syntax/syntax_errors.h"
#include "vbscript/syntax/token.h"

namespace vbscript::syntax {

// Cuts a script into tokens, one at a time, in one pass. Blanks, comments and continued lines fall
// away here.
class Lexer {
  public:
    // All must outlive the lexer; texts of tokens lie in `source` and in `arena`.
    // `current_year` is that of a date literal without a year.
    Lexer(std::u16string_view source, Arena& arena, Names& names, int current_year);

    // Throws: SyntaxError for what can be no token.
    [[nodiscard]] Token next();

    [[noreturn]] void fail(SyntaxErrorNumber number, ast::Position position,
                           std::size_t offset) const;

  private:
    [[nodiscard]] char16_t unit(std::size_t ahead = 0) const noexcept;

    [[nodiscard]] bool is_at_end() const noexcept { return at_ >= source_.size(); }

    [[nodiscard]] bool is_at_line_end() const noexcept;
    [[nodiscard]] ast::Position position() const noexcept;
    [[noreturn]] void fail_here(SyntaxErrorNumber number) const;
    [[nodiscard]] bool starts(std::u16string_view mark) const noexcept;
    void skip_blanks();
    [[nodiscard]] bool skip_continuation();
    void skip_comment();
    void pass_line_end();
    [[nodiscard]] Token start_token(TokenKind kind) const;
    [[nodiscard]] Token sign(TokenKind kind, std::size_t units);
    [[nodiscard]] Token any_sign();
    [[nodiscard]] Token comparison();
    [[nodiscard]] Token line_end();
    [[nodiscard]] Token word();
    [[nodiscard]] Token bracketed_word();
    [[nodiscard]] Token string();
    [[nodiscard]] Token date();
    [[nodiscard]] Token number();
    [[nodiscard]] bool has_exponent();
    [[nodiscard]] bool is_based_number() const noexcept;
    [[nodiscard]] Token based_number();

    std::u16string_view source_;
    Arena& arena_;
    Names& names_;
    int current_year_;
    std::size_t at_ = 0;
    std::size_t line_start_ = 0;
    std::uint32_t line_ = 1;
    bool follows_blank_ = true;
    bool is_at_statement_line_start_ = true;
    TokenKind last_ = TokenKind::NewLine;
};

}  // namespace vbscript::syntax
