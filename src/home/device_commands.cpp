#include "home/device_commands.h"

#include "automation/code_page.h"
#include "automation/convert.h"
#include "home/device_values.h"
#include "host/x10.h"

namespace home {

void DeviceCommands::set_sink(const std::string& plugin, Sink sink) {
    sinks_[automation::to_lower(plugin)] = std::move(sink);
}

const DeviceCommands::Sink* DeviceCommands::sink_of(const DeviceRecord& device) const {
    const auto found = sinks_.find(automation::to_lower(device.fields.interface_name));
    return found == sinks_.end() ? nullptr : &found->second;
}

void DeviceCommands::check(const DeviceRecord& device, std::int32_t value) const {
    if (sink_of(device) != nullptr) {
        static_cast<void>(automation::checked_int16(value));
    }
}

void DeviceCommands::send(const DeviceRecord& device, std::int32_t value) const {
    if (const Sink* found = sink_of(device)) {
        const Sink sink = *found;  // it may pump, and another one be installed meanwhile
        sink({device.fields.hc, device.fields.dc, static_cast<std::int16_t>(value)});
        return;
    }
    if (device.fields.interface_name.empty() && is_x10_device(device.fields)) {
        line_.ExecX10(device.code(), x10_command(device.fields, value));
    }
}

}  // namespace home
