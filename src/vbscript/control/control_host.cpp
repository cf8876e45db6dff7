#include "vbscript/control/control_host.h"

#include <array>

#include "automation/code_page.h"
#include "automation/date.h"
#include "host/clock.h"
#include "host/desktop.h"
#include "vbscript/objects/automation_bridge.h"
#include "vbscript/value/convert.h"

namespace vbscript {

namespace {

// Numbers of the buttons that a message offers, by the low bits of the kind of message.
constexpr std::array<std::array<std::int32_t, 3>, 6> kButtons{{
    {1, 1, 1},  // OK
    {1, 2, 1},  // OK, Cancel
    {3, 4, 5},  // Abort, Retry, Ignore
    {6, 7, 2},  // Yes, No, Cancel
    {6, 7, 6},  // Yes, No
    {4, 2, 4},  // Retry, Cancel
}};

// Nobody presses one: the button that the message itself prefers.
std::int32_t preferred_button(std::int32_t kind) {
    const auto group = static_cast<std::size_t>(kind & 0xF);
    const auto preferred = static_cast<std::size_t>((kind >> 8) & 0x3);
    return kButtons.at(group < kButtons.size() ? group : 0).at(preferred < 3 ? preferred : 0);
}

}  // namespace

Date ControlHost::now() {
    return {automation::date_of(services_.clock.now()).days};
}

std::chrono::milliseconds ControlHost::uptime() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

Ref<Object> ControlHost::create_object(Context& context, std::u16string_view class_name) {
    const auto lent = lend(class_name);
    return lent != nullptr ? bridge_->from_automation(lent)
                           : services_.classes.create(context, class_name);
}

std::shared_ptr<automation::Object> ControlHost::lend(std::u16string_view class_name) const {
    try {
        return services_.lend(automation::utf16_to_code_page(class_name));
    } catch (const automation::RunTimeError& error) {
        throw to_script_error(error);
    }
}

Ref<Object> ControlHost::create_builtin_class(Context& context, std::u16string_view class_name) {
    return equals_ignoring_case(class_name, u"RegExp")
               ? services_.classes.create(context, u"VBScript.RegExp")
               : nullptr;
}

std::int32_t ControlHost::message_box(std::u16string_view prompt, std::int32_t buttons,
                                      std::u16string_view title) {
    show(prompt, title);
    return preferred_button(buttons);
}

std::u16string ControlHost::input_box(std::u16string_view prompt, std::u16string_view title,
                                      std::u16string_view initial) {
    show(prompt, title);
    return std::u16string(initial);
}

void ControlHost::show(std::u16string_view prompt, std::u16string_view title) {
    if (!allow_ui_) {
        return;
    }
    std::u16string text(title);
    text.append(title.empty() ? u"" : u": ").append(prompt);
    services_.desktop.message_box(automation::utf16_to_code_page(text));
}

}  // namespace vbscript
