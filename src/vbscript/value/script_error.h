#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace vbscript {

// Numbers of the language's run-time errors.
enum class ErrorNumber : std::int32_t {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    ArrayFixedOrLocked = 10,
    DivisionByZero = 11,
    TypeMismatch = 13,
    OutOfStringSpace = 14,
    CannotPerformOperation = 17,
    OutOfStackSpace = 28,
    SubOrFunctionNotDefined = 35,
    ErrorInLoadingDll = 48,
    InternalError = 51,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    BadFileMode = 54,
    FileAlreadyOpen = 55,
    DeviceIoError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEndOfFile = 62,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    CannotRenameWithDifferentDrive = 74,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectVariableNotSet = 91,
    ForLoopNotInitialized = 92,
    InvalidUseOfNull = 94,
    CannotCreateTemporaryFile = 322,
    ObjectRequired = 424,
    CannotCreateObject = 429,
    ClassDoesNotSupportAutomation = 430,
    FileOrClassNameNotFound = 432,
    PropertyOrMethodNotSupported = 438,
    AutomationError = 440,
    ActionNotSupported = 445,
    NamedArgumentsNotSupported = 446,
    LocaleSettingNotSupported = 447,
    NamedArgumentNotFound = 448,
    ArgumentNotOptional = 449,
    WrongNumberOfArguments = 450,
    ObjectNotACollection = 451,
    FunctionNotFoundInDll = 453,
    TypeNotSupported = 458,
    RemoteServerUnavailable = 462,
    InvalidPicture = 481,
    NotSafeForScripting = 502,
    NotSafeForInitializing = 503,
    NotSafeForCreating = 504,
    InvalidReference = 505,
    ClassNotDefined = 506,
    ExceptionOccurred = 507,
    ScriptTimedOut = 13028,  // "Script execution time-out"
    VariableUndefined = 500,
    IllegalAssignment = 501,
    SyntaxErrorInRegularExpression = 5017,
    UnexpectedQuantifier = 5018,
    ExpectedBracketInRegularExpression = 5019,
    ExpectedParenthesisInRegularExpression = 5020,
    InvalidRangeInCharacterSet = 5021,
};

// The language's text of a number, such as u"Type mismatch" for 13. Numbers without a text of
// their own have "Unknown runtime error".
[[nodiscard]] std::u16string_view error_text(std::int32_t number) noexcept;

// A run-time error on its way to `On Error Resume Next` or out of the script. A value: whoever
// catches it reads it. The place is filled in by the machine as the error leaves a statement.
class ScriptError : public std::exception {
  public:
    // With the language's text and the name of the language as its source.
    explicit ScriptError(ErrorNumber number);

    // With what it is about, as in "Variable is undefined: 'x'".
    ScriptError(ErrorNumber number, std::u16string_view subject);

    ScriptError(std::int32_t number, std::u16string description, std::u16string source);

    [[nodiscard]] const char* what() const noexcept override { return "script error"; }

    // What a host is told of an error that nobody handled: "Variable is undefined: 'x'".
    [[nodiscard]] std::u16string message() const;

    std::int32_t number = 0;
    std::u16string description;  // what a script reads of it: "Variable is undefined"
    std::u16string subject;      // "x", or ""
    std::u16string source;
    std::u16string help_file;
    std::int32_t help_context = 0;

    // 1-based; 0 while unknown.
    std::int32_t line = 0;
    std::int32_t column = 0;
    std::u16string source_line;
};

}  // namespace vbscript
