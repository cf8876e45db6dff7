#include "home/events/event_runner.h"

#include "automation/run_time_error.h"

namespace home {
namespace {

template <typename Installed, typename... Texts>
void hand_over(const Installed& carrier, const char* kind, const Texts&... texts) {
    if (!carrier) {
        throw automation::RunTimeError(
            automation::ErrorNumber::ActiveXCannotCreateObject,
            std::string("nothing is installed that carries out ") + kind);
    }
    const Installed held = carrier;  // it may pump, and another one be installed meanwhile
    held(texts...);
}

}  // namespace

void EventRunner::carry_out(const Action& action) const {
    struct Visitor {
        const EventRunner& runner;

        void operator()(const RunScript& script) const {
            hand_over(runner.run_script_, "scripts", script.text);
        }

        void operator()(const PluginAction& plugin) const {
            hand_over(runner.trigger_action_, "plug-in actions", plugin.text);
        }

        void operator()(const SetDevice& device) const {
            hand_over(runner.set_device_, "changes of devices", device.code, device.value);
        }

        void operator()(const PressButton& button) const {
            hand_over(runner.press_button_, "button presses", button.text);
        }
    };

    std::visit(Visitor{*this}, action);
}

}  // namespace home
