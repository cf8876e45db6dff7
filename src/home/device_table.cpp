#include "home/device_table.h"

#include <algorithm>

namespace home {
namespace {

class ListedDevice : public host::Device {
  public:
    ListedDevice(DeviceList& list, std::shared_ptr<const DeviceRecord> record)
        : list_(list), record_(std::move(record)) {}

    [[nodiscard]] host::DeviceRef ref() const override { return record_->ref; }

    [[nodiscard]] host::DeviceFields fields() const override { return record_->fields; }

    void set_fields(const host::DeviceFields& fields) override {
        list_.set_fields(record_->ref, fields);
    }

  private:
    DeviceList& list_;
    std::shared_ptr<const DeviceRecord> record_;
};

std::shared_ptr<host::Device> device_of(DeviceList& list,
                                        std::shared_ptr<const DeviceRecord> record) {
    return record ? std::make_shared<ListedDevice>(list, std::move(record)) : nullptr;
}

class Walk : public host::DeviceEnumerator {
  public:
    explicit Walk(DeviceList& list) : list_(list), revision_(list.revision()) {}

    [[nodiscard]] bool Finished() const override { return next_ >= list_.size(); }

    [[nodiscard]] bool CountChanged() const override { return list_.revision() != revision_; }

    std::shared_ptr<host::Device> GetNext() override {
        return Finished() ? nullptr : device_of(list_, list_.at(next_++));
    }

  private:
    DeviceList& list_;
    std::uint64_t revision_;
    std::size_t next_ = 0;
};

}  // namespace

std::int32_t DeviceTable::DeviceCount() {
    return static_cast<std::int32_t>(list_.size());
}

std::shared_ptr<host::Device> DeviceTable::GetDevice(std::int16_t number) {
    if (number < 1 || number > DeviceCount()) {
        return nullptr;
    }
    return device_of(list_, list_.at(static_cast<std::size_t>(number) - 1));
}

host::DeviceRef DeviceTable::NewDevice(std::string_view name, std::string_view code) {
    host::DeviceFields fields;
    fields.name = name;
    fields.hc = code.substr(0, 1);
    fields.dc = code.empty() ? code : code.substr(1);
    return list_.number_of(list_.add(fields).ref);
}

host::DeviceRef DeviceTable::NewDevice(std::string_view name) {
    return NewDevice(name, {});
}

host::DeviceRef DeviceTable::DeviceExists(std::string_view code) {
    const auto device = list_.find(code);
    return device ? list_.number_of(device->ref) : host::kNoDevice;
}

std::unique_ptr<host::DeviceEnumerator> DeviceTable::GetDeviceEnumerator() {
    return std::make_unique<Walk>(list_);
}

std::shared_ptr<host::Device> DeviceTable::GetDeviceByRef(host::DeviceRef ref) {
    return device_of(list_, list_.find(ref));
}

host::DeviceRef DeviceTable::NewDeviceRef(std::string_view name) {
    host::DeviceFields fields;
    fields.name = name;
    return list_.add(fields).ref;
}

host::DeviceRef DeviceTable::DeviceExistsRef(std::string_view code) {
    const auto device = list_.find(code);
    return device ? device->ref : host::kNoDevice;
}

void DeviceTable::DeleteDevice(host::DeviceRef ref) {
    list_.erase(ref);
}

// --- state --------------------------------------------------------------------------------------

void DeviceTable::SetDeviceString(std::string_view code, std::string_view text) {
    if (const auto device = list_.find(code)) {
        list_.set_text(device->ref, text);
    }
}

std::string DeviceTable::DeviceString(std::string_view code) {
    const auto device = list_.find(code);
    return device ? device->text : std::string();
}

void DeviceTable::SetDeviceLastChange(std::string_view code, automation::DateTime when) {
    if (const auto device = list_.find(code)) {
        change(*device, {device->status, device->value, when});
    }
}

automation::DateTime DeviceTable::DeviceLastChange(std::string_view code) {
    const auto device = list_.find(code);
    return device ? device->last_change.value_or(host::kNeverChanged) : host::kNeverChanged;
}

void DeviceTable::SetDeviceStatus(std::string_view code, std::int32_t status) {
    if (const auto device = list_.find(code)) {
        change(*device, {status, device->value, device->last_change});
    }
}

void DeviceTable::SetDeviceStatusNoReport(std::string_view code, std::int32_t status,
                                          std::int32_t value) {
    if (const auto device = list_.find(code)) {
        change(*device, {status, value, device->last_change}, Report::No);
    }
}

std::int32_t DeviceTable::DeviceStatus(std::string_view code) {
    const auto device = list_.find(code);
    return device ? device->status : 0;
}

void DeviceTable::SetDeviceValue(std::string_view code, std::int32_t value) {
    if (const auto device = list_.find(code)) {
        change(*device, {device->status, value, device->last_change});
    }
}

void DeviceTable::set_value(std::string_view code, std::int32_t value, automation::DateTime when) {
    if (const auto device = list_.find(code)) {
        change(*device, {device->status, value, when});
    }
}

std::int32_t DeviceTable::DeviceValue(std::string_view code) {
    const auto device = list_.find(code);
    return device ? device->value : 0;
}

// `device` is the record itself, held by the caller, and shows the new state after the write.
void DeviceTable::change(const DeviceRecord& device, const DeviceState& state, Report report) {
    const bool other_status = state.status != device.status;
    const bool other_value = state.value != device.value;
    list_.set_state(device.ref, state);
    if (report == Report::No || is_silent(device.code())) {
        return;
    }
    if (other_status) {
        followers_.call({device, DevicePart::Status});
    }
    if (other_value) {
        followers_.call({device, DevicePart::Value});
    }
}

Subscription DeviceTable::follow(std::function<void(const DeviceChange&)> follower) {
    return followers_.add(std::move(follower));
}

// --- reports ------------------------------------------------------------------------------------

void DeviceTable::SetSilentDeviceCollection(
    const std::vector<std::pair<std::string, std::int32_t>>& codes) {
    silent_codes_.clear();
    for (const auto& [house_code, number] : codes) {
        silent_codes_.push_back(house_code + std::to_string(number));
    }
}

bool DeviceTable::is_silent(std::string_view code) const {
    return std::ranges::find(silent_codes_, code) != silent_codes_.end();
}

std::vector<DeviceRecord> DeviceTable::snapshot() const {
    std::vector<DeviceRecord> devices;
    for (std::size_t place = 0; place < list_.size(); ++place) {
        devices.push_back(*list_.at(place));
    }
    return devices;
}

}  // namespace home
