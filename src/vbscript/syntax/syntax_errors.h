#pragma once

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "vbscript/syntax/ast.h"

namespace vbscript {

// Numbers of the language's syntax errors. The language owns the numbers that the parser finds no
// use for as well.
enum class SyntaxErrorNumber : std::int32_t {
    InvalidReference = 505,
    OutOfMemory = 1001,
    SyntaxError = 1002,
    ExpectedColon = 1003,
    ExpectedLeftParenthesis = 1005,
    ExpectedRightParenthesis = 1006,
    ExpectedRightBracket = 1007,
    ExpectedIdentifier = 1010,
    ExpectedEqual = 1011,
    ExpectedIf = 1012,
    ExpectedTo = 1013,
    ExpectedEnd = 1014,
    ExpectedFunction = 1015,
    ExpectedSub = 1016,
    ExpectedThen = 1017,
    ExpectedWend = 1018,
    ExpectedLoop = 1019,
    ExpectedNext = 1020,
    ExpectedCase = 1021,
    ExpectedSelect = 1022,
    ExpectedExpression = 1023,
    ExpectedStatement = 1024,
    ExpectedEndOfStatement = 1025,
    ExpectedIntegerConstant = 1026,
    ExpectedWhileOrUntil = 1027,
    ExpectedWhileUntilOrEnd = 1028,
    ExpectedWith = 1029,
    IdentifierTooLong = 1030,
    InvalidNumber = 1031,
    InvalidCharacter = 1032,
    UnterminatedString = 1033,
    UnterminatedComment = 1034,
    InvalidUseOfMe = 1037,
    LoopWithoutDo = 1038,
    InvalidExit = 1039,
    InvalidForVariable = 1040,
    NameRedefined = 1041,
    MustBeFirstStatement = 1042,
    CannotAssignToArgument = 1043,
    ParenthesesOnSubCall = 1044,
    ExpectedLiteral = 1045,
    ExpectedIn = 1046,
    ExpectedClass = 1047,
    MustBeInsideClass = 1048,
    ExpectedPropertyKind = 1049,
    ExpectedProperty = 1050,
    InconsistentPropertyArguments = 1051,
    SeveralDefaults = 1052,
    ClassEventHasArguments = 1053,
    PropertyNeedsArgument = 1054,
    UnexpectedNext = 1055,
    DefaultOnOther = 1056,
    DefaultNeedsPublic = 1057,
    DefaultNeedsGet = 1058,
};

struct SyntaxErrorText {
    SyntaxErrorNumber number;
    std::u16string_view text;
};

inline constexpr auto kSyntaxErrorTexts = std::to_array<SyntaxErrorText>({
    {SyntaxErrorNumber::InvalidReference, u"Invalid or unqualified reference"},
    {SyntaxErrorNumber::OutOfMemory, u"Out of memory"},
    {SyntaxErrorNumber::SyntaxError, u"Syntax error"},
    {SyntaxErrorNumber::ExpectedColon, u"Expected ':'"},
    {SyntaxErrorNumber::ExpectedLeftParenthesis, u"Expected '('"},
    {SyntaxErrorNumber::ExpectedRightParenthesis, u"Expected ')'"},
    {SyntaxErrorNumber::ExpectedRightBracket, u"Expected ']'"},
    {SyntaxErrorNumber::ExpectedIdentifier, u"Expected identifier"},
    {SyntaxErrorNumber::ExpectedEqual, u"Expected '='"},
    {SyntaxErrorNumber::ExpectedIf, u"Expected 'If'"},
    {SyntaxErrorNumber::ExpectedTo, u"Expected 'To'"},
    {SyntaxErrorNumber::ExpectedEnd, u"Expected 'End'"},
    {SyntaxErrorNumber::ExpectedFunction, u"Expected 'Function'"},
    {SyntaxErrorNumber::ExpectedSub, u"Expected 'Sub'"},
    {SyntaxErrorNumber::ExpectedThen, u"Expected 'Then'"},
    {SyntaxErrorNumber::ExpectedWend, u"Expected 'Wend'"},
    {SyntaxErrorNumber::ExpectedLoop, u"Expected 'Loop'"},
    {SyntaxErrorNumber::ExpectedNext, u"Expected 'Next'"},
    {SyntaxErrorNumber::ExpectedCase, u"Expected 'Case'"},
    {SyntaxErrorNumber::ExpectedSelect, u"Expected 'Select'"},
    {SyntaxErrorNumber::ExpectedExpression, u"Expected expression"},
    {SyntaxErrorNumber::ExpectedStatement, u"Expected statement"},
    {SyntaxErrorNumber::ExpectedEndOfStatement, u"Expected end of statement"},
    {SyntaxErrorNumber::ExpectedIntegerConstant, u"Expected integer constant"},
    {SyntaxErrorNumber::ExpectedWhileOrUntil, u"Expected 'While' or 'Until'"},
    {SyntaxErrorNumber::ExpectedWhileUntilOrEnd, u"Expected 'While', 'Until' or end of statement"},
    {SyntaxErrorNumber::ExpectedWith, u"Expected 'With'"},
    {SyntaxErrorNumber::IdentifierTooLong, u"Identifier too long"},
    {SyntaxErrorNumber::InvalidNumber, u"Invalid number"},
    {SyntaxErrorNumber::InvalidCharacter, u"Invalid character"},
    {SyntaxErrorNumber::UnterminatedString, u"Unterminated string constant"},
    {SyntaxErrorNumber::UnterminatedComment, u"Unterminated comment"},
    {SyntaxErrorNumber::InvalidUseOfMe, u"Invalid use of 'Me' keyword"},
    {SyntaxErrorNumber::LoopWithoutDo, u"'loop' without 'do'"},
    {SyntaxErrorNumber::InvalidExit, u"Invalid 'exit' statement"},
    {SyntaxErrorNumber::InvalidForVariable, u"Invalid 'for' loop control variable"},
    {SyntaxErrorNumber::NameRedefined, u"Name redefined"},
    {SyntaxErrorNumber::MustBeFirstStatement, u"Must be first statement on the line"},
    {SyntaxErrorNumber::CannotAssignToArgument, u"Cannot assign to non-ByVal argument"},
    {SyntaxErrorNumber::ParenthesesOnSubCall, u"Cannot use parentheses when calling a Sub"},
    {SyntaxErrorNumber::ExpectedLiteral, u"Expected literal constant"},
    {SyntaxErrorNumber::ExpectedIn, u"Expected 'In'"},
    {SyntaxErrorNumber::ExpectedClass, u"Expected 'Class'"},
    {SyntaxErrorNumber::MustBeInsideClass, u"Must be defined inside a Class"},
    {SyntaxErrorNumber::ExpectedPropertyKind,
     u"Expected Let or Set or Get in property declaration"},
    {SyntaxErrorNumber::ExpectedProperty, u"Expected 'Property'"},
    {SyntaxErrorNumber::InconsistentPropertyArguments,
     u"Number of arguments must be consistent across properties specification"},
    {SyntaxErrorNumber::SeveralDefaults,
     u"Cannot have multiple default property/method in a Class"},
    {SyntaxErrorNumber::ClassEventHasArguments,
     u"Class initialize or terminate do not have arguments"},
    {SyntaxErrorNumber::PropertyNeedsArgument,
     u"Property set or let must have at least one argument"},
    {SyntaxErrorNumber::UnexpectedNext, u"Unexpected 'Next'"},
    {SyntaxErrorNumber::DefaultOnOther,
     u"'Default' can be specified only on 'Property' or 'Function' or 'Sub'"},
    {SyntaxErrorNumber::DefaultNeedsPublic, u"'Default' specification must also specify 'Public'"},
    {SyntaxErrorNumber::DefaultNeedsGet, u"'Default' specification can only be on Property Get"},
});

[[nodiscard]] std::u16string_view syntax_error_text(SyntaxErrorNumber number) noexcept;

// The fault that ends the parsing of a script: the first one in it. `what()` is the text with its
// number, for logs.
class SyntaxError : public std::runtime_error {
  public:
    SyntaxError(SyntaxErrorNumber number, ast::Position position, std::u16string_view source_line);

    [[nodiscard]] SyntaxErrorNumber number() const noexcept { return number_; }

    [[nodiscard]] std::u16string_view description() const noexcept {
        return syntax_error_text(number_);
    }

    // Of the first unit that does not fit. Both from 1.
    [[nodiscard]] std::uint32_t line() const noexcept { return position_.line; }

    [[nodiscard]] std::uint32_t column() const noexcept { return position_.column; }

    // The line at fault as it was written, without its end.
    [[nodiscard]] const std::u16string& source_line() const noexcept { return source_line_; }

  private:
    SyntaxErrorNumber number_;
    ast::Position position_;
    std::u16string source_line_;
};

}  // namespace vbscript
