#pragma once

#include <cstdint>
#include <source_location>
#include <stdexcept>
#include <string>

namespace automation {

// Numbers of the run-time errors that the system itself raises; scripts see the same numbers.
enum class ErrorNumber : std::int32_t {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    BadFileName = 52,
    FileNotFound = 53,
    DeviceIoError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    PathNotFound = 76,
    ObjectVariableNotSet = 91,
    InvalidUseOfNull = 94,
    ObjectRequired = 424,
    ActiveXCannotCreateObject = 429,
    ClassDoesNotSupportAutomation = 430,
    PropertyOrMethodNotSupported = 438,
    WrongNumberOfArguments = 450,
    ObjectNotACollection = 451,
    AddressInUse = 10048,
};

// The standard description of a number, such as "Type mismatch" for 13; for a number without one
// "Application-defined or object-defined error".
[[nodiscard]] std::string standard_description(ErrorNumber number);

// The one exception of the logic: a failed conversion, a missing object, a refused file. It is a
// value; the catcher reads number, description and source, and `line()` for the log.
class RunTimeError : public std::runtime_error {
  public:
    // An error with its standard description.
    explicit RunTimeError(ErrorNumber number,
                          std::source_location where = std::source_location::current());

    // An error with a description of its own; `source` names the program that raised it.
    RunTimeError(ErrorNumber number, const std::string& description, std::string source = {},
                 std::source_location where = std::source_location::current());

    // For numbers outside the enumeration, such as those that a script raises.
    RunTimeError(std::int32_t number, const std::string& description, std::string source = {},
                 std::source_location where = std::source_location::current());

    [[nodiscard]] std::int32_t number() const noexcept { return number_; }

    [[nodiscard]] bool is(ErrorNumber number) const noexcept {
        return number_ == static_cast<std::int32_t>(number);
    }

    [[nodiscard]] std::string description() const { return what(); }

    [[nodiscard]] const std::string& source() const noexcept { return source_; }

    // Source line of the throw, which the log shows behind " Line ".
    [[nodiscard]] std::uint_least32_t line() const noexcept { return line_; }

    // The same error, source and line told in other words.
    [[nodiscard]] RunTimeError with_description(const std::string& description) const;

  private:
    std::int32_t number_;
    std::string source_;
    std::uint_least32_t line_;
};

}  // namespace automation
