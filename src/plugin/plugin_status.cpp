#include "plugin/plugin_status.h"

#include <initializer_list>
#include <utility>

#include "plugin/subsystems.h"

namespace plugin {

namespace {

using Flag = std::pair<const char*, bool>;

std::vector<std::string> set_flags(std::initializer_list<Flag> flags) {
    std::vector<std::string> names;
    for (const auto& [name, is_set] : flags) {
        if (is_set) {
            names.emplace_back(name);
        }
    }
    return names;
}

std::string role(const core::Instance& instance) {
    if (instance.XapHosted) {
        return "xAP-hosted";
    }
    return instance.InstanceActive ? "normal" : "shim";
}

host::UnitStatus unit_status(const appliance::Velora& unit) {
    const appliance::CommandQueue& queue = unit.queue();
    const appliance::QueueState& state = queue.state();
    host::UnitStatus status;
    status.name = unit.Name();
    status.address = unit.Computer();
    status.queue_text = queue.queue_text();
    status.current_command = state.CurrentCommand;
    status.current_url = state.CurrentURL;
    status.waiting = queue.waiting_commands();
    status.flags = set_flags({
        {"QueueEmpty", state.QueueEmpty},
        {"QueueUpdating", state.QueueUpdating},
        {"WaitActive", state.WaitActive},
        {"UDPGap", state.UDPGap},
        {"PowerCycleInProgress", state.PowerCycleInProgress},
        {"PowerWait", state.PowerWait && state.PowerCycleInProgress},
        {"DisablePlugin", state.DisablePlugin},
        {"isSpeaking", state.isSpeaking},
        {"awake", unit.SleepStatus()},
        {"Slideshow", unit.Slideshow()},
    });
    status.retries_left = state.RetriesLeft;
    status.timeout_count = state.TimeoutCount;
    status.power_cycle_count = state.PowerCycleCount;
    return status;
}

}  // namespace

host::PluginStatus plugin_status(const Subsystems& parts) {
    host::PluginStatus status;
    const core::Instance& instance = parts.instance;
    status.role = role(instance);
    status.flags = set_flags({
        {"XapHosted", instance.XapHosted},
        {"InstanceActive", instance.InstanceActive},
        {"HostIsV2", instance.HostIsV2},
        {"StartupReady", instance.StartupReady},
        {"ShuttingDown", instance.ShuttingDown},
        {"UseOwnServer", instance.settings.UseOwnServer},
        {"UseVeloraServer", instance.settings.UseVeloraServer},
        {"DebugLog", instance.log.DebugLog()},
    });
    for (const auto& unit : parts.fleet.all()) {
        status.units.push_back(unit_status(*unit));
    }
    if (parts.queue_timer != nullptr) {
        status.timers = parts.queue_timer->running_timers();
    }
    return status;
}

}  // namespace plugin
