#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"

namespace host {

class CallbackObject;
class ServerDialog;
class SetupDialog;
class XapMessage;

// What a person wants to know of one unit.
struct UnitStatus {
    std::string name;
    std::string address;
    std::string queue_text;
    std::string current_command;  // in flight or last run
    std::string current_url;
    std::vector<std::string> waiting;
    std::vector<std::string> flags;  // names of those that are set
    std::int32_t retries_left = 0;
    std::int32_t timeout_count = 0;
    std::int32_t power_cycle_count = 0;
};

struct TimerStatus {
    std::string name;
    std::chrono::milliseconds interval{};
    bool enabled = false;
};

struct PluginStatus {
    std::string role;                // "normal", "shim" or "xAP-hosted"
    std::vector<std::string> flags;  // names of those that are set
    std::vector<UnitStatus> units;
    std::vector<TimerStatus> timers;  // those that run
};

// What the "Modem Echo Window" shows: two boxes, the last 5000 characters of each.
struct ModemEcho {
    bool is_open = false;  // the modem's port
    std::string data;
    std::string status;
    std::uint64_t data_written = 0;  // characters ever, by which a viewer finds what is new
    std::uint64_t status_written = 0;
};

// One number of the phonebook.
struct PhonebookLine {
    std::string number;
    std::string name;
    std::string location;
    std::string wav;
};

// The contract between a host and a plug-in that it carries. The host calls in this order:
// identity, `RegisterCallback`, `InitIO`, then what happens, and `ShutdownIO` once at the end.
// Every call but identity may pump.
class Plugin {
  public:
    virtual ~Plugin() = default;

    [[nodiscard]] virtual std::int32_t AccessLevel() = 0;
    [[nodiscard]] virtual std::int32_t Capabilities() = 0;
    [[nodiscard]] virtual std::string Name() = 0;
    [[nodiscard]] virtual std::string Version() = 0;

    virtual void RegisterCallback(CallbackObject& callback) = 0;
    virtual std::string InitIO(std::int32_t port) = 0;
    virtual void ShutdownIO() = 0;

    // A person or a script has set a device of the plug-in's house code.
    virtual void SetIO(std::int32_t dv, const std::string& house_code,
                       const std::string& device_code, std::int16_t command,
                       std::int16_t brightness, std::int16_t data1, std::int16_t data2) = 0;

    virtual void SelectMenu(const std::string& entry) = 0;

    // A person has pressed a button of a device: "<label> @ <location> Velora". Others are ignored.
    virtual void ButtonPress(const std::string& button) = 0;

    // An event of the host carries out an action that it holds for the plug-in as a text of fields
    // separated by chr 2. Others than its own are ignored.
    virtual void TriggerAction(const std::string& action) = 0;

    // Such an action in words, "" for one that is not its own.
    [[nodiscard]] virtual std::string ActionUIFormat(const std::string& action) = 0;

    // A message of the xAP network, as it comes. Only the separate xAP program delivers any.
    virtual void VeloraOnXapMessage(const XapMessage& /*message*/) {}

    // The plug-in as scripts and other programs see it.
    [[nodiscard]] virtual std::shared_ptr<automation::Object> object() = 0;

    [[nodiscard]] virtual PluginStatus status() const = 0;

    // The modem's traffic, and a text for the modem as it stands.
    [[nodiscard]] virtual ModemEcho modem_echo() const { return {}; }

    virtual void modem_send(const std::string& /*text*/) {}

    // All numbers of the phonebook, and what a call from a number would show: "number : name".
    [[nodiscard]] virtual std::vector<PhonebookLine> phonebook() const { return {}; }

    [[nodiscard]] virtual std::string look_up_caller(const std::string& /*number*/) { return {}; }

    // Its two dialogs, for a program that shows them; none in a plug-in, or in a role, without.
    [[nodiscard]] virtual SetupDialog* setup_dialog() { return nullptr; }

    [[nodiscard]] virtual ServerDialog* server_dialog() { return nullptr; }
};

}  // namespace host
