#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/value/context.h"
#include "vbscript/value/locale.h"
#include "vbscript/value/random.h"
#include "vbscript/value/script_error.h"

namespace vbscript {

// What a script offers to functions and objects, without a script: a clock that stands still, and
// everything that a test may want to set or look at.
class FakeContext final : public Context {
  public:
    [[nodiscard]] const Locale& locale() const noexcept override { return *current_locale; }

    void set_locale(std::int32_t identifier) override {
        const Locale* locale = find_locale(identifier);
        if (locale == nullptr) throw ScriptError(ErrorNumber::LocaleSettingNotSupported);
        current_locale = locale;
    }

    [[nodiscard]] RandomSequence& random() noexcept override { return sequence; }

    [[nodiscard]] Date now() override { return clock; }

    Ref<Object> create_object(std::u16string_view class_name) override {
        if (!make_object) throw ScriptError(ErrorNumber::CannotCreateObject);
        return make_object(class_name);
    }

    Ref<Object> create_builtin_class(std::u16string_view /*class_name*/) override {
        return nullptr;
    }

    Ref<Object> procedure_reference(std::u16string_view /*name*/) override {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }

    std::int32_t message_box(std::u16string_view prompt, std::int32_t buttons,
                             std::u16string_view title) override {
        boxes.push_back({std::u16string(prompt), buttons, std::u16string(title)});
        return 1;
    }

    std::u16string input_box(std::u16string_view prompt, std::u16string_view title,
                             std::u16string_view initial) override {
        boxes.push_back({std::u16string(prompt), 0, std::u16string(title)});
        return std::u16string(initial);
    }

    void check_time() override {
        if (time_checks++ >= time_checks_allowed) throw ScriptError(ErrorNumber::ScriptTimedOut);
    }

    struct Box {
        std::u16string prompt;
        std::int32_t buttons;
        std::u16string title;
    };

    const Locale* current_locale = locales().data();
    RandomSequence sequence;
    Date clock{46350.66878472222};  // 24 November 2026, 16:03:03
    std::function<Ref<Object>(std::u16string_view class_name)> make_object;
    std::vector<Box> boxes;
    std::size_t time_checks = 0;
    std::size_t time_checks_allowed = 1'000'000'000;
};

}  // namespace vbscript
