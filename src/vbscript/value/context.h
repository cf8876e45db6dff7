#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "vbscript/value/object.h"

namespace vbscript {

struct Locale;
class RandomSequence;

// What a running script offers to the functions and objects that it calls. One for each engine,
// owned by it, outlives them.
class Context {
  public:
    Context() = default;
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    virtual ~Context() = default;

    [[nodiscard]] virtual const Locale& locale() const noexcept = 0;

    // `SetLocale`: an identifier that the engine knows, 0 for its first one.
    // Throws: ScriptError 447.
    virtual void set_locale(std::int32_t identifier) = 0;

    [[nodiscard]] virtual RandomSequence& random() noexcept = 0;

    // Local wall-clock time.
    [[nodiscard]] virtual Date now() = 0;

    // `CreateObject` and `GetObject`. Throws: ScriptError 429, 432.
    virtual Ref<Object> create_object(std::u16string_view class_name) = 0;

    // `New RegExp`: a class that the language itself has. None without such a class.
    virtual Ref<Object> create_builtin_class(std::u16string_view class_name) = 0;

    // `GetRef`: an object whose default member calls a procedure of the script.
    // Throws: ScriptError 5.
    virtual Ref<Object> procedure_reference(std::u16string_view name) = 0;

    // `MsgBox` and `InputBox` where somebody sits. Result of the first is the number of the button.
    virtual std::int32_t message_box(std::u16string_view prompt, std::int32_t buttons,
                                     std::u16string_view title) = 0;
    virtual std::u16string input_box(std::u16string_view prompt, std::u16string_view title,
                                     std::u16string_view initial) = 0;

    // Long-running functions call it now and then. Throws: ScriptError "Script execution time-out"
    // once the script's time is up.
    virtual void check_time() = 0;

    // Calls a value that is an object through its default member until a plain value is left.
    // Plain values stay. Throws: ScriptError 91 for Nothing, 438 without a default member.
    [[nodiscard]] Value plain(const Value& value);
};

// One function of the run-time library. `call` gets plain positional arguments, `kMissing` for one
// left out in the middle; none of them is a reference. What it gives may be any value.
struct LibraryFunction {
    std::u16string_view name;   // as TypeName-style spelling: "InStrRev"
    std::uint8_t required = 0;  // fewer are error 450
    std::uint8_t accepted = 0;  // more are error 450; kAnyNumber: no limit
    Value (*call)(Context& context, std::span<const Value> arguments) = nullptr;
};

inline constexpr std::uint8_t kAnyNumber = 255;

// A constant of the language: "vbCrLf".
struct LibraryConstant {
    std::u16string_view name;
    Value value;
};

}  // namespace vbscript
