#include "support/memory_host.h"

#include <algorithm>
#include <stdexcept>

#include "automation/code_page.h"
#include "home/host_object.h"
#include "home/io_codes.h"

namespace support {

namespace {

std::string words(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        text += text.empty() ? "" : " ";
        text += part;
    }
    return text;
}

}  // namespace

// --- verbs of tests -----------------------------------------------------------------------------

std::string MemoryHost::section_key(std::string_view section, std::string_view file) {
    return automation::to_lower(file) + '\n' + automation::to_lower(section);
}

MemoryHost::Entry* MemoryHost::find(Section& section, std::string_view key) {
    const auto found = std::ranges::find_if(section, [key](const Entry& entry) {
        return automation::equals_ignoring_case(entry.key, key);
    });
    return found == section.end() ? nullptr : &*found;
}

void MemoryHost::put_setting(std::string_view section, std::string_view key, std::string_view value,
                             std::string_view file) {
    Section& entries = sections_[section_key(section, file)];
    if (Entry* const entry = find(entries, key)) {
        entry->value = value;
    } else {
        entries.push_back({std::string(key), std::string(value)});
    }
}

void MemoryHost::put_device(std::string_view code, std::string_view owner,
                            std::string_view iomisc) {
    const auto device = devices_.GetDeviceByRef(devices_.NewDeviceRef("a device"));
    host::DeviceFields fields = device->fields();
    fields.hc = code.substr(0, 1);
    fields.dc = code.substr(1);
    fields.interface_name = owner;
    fields.iomisc = iomisc;
    device->set_fields(fields);
}

void MemoryHost::remove_section(std::string_view section, std::string_view file) {
    sections_.erase(section_key(section, file));
}

void MemoryHost::fail(Operation operation, int nth, automation::ErrorNumber error) {
    faults_[static_cast<std::size_t>(operation)] = {nth, error};
}

void MemoryHost::count_call(Operation operation) {
    Fault& fault = faults_[static_cast<std::size_t>(operation)];
    if (fault.calls_left > 0 && --fault.calls_left == 0) {
        throw automation::RunTimeError(fault.error);
    }
}

void MemoryHost::receive_x10(std::string_view code, std::int32_t status) {
    const std::array<automation::Value, 4> parms = {home::EventBoard::kX10,
                                                    std::string(code.substr(1)),
                                                    std::string(code.substr(0, 1)), status};
    events_.deliver(home::EventBoard::kX10, parms);
    take_x10_state(code, status);
}

void MemoryHost::forget() {
    for (auto* const list : {&log_, &x10_commands_, &value_changes_, &device_calls_, &menu_,
                             &silent_codes_, &saved_settings_}) {
        list->clear();
    }
    xap_messages_.clear();
}

home::DeviceRecord MemoryHost::device(std::string_view code) const {
    for (const home::DeviceRecord& record : devices_.snapshot()) {
        if (record.code() == code) {
            return record;
        }
    }
    throw std::out_of_range("no device " + std::string(code));
}

bool MemoryHost::has_device(std::string_view code) const {
    const auto records = devices_.snapshot();
    return std::ranges::any_of(
        records, [code](const home::DeviceRecord& record) { return record.code() == code; });
}

// --- settings and log ---------------------------------------------------------------------------

std::string MemoryHost::GetIniSetting(std::string_view section, std::string_view key,
                                      std::string_view fallback, std::string_view file) {
    const Entry* const entry = find(sections_[section_key(section, file)], key);
    return entry == nullptr ? std::string(fallback) : entry->value;
}

void MemoryHost::SaveIniSetting(std::string_view section, std::string_view key,
                                std::string_view value, std::string_view file) {
    count_call(Operation::SaveIniSetting);
    put_setting(section, key, value, file);
    saved_settings_.push_back(std::string(key) + "=" + std::string(value));
}

std::string MemoryHost::GetINISection(std::string_view section, std::string_view file) {
    std::string text;
    for (const Entry& entry : sections_[section_key(section, file)]) {
        text += entry.key + "=" + entry.value + '\0';
    }
    return text;
}

void MemoryHost::SaveINISection(std::string_view section, const host::SettingsEntries& entries,
                                std::string_view file) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
        count_call(Operation::SaveIniSetting);
    }
    remove_section(section, file);
    for (const auto& [key, value] : entries) {
        put_setting(section, key, value, file);
        saved_settings_.push_back(key + "=" + value);
    }
}

void MemoryHost::Writelog(std::string_view type, std::string_view message) {
    count_call(Operation::Writelog);
    log_.push_back(std::string(type) + ": " + std::string(message));
}

// --- devices ------------------------------------------------------------------------------------

void MemoryHost::SetDeviceString(std::string_view code, std::string_view text) {
    if (on_set_device_string) {
        on_set_device_string(code, text);
    }
    count_call(Operation::SetDeviceString);
    device_calls_.push_back(words({"SetDeviceString", code, text}));
    devices_.SetDeviceString(code, text);
}

void MemoryHost::SetDeviceLastChange(std::string_view code, automation::DateTime when) {
    device_calls_.push_back(words({"SetDeviceLastChange", code}));
    devices_.SetDeviceLastChange(code, when);
}

void MemoryHost::SetDeviceStatus(std::string_view code, std::int32_t status) {
    device_calls_.push_back(words({"SetDeviceStatus", code, std::to_string(status)}));
    devices_.SetDeviceStatus(code, status);
}

void MemoryHost::SetDeviceStatusNoReport(std::string_view code, std::int32_t status,
                                         std::int32_t value) {
    device_calls_.push_back(
        words({"SetDeviceStatusNoReport", code, std::to_string(status), std::to_string(value)}));
    devices_.SetDeviceStatusNoReport(code, status, value);
}

void MemoryHost::SetDeviceValue(std::string_view code, std::int32_t value) {
    device_calls_.push_back(words({"SetDeviceValue", code, std::to_string(value)}));
    devices_.SetDeviceValue(code, value);
}

void MemoryHost::SetSilentDeviceCollection(
    const std::vector<std::pair<std::string, std::int32_t>>& codes) {
    silent_codes_.clear();
    for (const auto& [house_code, number] : codes) {
        silent_codes_.push_back(words({house_code, std::to_string(number)}));
    }
    devices_.SetSilentDeviceCollection(codes);
}

// --- power line and events ----------------------------------------------------------------------

void MemoryHost::ExecX10(std::string_view code, std::string_view command) {
    if (on_exec_x10) {
        on_exec_x10(code, command);
    }
    x10_commands_.push_back(words({code, command}));
    const bool is_on = automation::equals_ignoring_case(command, "on");
    if (is_on || automation::equals_ignoring_case(command, "off")) {
        take_x10_state(code, is_on ? host::kStatusOn : host::kStatusOff);
    }
}

void MemoryHost::take_x10_state(std::string_view code, std::int32_t status) {
    x10_states_[std::string(code)] = status;
    devices_.SetDeviceStatus(code, status);
}

std::int32_t MemoryHost::x10_status(std::string_view code) {
    const std::int32_t status = devices_.DeviceStatus(code);
    if (status == host::kStatusOn || status == host::kStatusOff) {
        return status;
    }
    const auto known = x10_states_.find(code);
    return known == x10_states_.end() ? host::kStatusUnknown : known->second;
}

bool MemoryHost::isOn(std::string_view code) {
    return x10_status(code) == host::kStatusOn;
}

bool MemoryHost::IsOff(std::string_view code) {
    return x10_status(code) == host::kStatusOff;
}

void MemoryHost::RegisterEventCB(std::int32_t kind, host::EventListener& listener) {
    events_.RegisterEventCB(kind, listener);
    registrations_.push_back(&listener);
}

void MemoryHost::UnregisterEventCB(host::EventListener& listener) noexcept {
    events_.UnregisterEventCB(listener);
    std::erase(registrations_, &listener);
}

std::int32_t MemoryHost::EventCount() {
    return static_cast<std::int32_t>(host_events_.size());
}

std::shared_ptr<host::HostEvent> MemoryHost::GetEvent(std::int32_t number) {
    const auto index = static_cast<std::size_t>(number - 1);
    return index < host_events_.size() ? host_events_[index] : nullptr;
}

std::int32_t MemoryHost::NewEvent(std::string_view name) {
    (void)NewEventEx(name);
    return EventCount();
}

std::shared_ptr<host::HostEvent> MemoryHost::NewEventEx(std::string_view name) {
    return host_events_.emplace_back(std::make_shared<MemoryEvent>(name));
}

// A walk that is disturbed at most once.
class MemoryHost::EventWalk final : public host::EventEnumerator {
  public:
    explicit EventWalk(MemoryHost& host) : host_(host) {}

    [[nodiscard]] bool Finished() const override { return next_ > host_.EventCount(); }

    [[nodiscard]] bool CountChanged() const override {
        return host_.disturbed_at_ > 0 && next_ > host_.disturbed_at_;
    }

    std::shared_ptr<host::HostEvent> GetNext() override { return host_.GetEvent(next_++); }

  private:
    MemoryHost& host_;
    std::int32_t next_ = 1;
};

std::unique_ptr<host::EventEnumerator> MemoryHost::GetEventEnumerator() {
    ++event_walks_;
    if (event_walks_ > 1) {
        disturbed_at_ = 0;
    }
    return std::make_unique<EventWalk>(*this);
}

std::vector<host::EventFields> MemoryHost::events() const {
    std::vector<host::EventFields> events;
    for (const auto& event : host_events_) {
        events.push_back(event->fields());
    }
    return events;
}

// --- callback object ----------------------------------------------------------------------------

void MemoryHost::RegisterMenu(std::string_view plugin, std::string_view label) {
    menu_.push_back(std::string(plugin) + ": " + std::string(label));
}

std::int32_t MemoryHost::GetNextFreeIOCode() {
    return home::next_free_io_code(devices_.snapshot());
}

void MemoryHost::ValueChangeEvent(std::string_view code, std::int32_t value) {
    value_changes_.push_back(std::string(code) + "=" + std::to_string(value));
    devices_.SetDeviceValue(code, value);
}

void MemoryHost::SendXapMessage(std::string_view target, std::string_view message_class,
                                std::string_view block, std::string_view body,
                                std::string_view source, std::string_view uid) {
    xap_messages_.push_back({std::string(target), std::string(message_class), std::string(block),
                             std::string(body), std::string(source), std::string(uid)});
}

std::shared_ptr<automation::Object> MemoryHost::object() {
    return std::make_shared<home::HostObject>(*this, [] { return std::vector<host::Plugin*>(); });
}

}  // namespace support
