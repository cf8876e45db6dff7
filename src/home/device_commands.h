#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "home/device_record.h"

namespace host {
class X10;
}

namespace home {

// A value that was set on a device, as its plug-in gets it.
struct DeviceCommand {
    std::string house_code;
    std::string device_code;  // the number behind the house code, as text
    std::int16_t value = 0;
};

// Where the values go that persons, scripts and events set on devices: to the plug-in that owns
// the device, or to the power line. Owned by the host.
class DeviceCommands {
  public:
    // Carries one command to its plug-in. May pump.
    using Sink = std::function<void(const DeviceCommand&)>;

    // The line must outlive this.
    explicit DeviceCommands(host::X10& line) : line_(line) {}

    // Names are compared without regard to case; a later sink takes the place of an earlier one.
    void set_sink(const std::string& plugin, Sink sink);

    // Throws: RunTimeError 6 for a value of a plug-in's device that a command cannot carry.
    void check(const DeviceRecord& device, std::int32_t value) const;

    // The caller holds `device`, which may be deleted meanwhile. Nothing happens for a device
    // of a plug-in without a sink, or of none that is no X10 device. May pump.
    // Requires: `check` has passed.
    void send(const DeviceRecord& device, std::int32_t value) const;

  private:
    [[nodiscard]] const Sink* sink_of(const DeviceRecord& device) const;

    host::X10& line_;
    std::map<std::string, Sink, std::less<>> sinks_;  // by name in lower case
};

}  // namespace home
