#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "automation/date.h"
#include "host/devices.h"

namespace home {

// The state of a device, but for its text.
struct DeviceState {
    std::int32_t status = host::kStatusUnknown;
    std::int32_t value = 0;
    std::optional<automation::DateTime> last_change;  // absent until it is first set

    friend bool operator==(const DeviceState&, const DeviceState&) = default;
};

// A device with the state that it is in.
struct DeviceRecord : DeviceState {
    host::DeviceRef ref = host::kNoDevice;
    host::DeviceFields fields;
    std::string text;

    [[nodiscard]] std::string code() const { return fields.hc + fields.dc; }

    [[nodiscard]] const DeviceState& state() const noexcept { return *this; }

    void take(const DeviceState& state) { static_cast<DeviceState&>(*this) = state; }
};

}  // namespace home
