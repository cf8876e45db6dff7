#include "host/desktop.h"
#include "plugin/lifecycle.h"
#include "plugin/menu.h"
#include "plugin/script_interface.h"
#include "plugin/subsystems.h"

// What a host asks of the plug-in by name: its version, the start of its kinds of plug-in, and
// events and buttons that it carries out.
namespace plugin {

std::string ScriptInterface::Version() {
    // The default has the application path in front of the number; it always had.
    return std::string(devices::kProgramVersion) + "/" +
           core::read_setting(parts_.instance, "Velora", "VeloraUtilitiesVersion",
                              parts_.instance.application_path + "1.0.0");
}

std::string ScriptInterface::InitX10(std::int32_t port) {
    return lifecycle_.InitX10(port);
}

std::string ScriptInterface::InitIR(std::int32_t port) {
    return lifecycle_.InitIR(port);
}

// A shim leaves it to the program that does its work, and that has none to show.
void ScriptInterface::ConfigIO() {
    select_menu(parts_, "GUI Setup");
}

automation::Value ScriptInterface::LearnIR(const automation::Value& /*loc*/) {
    parts_.instance.platform().desktop.message_box(
        "Press OK to initiate the learn process on the Sample device.\r\n"
        "After pressing OK, point your remote at the learn window and press the key your wish to "
        "learn.");
    return {};
}

void ScriptInterface::ModifyActionUI(const std::shared_ptr<automation::Object>& controls) {
    parts_.actions.ModifyActionUI(controls);
}

std::string ScriptInterface::ActionUIFormat(const std::string& Action) {
    return parts_.actions.ActionUIFormat(Action);
}

void ScriptInterface::TriggerAction(const std::string& actionStr) {
    parts_.actions.TriggerAction(actionStr);
}

void ScriptInterface::ButtonPress(const std::string& ButtonName) {
    parts_.actions.ButtonPress(ButtonName);
}

}  // namespace plugin
