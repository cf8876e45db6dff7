#pragma once

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "home/device_commands.h"
#include "home/device_table.h"
#include "home/event_board.h"
#include "home/events/event_engine.h"
#include "home/events/host_events.h"
#include "home/ini/ini_files.h"
#include "home/menus/sqlite_menu_database.h"
#include "home/phone/telephone.h"
#include "home/sqlite/database.h"
#include "home/sqlite/sqlite_device_store.h"
#include "home/sqlite/sqlite_event_store.h"
#include "home/sqlite/sqlite_log.h"
#include "home/x10_line.h"
#include "host/host_interface.h"

namespace host {
class Clock;
class Plugin;
class Pump;
}  // namespace host

namespace home {

struct EmbeddedHostOptions {
    std::filesystem::path home;  // laid out
    // "1.7.0" and the like make a host of the older generation. The key HostVersion of section
    // "Settings" in settings.ini goes before.
    std::string version = "2.5.0";
    std::string type_name = "EmbeddedHost";
    std::string database = "home.db";      // its devices and events, in Data
    std::ostream* error_output = nullptr;  // where a line goes that the log refuses; none: stderr
};

// A message as a plug-in hands it over; see host::CallbackObject.
struct OutgoingXapMessage {
    std::string_view target;
    std::string_view message_class;
    std::string_view section;
    std::string_view body;
    std::string_view sub_address;
    std::string_view uid;
};

// An entry that a plug-in has put into the host's menu.
struct MenuEntry {
    std::string plugin;
    std::string label;

    friend bool operator==(const MenuEntry&, const MenuEntry&) = default;
};

// The home automation host in this program: the interface that a plug-in gets, made of settings
// files, log, devices, events, power line and menus of one home. Devices and events lie in
// a file of their own in Data, users and menus of pages in Data/menus.db, and survive the program,
// however it ends. Owned by the program, outlives the plug-in.
class EmbeddedHost : public host::HostInterface, public host::CallbackObject {
  public:
    // Pump and clock must outlive the host.
    // Throws: RunTimeError 70, 61 or 57 with the file when a file of Data cannot be used.
    EmbeddedHost(host::Pump& pump, const host::Clock& clock, EmbeddedHostOptions options);

    // Carries a message to the xAP network, with the arguments of `SendXapMessage`.
    using XapSink = std::function<void(const OutgoingXapMessage& message)>;

    // From now on this program carries messages. Without it `SendXapMessage` is error 438.
    void set_xap_sink(XapSink sink) { xap_sink_ = std::move(sink); }

    // What a program around the host needs beyond the plug-in's view of it.
    [[nodiscard]] DeviceTable& devices() noexcept { return devices_; }

    [[nodiscard]] SqliteLog& log() noexcept { return log_; }

    [[nodiscard]] X10Line& x10_line() noexcept { return x10_line_; }

    // Its runner takes who carries out scripts and plug-in actions; `start` it once they can.
    [[nodiscard]] EventEngine& event_engine() noexcept { return event_engine_; }

    // From now on the values that are set on devices whose field `interface_name` is `plugin`,
    // without regard to case, go to `sink` as commands. The sink may pump.
    void set_command_sink(const std::string& plugin, DeviceCommands::Sink sink) {
        device_commands_.set_sink(plugin, std::move(sink));
    }

    // `SetDeviceValue` for what a person types: the device must be there, and `value` a number or
    // a word that it takes (`device_value`). Gives the number. May pump.
    // Throws: RunTimeError 5 that names the nearest codes, or the values that there are.
    std::int32_t set_device(std::string_view code, std::string_view value);

    // A call comes in on a telephone line, from 1: it is the line's last call from now on, and
    // events that wait for it run. May pump.
    void telephone_call(std::int16_t line, const std::string& number, const std::string& name);

    // Scripts find the plug-in by its name from now on. It must outlive their use of the host.
    void carry(host::Plugin& plugin) { plugins_.push_back(&plugin); }

    [[nodiscard]] const std::vector<MenuEntry>& menu() const noexcept { return menu_; }

    // The first entry with the label, without regard to case; hand its `label` to `SelectMenu`.
    // Throws: RunTimeError 5 with the nearest labels, or all.
    [[nodiscard]] const MenuEntry& menu_entry(std::string_view label) const;

    // HostInterface
    [[nodiscard]] std::string Version() const override;
    [[nodiscard]] std::string GetAppPath() const override;  // code page 1252, with backslashes
    [[nodiscard]] std::shared_ptr<automation::Object> object() override;

    [[nodiscard]] host::MenuDatabase* menu_database() override { return &menus_; }

    [[nodiscard]] host::PhoneAddOn* phone_add_on() override { return &telephone_; }

    // Settings
    [[nodiscard]] std::string GetIniSetting(std::string_view section, std::string_view key,
                                            std::string_view fallback,
                                            std::string_view file) override;
    void SaveIniSetting(std::string_view section, std::string_view key, std::string_view value,
                        std::string_view file) override;
    [[nodiscard]] std::string GetINISection(std::string_view section,
                                            std::string_view file) override;
    void SaveINISection(std::string_view section, const host::SettingsEntries& entries,
                        std::string_view file) override;

    // Log. A line that cannot be stored goes to the error output with the reason; throws nothing
    // for it.
    void Writelog(std::string_view type, std::string_view message) override;

    // Devices
    [[nodiscard]] std::int32_t DeviceCount() override;
    [[nodiscard]] std::shared_ptr<host::Device> GetDevice(std::int16_t number) override;
    host::DeviceRef NewDevice(std::string_view name, std::string_view code) override;
    host::DeviceRef NewDevice(std::string_view name) override;
    [[nodiscard]] host::DeviceRef DeviceExists(std::string_view code) override;
    [[nodiscard]] std::unique_ptr<host::DeviceEnumerator> GetDeviceEnumerator() override;
    [[nodiscard]] std::shared_ptr<host::Device> GetDeviceByRef(host::DeviceRef ref) override;
    host::DeviceRef NewDeviceRef(std::string_view name) override;
    [[nodiscard]] host::DeviceRef DeviceExistsRef(std::string_view code) override;
    void DeleteDevice(host::DeviceRef ref) override;
    void SetDeviceString(std::string_view code, std::string_view text) override;
    [[nodiscard]] std::string DeviceString(std::string_view code) override;
    void SetDeviceLastChange(std::string_view code, automation::DateTime when) override;
    [[nodiscard]] automation::DateTime DeviceLastChange(std::string_view code) override;
    void SetDeviceStatus(std::string_view code, std::int32_t status) override;
    void SetDeviceStatusNoReport(std::string_view code, std::int32_t status,
                                 std::int32_t value) override;
    [[nodiscard]] std::int32_t DeviceStatus(std::string_view code) override;
    // The value and the moment of the change are stored; then the device's plug-in gets it as a
    // command, or, for an X10 device of no plug-in, the power line "on" or "off". May pump.
    // Throws: RunTimeError 6, before anything is stored, for a value above what a command carries.
    void SetDeviceValue(std::string_view code, std::int32_t value) override;
    [[nodiscard]] std::int32_t DeviceValue(std::string_view code) override;
    void SetSilentDeviceCollection(
        const std::vector<std::pair<std::string, std::int32_t>>& codes) override;

    // X10
    void ExecX10(std::string_view code, std::string_view command) override;
    [[nodiscard]] bool isOn(std::string_view code) override;
    [[nodiscard]] bool IsOff(std::string_view code) override;

    // Events
    void RegisterEventCB(std::int32_t kind, host::EventListener& listener) override;
    void UnregisterEventCB(host::EventListener& listener) noexcept override;
    [[nodiscard]] std::int32_t EventCount() override;
    [[nodiscard]] std::shared_ptr<host::HostEvent> GetEvent(std::int32_t number) override;
    std::int32_t NewEvent(std::string_view name) override;
    [[nodiscard]] std::unique_ptr<host::EventEnumerator> GetEventEnumerator() override;
    std::shared_ptr<host::HostEvent> NewEventEx(std::string_view name) override;

    // CallbackObject
    [[nodiscard]] std::string type_name() const override;
    [[nodiscard]] host::HostInterface* GetHSIface() override;
    // An entry that is there already is not added again.
    void RegisterMenu(std::string_view plugin, std::string_view label) override;
    // Throws: RunTimeError 68 when all are taken.
    [[nodiscard]] std::int32_t GetNextFreeIOCode() override;
    // Value and moment of the change are stored; no command follows.
    void ValueChangeEvent(std::string_view code, std::int32_t value) override;
    void SendXapMessage(std::string_view target, std::string_view message_class,
                        std::string_view section, std::string_view body,
                        std::string_view sub_address, std::string_view uid) override;

  private:
    void on_x10(const X10Command& command);

    EmbeddedHostOptions options_;
    const host::Clock& clock_;
    SqliteLog log_;
    IniFiles settings_;
    Database database_;
    SqliteDeviceStore device_store_;
    SqliteEventStore event_store_;
    SqliteMenuDatabase menus_;
    Telephone telephone_;
    DeviceTable devices_;
    EventBoard events_;
    X10Line x10_line_;
    DeviceCommands device_commands_;
    EventEngine event_engine_;
    HostEvents host_events_{event_engine_};
    std::vector<MenuEntry> menu_;
    std::vector<host::Plugin*> plugins_;
    XapSink xap_sink_;
    Subscription device_changes_;
    Subscription x10_commands_;
};

}  // namespace home
