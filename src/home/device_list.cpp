#include "home/device_list.h"

#include <algorithm>

namespace home {
namespace {

bool has_code(const DeviceRecord& record, std::string_view code) {
    const host::DeviceFields& fields = record.fields;
    return code.starts_with(fields.hc) && code.substr(fields.hc.size()) == fields.dc;
}

template <typename Predicate>
std::shared_ptr<DeviceRecord> first_of(const std::vector<std::shared_ptr<DeviceRecord>>& records,
                                       Predicate predicate) {
    const auto found =
        std::ranges::find_if(records, [&](const auto& record) { return predicate(*record); });
    return found == records.end() ? nullptr : *found;
}

}  // namespace

std::shared_ptr<DeviceRecord> DeviceList::add() {
    auto record = std::make_shared<DeviceRecord>();
    record->ref = next_ref_++;
    records_.push_back(record);
    ++revision_;
    return record;
}

void DeviceList::erase(host::DeviceRef ref) {
    if (std::erase_if(records_, [&](const auto& record) { return record->ref == ref; }) > 0) {
        ++revision_;
    }
}

std::shared_ptr<DeviceRecord> DeviceList::find(host::DeviceRef ref) const {
    return first_of(records_, [&](const DeviceRecord& record) { return record.ref == ref; });
}

std::shared_ptr<DeviceRecord> DeviceList::find(std::string_view code) const {
    if (code.empty()) {
        return nullptr;  // devices without a code have none that could be asked for
    }
    return first_of(records_, [&](const DeviceRecord& record) { return has_code(record, code); });
}

std::int32_t DeviceList::number_of(const DeviceRecord& record) const {
    const auto found =
        std::ranges::find_if(records_, [&](const auto& other) { return other.get() == &record; });
    return found == records_.end() ? host::kNoDevice
                                   : static_cast<std::int32_t>(found - records_.begin()) + 1;
}

}  // namespace home
