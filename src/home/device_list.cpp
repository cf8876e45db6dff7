#include "home/device_list.h"

#include <algorithm>
#include <limits>

#include "automation/run_time_error.h"
#include "home/device_store.h"

namespace home {
namespace {

using automation::ErrorNumber;
using automation::RunTimeError;

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

DeviceList::DeviceList(DeviceStore& store) : store_(&store) {
    StoredDevices stored = store.load();
    for (DeviceRecord& record : stored.records) {
        records_.push_back(std::make_shared<DeviceRecord>(std::move(record)));
    }
    last_ref_ = std::max(last_ref_, stored.last_ref);
}

const DeviceRecord& DeviceList::add(const host::DeviceFields& fields) {
    if (last_ref_ == std::numeric_limits<host::DeviceRef>::max()) {
        throw RunTimeError(ErrorNumber::Overflow, "No reference is left for a new device");
    }
    auto record = std::make_shared<DeviceRecord>();
    record->ref = last_ref_ + 1;
    record->fields = fields;
    if (store_ != nullptr) {
        store_->add(*record);
    }
    last_ref_ = record->ref;
    records_.push_back(record);
    ++revision_;
    return *record;
}

void DeviceList::erase(host::DeviceRef ref) {
    if (find(ref) == nullptr) {
        return;
    }
    if (store_ != nullptr) {
        store_->remove(ref);
    }
    std::erase_if(records_, [&](const auto& record) { return record->ref == ref; });
    ++revision_;
}

std::shared_ptr<DeviceRecord> DeviceList::writable(host::DeviceRef ref) const {
    return first_of(records_, [&](const DeviceRecord& record) { return record.ref == ref; });
}

std::shared_ptr<const DeviceRecord> DeviceList::find(host::DeviceRef ref) const {
    return writable(ref);
}

std::shared_ptr<const DeviceRecord> DeviceList::find(std::string_view code) const {
    if (code.empty()) {
        return nullptr;  // devices without a code have none that could be asked for
    }
    return first_of(records_, [&](const DeviceRecord& record) { return has_code(record, code); });
}

std::int32_t DeviceList::number_of(host::DeviceRef ref) const {
    const auto found =
        std::ranges::find_if(records_, [&](const auto& record) { return record->ref == ref; });
    return found == records_.end() ? host::kNoDevice
                                   : static_cast<std::int32_t>(found - records_.begin()) + 1;
}

void DeviceList::set_fields(host::DeviceRef ref, const host::DeviceFields& fields) {
    const auto record = writable(ref);
    if (record == nullptr) {
        return;
    }
    if (store_ != nullptr) {
        store_->save_fields(ref, fields);
    }
    record->fields = fields;
}

void DeviceList::set_text(host::DeviceRef ref, std::string_view text) {
    const auto record = writable(ref);
    if (record == nullptr || record->text == text) {
        return;
    }
    if (store_ != nullptr) {
        store_->save_text(ref, text);
    }
    record->text = text;
}

void DeviceList::set_state(host::DeviceRef ref, const DeviceState& state) {
    const auto record = writable(ref);
    if (record == nullptr || record->state() == state) {
        return;
    }
    if (store_ != nullptr) {
        store_->save_state(ref, state);
    }
    record->take(state);
}

}  // namespace home
