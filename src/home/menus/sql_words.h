#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace home {

enum class SqlKind : std::uint8_t {
    Word,    // of letters, digits and "_", also a number
    Quoted,  // 'text', "name", [name], and comments: nothing in it is touched
    Date,    // #11/24/2026#, without its signs
    Symbol,  // one character
    Blank,   // a run of blanks
};

struct SqlToken {
    SqlKind kind = SqlKind::Symbol;
    std::string text;
};

// Takes a statement apart; all texts together, with the signs of the dates, are the statement.
// Throws: RunTimeError 5 for a text or date that has no end.
[[nodiscard]] std::vector<SqlToken> sql_tokens(std::string_view statement);

}  // namespace home
