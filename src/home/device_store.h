#pragma once

#include <string_view>
#include <vector>

#include "home/device_record.h"
#include "host/devices.h"

namespace home {

// What a store gives back after a new start.
struct StoredDevices {
    std::vector<DeviceRecord> records;           // oldest first
    host::DeviceRef last_ref = host::kNoDevice;  // the highest that was ever given
};

// Where devices outlive the program. Every member that changes something has it on disk when it
// returns, or throws RunTimeError with the file's name and has changed nothing.
class DeviceStore {
  public:
    virtual ~DeviceStore() = default;

    [[nodiscard]] virtual StoredDevices load() = 0;

    // A device with a reference that was never given before.
    virtual void add(const DeviceRecord& record) = 0;

    // Nothing happens for a reference that is not there.
    virtual void save_fields(host::DeviceRef ref, const host::DeviceFields& fields) = 0;
    virtual void save_text(host::DeviceRef ref, std::string_view text) = 0;
    virtual void save_state(host::DeviceRef ref, const DeviceState& state) = 0;
    virtual void remove(host::DeviceRef ref) = 0;
};

}  // namespace home
