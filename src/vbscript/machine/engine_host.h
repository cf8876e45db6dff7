#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "vbscript/value/object.h"

namespace vbscript {

class Context;

// What the engine expects of the program around it. Outlives the engine.
class EngineHost {
  public:
    EngineHost() = default;
    EngineHost(const EngineHost&) = delete;
    EngineHost& operator=(const EngineHost&) = delete;
    virtual ~EngineHost() = default;

    // Local wall-clock time.
    [[nodiscard]] virtual Date now() = 0;

    // A clock that never goes back; what the time limit of a script is measured with.
    [[nodiscard]] virtual std::chrono::milliseconds uptime() = 0;

    // Asked once a script's time is up; true gives it the same time again.
    [[nodiscard]] virtual bool may_go_on() { return false; }

    // `CreateObject`. Throws: ScriptError 429, 432.
    [[nodiscard]] virtual Ref<Object> create_object(Context& context,
                                                    std::u16string_view class_name) = 0;

    // A class that scripts make by `New` without having written it. None without such a class.
    [[nodiscard]] virtual Ref<Object> create_builtin_class(Context& /*context*/,
                                                           std::u16string_view /*class_name*/) {
        return nullptr;
    }

    // `MsgBox` gives the number of a button, `InputBox` a text.
    virtual std::int32_t message_box(std::u16string_view prompt, std::int32_t buttons,
                                     std::u16string_view title) = 0;
    virtual std::u16string input_box(std::u16string_view prompt, std::u16string_view title,
                                     std::u16string_view initial) = 0;
};

}  // namespace vbscript
