#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "home/device_record.h"
#include "host/devices.h"

namespace home {

class DeviceStore;

// The devices of the house in the order in which they were made: what a table of devices reads,
// and the one place that writes. Each change goes to the store, if there is one, before memory
// takes it, so that both are never apart. Owned by the table; all writes throw what the store
// throws.
class DeviceList {
  public:
    // A list that ends with the program.
    DeviceList() = default;

    // Comes up with what is stored. The store must outlive the list.
    explicit DeviceList(DeviceStore& store);

    [[nodiscard]] std::size_t size() const noexcept { return records_.size(); }

    // Requires: place < size().
    [[nodiscard]] std::shared_ptr<const DeviceRecord> at(std::size_t place) const {
        return records_[place];
    }

    // Rises with each device that comes or goes.
    [[nodiscard]] std::uint64_t revision() const noexcept { return revision_; }

    // A device with a new reference.
    const DeviceRecord& add(const host::DeviceFields& fields);

    // The record lives on in the hands of those that share it. Nothing happens without such a one.
    void erase(host::DeviceRef ref);

    // None without such a device. Of several with one code the oldest counts.
    [[nodiscard]] std::shared_ptr<const DeviceRecord> find(host::DeviceRef ref) const;
    [[nodiscard]] std::shared_ptr<const DeviceRecord> find(std::string_view code) const;

    // Place of a device, from 1; -1 without such a device.
    [[nodiscard]] std::int32_t number_of(host::DeviceRef ref) const;

    // Nothing happens without such a device.
    void set_fields(host::DeviceRef ref, const host::DeviceFields& fields);
    void set_text(host::DeviceRef ref, std::string_view text);
    void set_state(host::DeviceRef ref, const DeviceState& state);

  private:
    // Above all numbers of a list, so that a number taken for a reference finds nothing.
    static constexpr host::DeviceRef kBelowFirstRef = 100'000;

    [[nodiscard]] std::shared_ptr<DeviceRecord> writable(host::DeviceRef ref) const;

    DeviceStore* store_ = nullptr;
    std::vector<std::shared_ptr<DeviceRecord>> records_;
    std::uint64_t revision_ = 0;
    host::DeviceRef last_ref_ = kBelowFirstRef;
};

}  // namespace home
