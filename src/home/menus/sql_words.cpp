#include "home/menus/sql_words.h"

#include <algorithm>

#include "automation/run_time_error.h"

namespace home {
namespace {

bool is_word(char character) {
    const auto code = static_cast<unsigned char>(character);
    return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') ||
           (code >= 'a' && code <= 'z') || code == '_' || code >= 0x80;
}

bool is_blank(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

// The sign that ends a text that begins with this one; 0 for a sign that begins none.
char closing_of(char opening) {
    switch (opening) {
        case '\'':
        case '"':
        case '#':
            return opening;
        case '[':
            return ']';
        default:
            return 0;
    }
}

std::size_t run_length(std::string_view text, bool (*belongs)(char)) {
    std::size_t length = 0;
    while (length < text.size() && belongs(text[length])) {
        ++length;
    }
    return length;
}

// With the closing sign; a doubled one belongs to the text.
std::size_t quoted_length(std::string_view text) {
    const char closing = closing_of(text.front());
    for (std::size_t at = 1; at < text.size(); ++at) {
        if (text[at] != closing) {
            continue;
        }
        if (at + 1 < text.size() && text[at + 1] == closing && closing != '#') {
            ++at;
        } else {
            return at + 1;
        }
    }
    throw automation::RunTimeError(
        automation::ErrorNumber::InvalidProcedureCall,
        std::string("Syntax error in the statement: no end of ").append(text.substr(0, 40)));
}

std::size_t comment_length(std::string_view text) {
    if (text.starts_with("--")) {
        return std::min(text.find('\n'), text.size());
    }
    if (text.starts_with("/*")) {
        const std::size_t end = text.find("*/", 2);
        return end == std::string_view::npos ? text.size() : end + 2;
    }
    return 0;
}

SqlToken next_token(std::string_view text) {
    if (const std::size_t comment = comment_length(text); comment > 0) {
        return {SqlKind::Quoted, std::string(text.substr(0, comment))};
    }
    if (text.front() == '#') {
        return {SqlKind::Date, std::string(text.substr(1, quoted_length(text) - 2))};
    }
    if (closing_of(text.front()) != 0) {
        return {SqlKind::Quoted, std::string(text.substr(0, quoted_length(text)))};
    }
    if (is_word(text.front())) {
        return {SqlKind::Word, std::string(text.substr(0, run_length(text, is_word)))};
    }
    if (is_blank(text.front())) {
        return {SqlKind::Blank, std::string(text.substr(0, run_length(text, is_blank)))};
    }
    return {SqlKind::Symbol, std::string(text.substr(0, 1))};
}

}  // namespace

std::vector<SqlToken> sql_tokens(std::string_view statement) {
    constexpr std::size_t kDateSigns = 2;
    std::vector<SqlToken> tokens;
    while (!statement.empty()) {
        tokens.push_back(next_token(statement));
        const SqlToken& token = tokens.back();
        statement.remove_prefix(token.text.size() + (token.kind == SqlKind::Date ? kDateSigns : 0));
    }
    return tokens;
}

}  // namespace home
