#include "plugin/hspi.h"

#include "plugin/identity.h"
#include "plugin/lifecycle.h"
#include "plugin/menu.h"
#include "plugin/plugin_status.h"
#include "plugin/script_interface.h"
#include "plugin/subsystems.h"
#include "plugin/timer_events.h"

namespace plugin {

struct hspi::Parts {
    explicit Parts(const host::Platform& platform)
        : subsystems(platform),
          timer_events(subsystems),
          lifecycle(subsystems, timer_events),
          script_interface(std::make_shared<ScriptInterface>(subsystems, lifecycle)) {
        subsystems.jukebox = [this](std::string_view command) {
            script_interface->VeloraPhjukeEx(std::string(command));
        };
    }

    Subsystems subsystems;
    TimerEvents timer_events;
    Lifecycle lifecycle;
    std::shared_ptr<ScriptInterface> script_interface;
};

hspi::hspi(const host::Platform& platform) : parts_(std::make_unique<Parts>(platform)) {}

hspi::~hspi() = default;

std::int32_t hspi::AccessLevel() {
    return kAccessLevel;
}

std::int32_t hspi::Capabilities() {
    return kInputOutput;
}

std::string hspi::Name() {
    return std::string(kPluginName);
}

std::string hspi::Version() {
    return parts_->script_interface->Version();
}

void hspi::RegisterCallback(host::CallbackObject& callback) {
    parts_->lifecycle.RegisterCallback(callback);
}

std::string hspi::InitIO(std::int32_t port) {
    return parts_->lifecycle.InitIO(port);
}

void hspi::ShutdownIO() {
    parts_->lifecycle.ShutdownIO();
}

void hspi::SetIO(std::int32_t /*dv*/, const std::string& house_code, const std::string& device_code,
                 std::int16_t command, std::int16_t brightness, std::int16_t data1,
                 std::int16_t data2) {
    core::Instance& instance = parts_->subsystems.instance;
    if (!instance.InstanceActive) {
        return;
    }
    instance.log.debug([&] {
        return "SetIO " + house_code + ": " + device_code + "," + std::to_string(command) + "," +
               std::to_string(brightness) + "," + std::to_string(data1) + "," +
               std::to_string(data2);
    });
    parts_->subsystems.device_commands.SetVeloraIO(house_code, device_code, command, brightness);
}

void hspi::SelectMenu(const std::string& entry) {
    select_menu(parts_->subsystems, entry);
}

void hspi::ButtonPress(const std::string& button) {
    parts_->subsystems.actions.ButtonPress(button);
}

void hspi::TriggerAction(const std::string& action) {
    parts_->subsystems.actions.TriggerAction(action);
}

std::string hspi::ActionUIFormat(const std::string& action) {
    return parts_->subsystems.actions.ActionUIFormat(action);
}

void hspi::VeloraOnXapMessage(const host::XapMessage& message) {
    parts_->subsystems.xap_node.receiver().OnXapMessage(message);
}

std::shared_ptr<automation::Object> hspi::object() {
    return parts_->script_interface;
}

host::PluginStatus hspi::status() const {
    return plugin_status(parts_->subsystems);
}

host::ModemEcho hspi::modem_echo() const {
    const callerid::CallerId& caller_id = parts_->subsystems.caller_id;
    const callerid::EchoWindow& echo = caller_id.echo();
    return {.is_open = caller_id.port().CommPortOpen(),
            .data = echo.CommData(),
            .status = echo.CommStatus(),
            .data_written = echo.data_written(),
            .status_written = echo.status_written()};
}

void hspi::modem_send(const std::string& text) {
    parts_->subsystems.caller_id.port().ModemSend(text);
}

std::vector<host::PhonebookLine> hspi::phonebook() const {
    std::vector<host::PhonebookLine> lines;
    for (const callerid::Phonebook& entry : parts_->subsystems.caller_id.phonebook().entries()) {
        lines.push_back({.number = entry.PhoneNumber,
                         .name = entry.Name(),
                         .location = entry.Location,
                         .wav = entry.Wav});
    }
    return lines;
}

std::string hspi::look_up_caller(const std::string& number) {
    return parts_->subsystems.caller_id.phonebook().HSPAddressBookLookup(number, "");
}

host::SetupDialog* hspi::setup_dialog() {
    return parts_->subsystems.instance.InstanceActive ? &parts_->subsystems.setup : nullptr;
}

host::ServerDialog* hspi::server_dialog() {
    return parts_->subsystems.instance.InstanceActive ? &parts_->subsystems.server_options
                                                      : nullptr;
}

}  // namespace plugin
