#include "host/desktop.h"
#include "plugin/lifecycle.h"
#include "plugin/script_interface.h"
#include "plugin/subsystems.h"

// What a host asks of the plug-in by name: its version and the start of its kinds of plug-in.
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

automation::Value ScriptInterface::LearnIR(const automation::Value& /*loc*/) {
    parts_.instance.platform().desktop.message_box(
        "Press OK to initiate the learn process on the Sample device.\r\n"
        "After pressing OK, point your remote at the learn window and press the key your wish to "
        "learn.");
    return {};
}

}  // namespace plugin
