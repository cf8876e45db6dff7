#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "automation/members.h"
#include "host/devices.h"

namespace home {

// One device as scripts see it. Shared by the values that hold it.
class DeviceObject final : public automation::TableObject {
  public:
    // Requires: a device.
    explicit DeviceObject(std::shared_ptr<host::Device> device) : device_(std::move(device)) {}

    // No device gives no object.
    [[nodiscard]] static std::shared_ptr<automation::Object> of(
        std::shared_ptr<host::Device> device);

    [[nodiscard]] std::string type_name() const override { return "Device"; }

    [[nodiscard]] std::span<const automation::Member> members() const override;

    [[nodiscard]] std::int32_t ref() const { return device_->ref(); }

    // A text or a number of the device.
    template <auto Field>
    [[nodiscard]] auto get() const {
        return device_->fields().*Field;
    }

    template <auto Field>
    void set(const std::remove_cvref_t<decltype(host::DeviceFields{}.*Field)>& value) {
        host::DeviceFields fields = device_->fields();
        fields.*Field = value;
        device_->set_fields(fields);
    }

  private:
    std::shared_ptr<host::Device> device_;
};

// A walk over the devices as scripts see it.
class DeviceEnumeratorObject final : public automation::TableObject {
  public:
    // Requires: an enumerator.
    explicit DeviceEnumeratorObject(std::unique_ptr<host::DeviceEnumerator> devices)
        : devices_(std::move(devices)) {}

    [[nodiscard]] std::string type_name() const override { return "DeviceEnumerator"; }

    [[nodiscard]] std::span<const automation::Member> members() const override;

    [[nodiscard]] bool Finished() const { return devices_->Finished(); }

    [[nodiscard]] bool CountChanged() const { return devices_->CountChanged(); }

    std::shared_ptr<automation::Object> GetNext() { return DeviceObject::of(devices_->GetNext()); }

  private:
    std::unique_ptr<host::DeviceEnumerator> devices_;
};

}  // namespace home
