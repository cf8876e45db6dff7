#include "home/embedded_host.h"

#include <algorithm>
#include <iostream>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "home/device_values.h"
#include "home/host_object.h"
#include "home/io_codes.h"
#include "home/nearest.h"
#include "home/sqlite/home_database.h"
#include "host/clock.h"

namespace home {
namespace {

namespace fs = std::filesystem;

EmbeddedHostOptions with_absolute_home(EmbeddedHostOptions options) {
    options.home = fs::absolute(options.home).lexically_normal();
    return options;
}

}  // namespace

EmbeddedHost::EmbeddedHost(host::Pump& pump, const host::Clock& clock, EmbeddedHostOptions options)
    : options_(with_absolute_home(std::move(options))),
      clock_(clock),
      log_(options_.home / "Data" / "log.db", clock),
      settings_(options_.home / "Config",
                [this](const std::string& problem) { Writelog("Settings", problem); }),
      database_(open_home_database(options_.home / "Data" / options_.database)),
      device_store_(database_),
      event_store_(database_),
      menus_(options_.home / "Data" / "menus.db", clock),
      telephone_(options_.home / "Phone",
                 [this](const std::string& text) { Writelog("Phone", text); }),
      devices_(device_store_),
      x10_line_(pump, devices_, *this, events_),
      device_commands_(x10_line_),
      event_engine_(pump, clock, *this, event_store_),
      device_changes_(devices_.follow(
          [this](const DeviceChange& change) { event_engine_.device_changed(change); })),
      x10_commands_(x10_line_.follow([this](const X10Command& command) { on_x10(command); })) {
    event_engine_.runner().set_device_setter(
        [this](const std::string& code, const std::string& value) { set_device(code, value); });
    options_.version =
        settings_.GetIniSetting("Settings", "HostVersion", options_.version, "settings.ini");
    std::erase(options_.version, '"');
}

void EmbeddedHost::telephone_call(std::int16_t line, const std::string& number,
                                  const std::string& name) {
    telephone_.note_call(line, number, name);
    event_engine_.telephone_rings(line);
}

std::string EmbeddedHost::Version() const {
    return options_.version;
}

std::string EmbeddedHost::GetAppPath() const {
    std::string path = automation::utf8_to_code_page(options_.home.string());
    std::ranges::replace(path, '/', '\\');
    while (path.ends_with('\\')) {
        path.pop_back();
    }
    return path;
}

// --- settings and log ---------------------------------------------------------------------------

std::shared_ptr<automation::Object> EmbeddedHost::object() {
    return std::make_shared<HostObject>(*this, [this] { return plugins_; });
}

std::string EmbeddedHost::GetIniSetting(std::string_view section, std::string_view key,
                                        std::string_view fallback, std::string_view file) {
    return settings_.GetIniSetting(section, key, fallback, file);
}

void EmbeddedHost::SaveIniSetting(std::string_view section, std::string_view key,
                                  std::string_view value, std::string_view file) {
    settings_.SaveIniSetting(section, key, value, file);
}

std::string EmbeddedHost::GetINISection(std::string_view section, std::string_view file) {
    return settings_.GetINISection(section, file);
}

void EmbeddedHost::SaveINISection(std::string_view section, const host::SettingsEntries& entries,
                                  std::string_view file) {
    settings_.SaveINISection(section, entries, file);
}

void EmbeddedHost::Writelog(std::string_view type, std::string_view message) {
    try {
        log_.Writelog(type, message);
    } catch (const automation::RunTimeError& error) {
        std::ostream& output = options_.error_output ? *options_.error_output : std::cerr;
        output << automation::code_page_to_utf8(type) << ": "
               << automation::code_page_to_utf8(message)
               << " (not in the log: " << automation::code_page_to_utf8(error.description()) << ")"
               << std::endl;
    }
}

// --- devices

std::int32_t EmbeddedHost::DeviceCount() {
    return devices_.DeviceCount();
}

std::shared_ptr<host::Device> EmbeddedHost::GetDevice(std::int16_t number) {
    return devices_.GetDevice(number);
}

host::DeviceRef EmbeddedHost::NewDevice(std::string_view name, std::string_view code) {
    return devices_.NewDevice(name, code);
}

host::DeviceRef EmbeddedHost::NewDevice(std::string_view name) {
    return devices_.NewDevice(name);
}

host::DeviceRef EmbeddedHost::DeviceExists(std::string_view code) {
    return devices_.DeviceExists(code);
}

std::unique_ptr<host::DeviceEnumerator> EmbeddedHost::GetDeviceEnumerator() {
    return devices_.GetDeviceEnumerator();
}

std::shared_ptr<host::Device> EmbeddedHost::GetDeviceByRef(host::DeviceRef ref) {
    return devices_.GetDeviceByRef(ref);
}

host::DeviceRef EmbeddedHost::NewDeviceRef(std::string_view name) {
    return devices_.NewDeviceRef(name);
}

host::DeviceRef EmbeddedHost::DeviceExistsRef(std::string_view code) {
    return devices_.DeviceExistsRef(code);
}

void EmbeddedHost::DeleteDevice(host::DeviceRef ref) {
    devices_.DeleteDevice(ref);
}

void EmbeddedHost::SetDeviceString(std::string_view code, std::string_view text) {
    devices_.SetDeviceString(code, text);
}

std::string EmbeddedHost::DeviceString(std::string_view code) {
    return devices_.DeviceString(code);
}

void EmbeddedHost::SetDeviceLastChange(std::string_view code, automation::DateTime when) {
    devices_.SetDeviceLastChange(code, when);
}

automation::DateTime EmbeddedHost::DeviceLastChange(std::string_view code) {
    return devices_.DeviceLastChange(code);
}

void EmbeddedHost::SetDeviceStatus(std::string_view code, std::int32_t status) {
    devices_.SetDeviceStatus(code, status);
    x10_line_.note_status(code, status);
}

void EmbeddedHost::SetDeviceStatusNoReport(std::string_view code, std::int32_t status,
                                           std::int32_t value) {
    devices_.SetDeviceStatusNoReport(code, status, value);
    x10_line_.note_status(code, status);
}

std::int32_t EmbeddedHost::DeviceStatus(std::string_view code) {
    return devices_.DeviceStatus(code);
}

void EmbeddedHost::SetDeviceValue(std::string_view code, std::int32_t value) {
    const std::shared_ptr<const DeviceRecord> device = devices_.find(code);
    if (device == nullptr) {
        return;
    }
    device_commands_.check(*device, value);
    devices_.set_value(device->code(), value, clock_.now());
    device_commands_.send(*device, value);
}

std::int32_t EmbeddedHost::set_device(std::string_view code, std::string_view value) {
    const std::string wanted = automation::to_upper(automation::trim(code));
    const std::shared_ptr<const DeviceRecord> device = devices_.find(wanted);
    if (device == nullptr) {
        std::vector<std::string> codes;
        for (const DeviceRecord& record : devices_.snapshot()) {
            codes.push_back(record.code());
        }
        throw automation::RunTimeError(
            automation::ErrorNumber::InvalidProcedureCall,
            "there is no device '" + wanted + "'" + nearest_text(codes, wanted));
    }
    const std::int32_t number = device_value(device->fields, value);
    SetDeviceValue(wanted, number);
    return number;
}

std::int32_t EmbeddedHost::DeviceValue(std::string_view code) {
    return devices_.DeviceValue(code);
}

void EmbeddedHost::SetSilentDeviceCollection(
    const std::vector<std::pair<std::string, std::int32_t>>& codes) {
    devices_.SetSilentDeviceCollection(codes);
}

// --- power line and events

void EmbeddedHost::ExecX10(std::string_view code, std::string_view command) {
    x10_line_.ExecX10(code, command);
}

void EmbeddedHost::on_x10(const X10Command& command) {
    if (command.command == "on" || command.command == "off") {
        devices_.SetDeviceLastChange(command.code, clock_.now());
    }
    if (command.origin == X10Origin::Received) {
        event_engine_.x10_received(command.code, command.command);
    }
}

bool EmbeddedHost::isOn(std::string_view code) {
    return x10_line_.isOn(code);
}

bool EmbeddedHost::IsOff(std::string_view code) {
    return x10_line_.IsOff(code);
}

void EmbeddedHost::RegisterEventCB(std::int32_t kind, host::EventListener& listener) {
    events_.RegisterEventCB(kind, listener);
}

void EmbeddedHost::UnregisterEventCB(host::EventListener& listener) noexcept {
    events_.UnregisterEventCB(listener);
}

std::int32_t EmbeddedHost::EventCount() {
    return host_events_.EventCount();
}

std::shared_ptr<host::HostEvent> EmbeddedHost::GetEvent(std::int32_t number) {
    return host_events_.GetEvent(number);
}

std::int32_t EmbeddedHost::NewEvent(std::string_view name) {
    return host_events_.NewEvent(name);
}

std::unique_ptr<host::EventEnumerator> EmbeddedHost::GetEventEnumerator() {
    return host_events_.GetEventEnumerator();
}

std::shared_ptr<host::HostEvent> EmbeddedHost::NewEventEx(std::string_view name) {
    return host_events_.NewEventEx(name);
}

// --- callback object

std::string EmbeddedHost::type_name() const {
    return options_.type_name;
}

host::HostInterface* EmbeddedHost::GetHSIface() {
    return this;
}

void EmbeddedHost::RegisterMenu(std::string_view plugin, std::string_view label) {
    const MenuEntry entry{std::string(plugin), std::string(label)};
    if (std::ranges::find(menu_, entry) == menu_.end()) {
        menu_.push_back(entry);
    }
}

const MenuEntry& EmbeddedHost::menu_entry(std::string_view label) const {
    const std::string wanted = automation::trim(label);
    std::vector<std::string> labels;
    for (const MenuEntry& entry : menu_) {
        if (automation::equals_ignoring_case(entry.label, wanted)) {
            return entry;
        }
        labels.push_back(entry.label);
    }
    throw automation::RunTimeError(
        automation::ErrorNumber::InvalidProcedureCall,
        "there is no menu entry '" + wanted + "'" + nearest_text(labels, wanted));
}

std::int32_t EmbeddedHost::GetNextFreeIOCode() {
    return next_free_io_code(devices_.snapshot());
}

void EmbeddedHost::SendXapMessage(std::string_view target, std::string_view message_class,
                                  std::string_view section, std::string_view body,
                                  std::string_view sub_address, std::string_view uid) {
    if (!xap_sink_) {
        CallbackObject::SendXapMessage(target, message_class, section, body, sub_address, uid);
        return;
    }
    xap_sink_({target, message_class, section, body, sub_address, uid});
}

void EmbeddedHost::ValueChangeEvent(std::string_view code, std::int32_t value) {
    devices_.set_value(code, value, clock_.now());
}

}  // namespace home
