#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/date.h"
#include "host/devices.h"

namespace home {

// A device with the state that it is in.
struct DeviceRecord {
    host::DeviceRef ref = host::kNoDevice;
    host::DeviceFields fields;
    std::int32_t status = host::kStatusUnknown;
    std::int32_t value = 0;
    std::string text;
    std::optional<automation::DateTime> last_change;  // absent until it is first set

    [[nodiscard]] std::string code() const { return fields.hc + fields.dc; }
};

// The devices of the house in the order in which they were made: what a table of devices works on
// and a store would keep. Owned by the table.
class DeviceList {
  public:
    [[nodiscard]] const std::vector<std::shared_ptr<DeviceRecord>>& records() const noexcept {
        return records_;
    }

    // Rises with each device that comes or goes.
    [[nodiscard]] std::uint64_t revision() const noexcept { return revision_; }

    // A device with a new reference and nothing else.
    std::shared_ptr<DeviceRecord> add();

    // The record lives on in the hands of those that share it. Nothing happens without such a one.
    void erase(host::DeviceRef ref);

    // None without such a device. Of several with one code the oldest counts.
    [[nodiscard]] std::shared_ptr<DeviceRecord> find(host::DeviceRef ref) const;
    [[nodiscard]] std::shared_ptr<DeviceRecord> find(std::string_view code) const;

    // Place of a device, from 1; -1 without such a device.
    [[nodiscard]] std::int32_t number_of(const DeviceRecord& record) const;

  private:
    std::vector<std::shared_ptr<DeviceRecord>> records_;
    std::uint64_t revision_ = 0;
    host::DeviceRef next_ref_ = kFirstRef;

    // Above all numbers of a list, so that a number taken for a reference finds nothing.
    static constexpr host::DeviceRef kFirstRef = 100'001;
};

}  // namespace home
