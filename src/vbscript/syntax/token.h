#pragma once

#include <cstdint>
#include <string_view>

#include "vbscript/syntax/ast.h"

namespace vbscript::syntax {

// Words that mean something to the language. `Default`, `Erase`, `Error`, `Explicit`, `Property`
// and `Step` are words only where one can stand, and names everywhere else. The words at the end
// are kept for the language, though it has no use for them.
enum class Keyword : std::uint8_t {
    None,
    And,
    ByRef,
    ByVal,
    Call,
    Case,
    Class,
    Const,
    Default,
    Dim,
    Do,
    Each,
    Else,
    ElseIf,
    Empty,
    End,
    Eqv,
    Erase,
    Error,
    Exit,
    Explicit,
    False,
    For,
    Function,
    Get,
    GoTo,
    If,
    Imp,
    In,
    Is,
    Let,
    Loop,
    Me,
    Mod,
    New,
    Next,
    Not,
    Nothing,
    Null,
    On,
    Option,
    Or,
    Preserve,
    Private,
    Property,
    Public,
    ReDim,
    Rem,
    Resume,
    Select,
    Set,
    Step,
    Stop,
    Sub,
    Then,
    To,
    True,
    Until,
    Wend,
    While,
    With,
    Xor,
    Reserved,
};

enum class TokenKind : std::uint8_t {
    EndOfSource,
    NewLine,
    Colon,
    Word,  // a name or a keyword
    Literal,
    LeftParenthesis,
    RightParenthesis,
    Comma,
    Dot,
    Plus,
    Minus,
    Star,
    Slash,
    Backslash,
    Caret,
    Ampersand,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessOrEqual,
    GreaterOrEqual,
};

struct KnownName;

struct Token {
    TokenKind kind = TokenKind::EndOfSource;
    Keyword keyword = Keyword::None;  // never of a name in brackets or behind a dot
    bool follows_blank = false;       // blanks or a line's start stand in front
    ast::Position position;
    std::uint32_t offset = 0;   // of its first unit in the source
    std::u16string_view text;   // a Word's spelling
    KnownName* name = nullptr;  // of a Word
    ast::LiteralValue literal;  // of a Literal
};

}  // namespace vbscript::syntax
