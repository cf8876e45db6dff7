#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "automation/number_reader.h"
#include "vbscript/syntax/characters.h"
#include "vbscript/syntax/lexer.h"
#include "vbscript/value/date_parts.h"
#include "vbscript/value/locale.h"

namespace vbscript::syntax {
namespace {

// Requires: units of ASCII alone.
std::string narrow(std::u16string_view units) {
    std::string text;
    text.reserve(units.size());
    for (const char16_t unit : units) {
        text += static_cast<char>(unit);
    }
    return text;
}

// A whole number takes the smallest type that it fits in.
ast::LiteralValue whole_number(double number) {
    if (number <= std::numeric_limits<std::int16_t>::max()) {
        return static_cast<std::int16_t>(number);
    }
    if (number <= std::numeric_limits<std::int32_t>::max()) {
        return static_cast<std::int32_t>(number);
    }
    return number;
}

}  // namespace

Token Lexer::string() {
    Token token = start_token(TokenKind::Literal);
    const std::size_t begin = at_ + 1;
    std::u16string joined;  // only with doubled quotes
    std::size_t part = begin;
    for (;;) {
        at_ = std::min(source_.find_first_of(u"\"\r\n", part), source_.size());
        if (unit() != u'"') {
            fail_here(SyntaxErrorNumber::UnterminatedString);
        }
        if (unit(1) != u'"') {
            break;
        }
        joined.append(source_, part, at_ + 1 - part);
        part = at_ + 2;
    }
    const std::u16string_view rest = source_.substr(part, at_ - part);
    token.literal = part == begin ? rest : arena_.text(joined.append(rest));
    ++at_;
    return token;
}

// Read as in the United States, wherever the script runs.
Token Lexer::date() {
    Token token = start_token(TokenKind::Literal);
    const std::size_t begin = at_ + 1;
    const std::size_t end = std::min(source_.find_first_of(u"#\r\n", begin), source_.size());
    const auto date =
        end < source_.size() && source_[end] == u'#'
            ? parse_date(locales().front(), source_.substr(begin, end - begin), current_year_)
            : std::nullopt;
    if (!date) {
        fail_here(SyntaxErrorNumber::SyntaxError);
    }
    token.literal = ast::DateLiteral{date->days};
    at_ = end + 1;
    return token;
}

// At "e": whether an exponent follows. A word may follow a number at once, as in `1Else`.
bool Lexer::has_exponent() {
    if (unit() != u'e' && unit() != u'E') {
        return false;
    }
    const std::size_t sign = unit(1) == u'+' || unit(1) == u'-' ? 1U : 0U;
    if (is_digit(unit(1 + sign))) {
        return true;
    }
    if (sign != 0 || !is_part_of_name(unit(1))) {
        fail_here(SyntaxErrorNumber::InvalidNumber);
    }
    return false;
}

Token Lexer::number() {
    Token token = start_token(TokenKind::Literal);
    const std::size_t begin = at_;
    bool is_whole = true;
    const auto skip_digits = [this] {
        while (is_digit(unit())) {
            ++at_;
        }
    };
    skip_digits();
    if (unit() == u'.') {
        is_whole = false;
        ++at_;
        skip_digits();
    }
    if (has_exponent()) {
        is_whole = false;
        at_ += 2;  // "e" and the sign or the first digit
        skip_digits();
    }
    const auto number = automation::read_whole_number(narrow(source_.substr(begin, at_ - begin)));
    if (!number || !std::isfinite(*number)) {
        fail(SyntaxErrorNumber::InvalidNumber, token.position, begin);
    }
    token.literal = is_whole ? whole_number(*number) : ast::LiteralValue(*number);
    return token;
}

// "&H" or "&O" with a digit of its base; else "&" joins texts.
bool Lexer::is_based_number() const noexcept {
    if (unit() != u'&') {
        return false;
    }
    const bool is_hex = unit(1) == u'h' || unit(1) == u'H';
    const bool is_octal = unit(1) == u'o' || unit(1) == u'O';
    return (is_hex && digit_value(unit(2)) < 16) || (is_octal && digit_value(unit(2)) < 8);
}

// Up to 16 bits make an Integer, up to 32 a Long, each with its sign in the highest bit; a "&"
// behind makes any of them a Long.
Token Lexer::based_number() {
    constexpr std::uint64_t kMostShort = 0xFFFF;
    constexpr std::uint64_t kMostLong = 0xFFFFFFFF;
    Token token = start_token(TokenKind::Literal);
    const unsigned int base = unit(1) == u'h' || unit(1) == u'H' ? 16 : 8;
    std::uint64_t number = 0;
    for (at_ += 2; digit_value(unit()) < base; ++at_) {
        number = number * base + digit_value(unit());
        if (number > kMostLong) {
            fail(SyntaxErrorNumber::InvalidNumber, token.position, token.offset);
        }
    }
    const bool is_long = unit() == u'&';
    if (is_long) {
        ++at_;
    }
    if (is_long || number > kMostShort) {
        token.literal = static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
    } else {
        token.literal = static_cast<std::int16_t>(static_cast<std::uint16_t>(number));
    }
    return token;
}

}  // namespace vbscript::syntax
