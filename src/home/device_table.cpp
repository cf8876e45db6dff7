#include "home/device_table.h"

#include <algorithm>

namespace home {
namespace {

class ListedDevice : public host::Device {
  public:
    explicit ListedDevice(std::shared_ptr<DeviceRecord> record) : record_(std::move(record)) {}

    [[nodiscard]] host::DeviceRef ref() const override { return record_->ref; }

    [[nodiscard]] host::DeviceFields fields() const override { return record_->fields; }

    void set_fields(const host::DeviceFields& fields) override { record_->fields = fields; }

  private:
    std::shared_ptr<DeviceRecord> record_;
};

std::shared_ptr<host::Device> device_of(std::shared_ptr<DeviceRecord> record) {
    return record ? std::make_shared<ListedDevice>(std::move(record)) : nullptr;
}

class Walk : public host::DeviceEnumerator {
  public:
    explicit Walk(const DeviceList& list) : list_(list), revision_(list.revision()) {}

    [[nodiscard]] bool Finished() const override { return next_ >= list_.records().size(); }

    [[nodiscard]] bool CountChanged() const override { return list_.revision() != revision_; }

    std::shared_ptr<host::Device> GetNext() override {
        return Finished() ? nullptr : device_of(list_.records()[next_++]);
    }

  private:
    const DeviceList& list_;
    std::uint64_t revision_;
    std::size_t next_ = 0;
};

}  // namespace

std::int32_t DeviceTable::DeviceCount() {
    return static_cast<std::int32_t>(list_.records().size());
}

std::shared_ptr<host::Device> DeviceTable::GetDevice(std::int16_t number) {
    if (number < 1 || number > DeviceCount()) {
        return nullptr;
    }
    return device_of(list_.records()[static_cast<std::size_t>(number) - 1]);
}

host::DeviceRef DeviceTable::NewDevice(std::string_view name, std::string_view code) {
    const std::shared_ptr<DeviceRecord> record = list_.add();
    record->fields.name = name;
    record->fields.hc = code.substr(0, 1);
    record->fields.dc = code.empty() ? code : code.substr(1);
    return list_.number_of(*record);
}

host::DeviceRef DeviceTable::NewDevice(std::string_view name) {
    return NewDevice(name, {});
}

host::DeviceRef DeviceTable::DeviceExists(std::string_view code) {
    const std::shared_ptr<DeviceRecord> record = list_.find(code);
    return record ? list_.number_of(*record) : host::kNoDevice;
}

std::unique_ptr<host::DeviceEnumerator> DeviceTable::GetDeviceEnumerator() {
    return std::make_unique<Walk>(list_);
}

std::shared_ptr<host::Device> DeviceTable::GetDeviceByRef(host::DeviceRef ref) {
    return device_of(list_.find(ref));
}

host::DeviceRef DeviceTable::NewDeviceRef(std::string_view name) {
    const std::shared_ptr<DeviceRecord> record = list_.add();
    record->fields.name = name;
    return record->ref;
}

host::DeviceRef DeviceTable::DeviceExistsRef(std::string_view code) {
    const std::shared_ptr<DeviceRecord> record = list_.find(code);
    return record ? record->ref : host::kNoDevice;
}

void DeviceTable::DeleteDevice(host::DeviceRef ref) {
    list_.erase(ref);
}

void DeviceTable::SetDeviceString(std::string_view code, std::string_view text) {
    if (const auto record = list_.find(code)) {
        record->text = text;
    }
}

std::string DeviceTable::DeviceString(std::string_view code) {
    const auto record = list_.find(code);
    return record ? record->text : std::string();
}

void DeviceTable::SetDeviceLastChange(std::string_view code, automation::DateTime when) {
    if (const auto record = list_.find(code)) {
        record->last_change = when;
    }
}

void DeviceTable::SetDeviceStatus(std::string_view code, std::int32_t status) {
    if (const auto record = list_.find(code)) {
        record->status = status;
    }
}

void DeviceTable::SetDeviceStatusNoReport(std::string_view code, std::int32_t status,
                                          std::int32_t value) {
    if (const auto record = list_.find(code)) {
        record->status = status;
        record->value = value;
    }
}

std::int32_t DeviceTable::DeviceStatus(std::string_view code) {
    const auto record = list_.find(code);
    return record ? record->status : 0;
}

void DeviceTable::SetDeviceValue(std::string_view code, std::int32_t value) {
    if (const auto record = list_.find(code)) {
        record->value = value;
    }
}

std::int32_t DeviceTable::DeviceValue(std::string_view code) {
    const auto record = list_.find(code);
    return record ? record->value : 0;
}

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
    for (const auto& record : list_.records()) {
        devices.push_back(*record);
    }
    return devices;
}

}  // namespace home
