#include "vbscript/syntax/lexer.h"

#include <algorithm>

#include "vbscript/syntax/characters.h"

namespace vbscript::syntax {
namespace {

constexpr char16_t kByteOrderMark = 0xFEFF;

// Which sign one unit makes by itself; EndOfSource for none.
TokenKind sign_of(char16_t unit) {
    switch (unit) {
        case u':':
            return TokenKind::Colon;
        case u'(':
            return TokenKind::LeftParenthesis;
        case u')':
            return TokenKind::RightParenthesis;
        case u',':
            return TokenKind::Comma;
        case u'.':
            return TokenKind::Dot;
        case u'+':
            return TokenKind::Plus;
        case u'-':
            return TokenKind::Minus;
        case u'*':
            return TokenKind::Star;
        case u'/':
            return TokenKind::Slash;
        case u'\\':
            return TokenKind::Backslash;
        case u'^':
            return TokenKind::Caret;
        case u'&':
            return TokenKind::Ampersand;
        default:
            return TokenKind::EndOfSource;
    }
}

}  // namespace

Lexer::Lexer(std::u16string_view source, Arena& arena, Names& names, int current_year)
    : source_(source), arena_(arena), names_(names), current_year_(current_year) {
    if (unit() == kByteOrderMark) {
        ++at_;
        line_start_ = at_;
    }
}

Token Lexer::next() {
    skip_blanks();
    const Token token = is_at_end() || is_at_line_end() ? line_end() : any_sign();
    last_ = token.kind;
    is_at_statement_line_start_ = token.kind == TokenKind::NewLine;
    return token;
}

void Lexer::fail(SyntaxErrorNumber number, ast::Position position, std::size_t offset) const {
    constexpr std::u16string_view kLineEnds = u"\r\n";
    const std::size_t before =
        offset == 0 ? std::u16string_view::npos : source_.find_last_of(kLineEnds, offset - 1);
    const std::size_t begin = before == std::u16string_view::npos ? 0 : before + 1;
    const std::size_t end = source_.find_first_of(kLineEnds, begin);
    throw SyntaxError(number, position, source_.substr(begin, end - begin));
}

char16_t Lexer::unit(std::size_t ahead) const noexcept {
    return at_ + ahead < source_.size() ? source_[at_ + ahead] : u'\0';
}

bool Lexer::is_at_line_end() const noexcept {
    return !is_at_end() && is_line_end(unit());
}

ast::Position Lexer::position() const noexcept {
    return {.line = line_, .column = static_cast<std::uint32_t>(at_ - line_start_) + 1};
}

void Lexer::fail_here(SyntaxErrorNumber number) const {
    fail(number, position(), at_);
}

bool Lexer::starts(std::u16string_view mark) const noexcept {
    return source_.substr(at_, mark.size()) == mark;
}

// Everything in front of the next token: blanks, continued lines, and a comment up to its line's
// end. The marks around a comment of a page hide a script from programs that know none.
void Lexer::skip_blanks() {
    follows_blank_ = last_ == TokenKind::NewLine;
    while (!is_at_end()) {
        if (is_blank(unit())) {
            ++at_;
        } else if (unit() == u'\'') {
            skip_comment();
        } else if (is_at_statement_line_start_ && (starts(u"<!--") || starts(u"-->"))) {
            skip_comment();
        } else if (unit() != u'_' || !skip_continuation()) {
            return;
        }
        follows_blank_ = true;
    }
}

// "_" at a line's end, blanks behind it allowed.
bool Lexer::skip_continuation() {
    std::size_t ahead = 1;
    while (is_blank(unit(ahead))) {
        ++ahead;
    }
    if (at_ + ahead < source_.size() && !is_line_end(unit(ahead))) {
        return false;
    }
    at_ += ahead;
    if (!is_at_end()) {
        pass_line_end();
    }
    return true;
}

void Lexer::skip_comment() {
    at_ = std::min(source_.find_first_of(u"\r\n", at_), source_.size());
}

void Lexer::pass_line_end() {
    at_ += starts(u"\r\n") ? 2U : 1U;
    line_start_ = at_;
    ++line_;
}

Token Lexer::start_token(TokenKind kind) const {
    Token token;
    token.kind = kind;
    token.follows_blank = follows_blank_;
    token.position = position();
    token.offset = static_cast<std::uint32_t>(at_);
    return token;
}

Token Lexer::sign(TokenKind kind, std::size_t units) {
    const Token token = start_token(kind);
    at_ += units;
    return token;
}

Token Lexer::line_end() {
    if (is_at_end()) {
        return start_token(TokenKind::EndOfSource);
    }
    const Token token = start_token(TokenKind::NewLine);
    pass_line_end();
    return token;
}

Token Lexer::any_sign() {
    const char16_t first = unit();
    if (is_letter(first)) {
        return word();
    }
    if (is_digit(first) || (first == u'.' && is_digit(unit(1)))) {
        return number();
    }
    switch (first) {
        case u'"':
            return string();
        case u'#':
            return date();
        case u'[':
            return bracketed_word();
        case u'<':
        case u'>':
        case u'=':
            return comparison();
        default:
            break;
    }
    if (is_based_number()) {
        return based_number();
    }
    const TokenKind kind = sign_of(first);
    if (kind == TokenKind::EndOfSource) {
        fail_here(SyntaxErrorNumber::InvalidCharacter);
    }
    return sign(kind, 1);
}

// The two halves of "<=", ">=" and "<>" may stand in either order.
Token Lexer::comparison() {
    struct Pair {
        std::u16string_view mark;
        TokenKind kind;
    };

    constexpr Pair kPairs[] = {
        {u"<>", TokenKind::NotEqual},       {u"><", TokenKind::NotEqual},
        {u"<=", TokenKind::LessOrEqual},    {u"=<", TokenKind::LessOrEqual},
        {u">=", TokenKind::GreaterOrEqual}, {u"=>", TokenKind::GreaterOrEqual},
    };
    for (const Pair& pair : kPairs) {
        if (starts(pair.mark)) {
            return sign(pair.kind, 2);
        }
    }
    if (unit() == u'=') {
        return sign(TokenKind::Equal, 1);
    }
    return sign(unit() == u'<' ? TokenKind::Less : TokenKind::Greater, 1);
}

Token Lexer::word() {
    Token token = start_token(TokenKind::Word);
    const std::size_t begin = at_;
    while (is_part_of_name(unit())) {
        ++at_;
    }
    token.text = source_.substr(begin, at_ - begin);
    if (token.text.size() > Names::kMostUnits) {
        fail(SyntaxErrorNumber::IdentifierTooLong, token.position, begin);
    }
    token.name = &names_.find(token.text);
    if (last_ != TokenKind::Dot) {
        token.keyword = token.name->keyword;
    }
    if (token.keyword == Keyword::Rem) {
        skip_comment();
        return line_end();
    }
    return token;
}

Token Lexer::bracketed_word() {
    Token token = start_token(TokenKind::Word);
    const std::size_t begin = at_ + 1;
    const std::size_t end = std::min(source_.find_first_of(u"]\r\n", begin), source_.size());
    at_ = end;
    if (unit() != u']') {
        fail_here(SyntaxErrorNumber::ExpectedRightBracket);
    }
    ++at_;
    token.text = source_.substr(begin, end - begin);
    if (token.text.size() > Names::kMostUnits) {
        fail(SyntaxErrorNumber::IdentifierTooLong, token.position, token.offset);
    }
    token.name = &names_.find(token.text);
    return token;
}

}  // namespace vbscript::syntax
