#pragma once

#include <array>

#include "vbscript/syntax/lexer.h"

namespace vbscript::syntax {

// The tokens of a script as its parsers look at them: the current one, and the next when a word
// has to be told apart by what follows it.
class TokenStream {
  public:
    explicit TokenStream(Lexer& lexer, Names& names);

    [[nodiscard]] const Token& current() const noexcept { return tokens_[at_]; }

    [[nodiscard]] const Token& peek();

    void advance();

    [[nodiscard]] bool is(TokenKind kind) const noexcept { return current().kind == kind; }

    [[nodiscard]] bool is(Keyword keyword) const noexcept { return current().keyword == keyword; }

    // NewLine or Colon, or nothing left.
    [[nodiscard]] bool is_at_end_of_statement() const noexcept;
    [[nodiscard]] bool is_at_end_of_line() const noexcept;

    // Passes what is expected, or fails with the number at the current token.
    void expect(TokenKind kind, SyntaxErrorNumber otherwise);
    void expect(Keyword keyword, SyntaxErrorNumber otherwise);

    // True if it was there, and passed.
    bool take(TokenKind kind);
    bool take(Keyword keyword);

    void skip_separators();

    // Whether a new name can stand here.
    [[nodiscard]] bool is_at_name() const noexcept;

    // Passes a name. Fails with ExpectedIdentifier.
    [[nodiscard]] ast::Name expect_name();

    // The same behind a dot, where every word is a name.
    [[nodiscard]] ast::Name expect_member_name();

    [[noreturn]] void fail(SyntaxErrorNumber number) const { fail_at(number, current()); }

    [[noreturn]] void fail_at(SyntaxErrorNumber number, const Token& token) const;

  private:
    [[nodiscard]] ast::Name take_name();

    Lexer& lexer_;
    Names& names_;
    std::array<Token, 2> tokens_;
    std::size_t at_ = 0;
    bool has_peeked_ = false;
};

// Whether a word is no keyword, or one that only is one where it can stand.
[[nodiscard]] bool can_be_name(const Token& token) noexcept;

}  // namespace vbscript::syntax
