#include "vbscript/syntax/token_stream.h"

namespace vbscript::syntax {

bool can_be_name(const Token& token) noexcept {
    if (token.kind != TokenKind::Word) {
        return false;
    }
    switch (token.keyword) {
        case Keyword::None:
        case Keyword::Default:
        case Keyword::Erase:
        case Keyword::Error:
        case Keyword::Explicit:
        case Keyword::Property:
        case Keyword::Step:
            return true;
        default:
            return false;
    }
}

TokenStream::TokenStream(Lexer& lexer, Names& names) : lexer_(lexer), names_(names) {
    tokens_[0] = lexer_.next();
}

const Token& TokenStream::peek() {
    if (!has_peeked_) {
        tokens_[1 - at_] = lexer_.next();
        has_peeked_ = true;
    }
    return tokens_[1 - at_];
}

void TokenStream::advance() {
    if (has_peeked_) {
        at_ = 1 - at_;
        has_peeked_ = false;
    } else {
        tokens_[at_] = lexer_.next();
    }
}

bool TokenStream::is_at_end_of_statement() const noexcept {
    return is(TokenKind::Colon) || is_at_end_of_line();
}

bool TokenStream::is_at_end_of_line() const noexcept {
    return is(TokenKind::NewLine) || is(TokenKind::EndOfSource);
}

void TokenStream::expect(TokenKind kind, SyntaxErrorNumber otherwise) {
    if (!take(kind)) {
        fail(otherwise);
    }
}

void TokenStream::expect(Keyword keyword, SyntaxErrorNumber otherwise) {
    if (!take(keyword)) {
        fail(otherwise);
    }
}

bool TokenStream::take(TokenKind kind) {
    const bool is_there = is(kind);
    if (is_there) {
        advance();
    }
    return is_there;
}

bool TokenStream::take(Keyword keyword) {
    const bool is_there = is(keyword);
    if (is_there) {
        advance();
    }
    return is_there;
}

void TokenStream::skip_separators() {
    while (is(TokenKind::NewLine) || is(TokenKind::Colon)) {
        advance();
    }
}

bool TokenStream::is_at_name() const noexcept {
    return can_be_name(current());
}

ast::Name TokenStream::expect_name() {
    if (!is_at_name()) {
        fail(SyntaxErrorNumber::ExpectedIdentifier);
    }
    return take_name();
}

ast::Name TokenStream::expect_member_name() {
    if (!is(TokenKind::Word)) {
        fail(SyntaxErrorNumber::ExpectedIdentifier);
    }
    return take_name();
}

ast::Name TokenStream::take_name() {
    const ast::Name name = names_.name(current().text, *current().name);
    advance();
    return name;
}

void TokenStream::fail_at(SyntaxErrorNumber number, const Token& token) const {
    lexer_.fail(number, token.position, token.offset);
}

}  // namespace vbscript::syntax
