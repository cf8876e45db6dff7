#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/run_time_error.h"
#include "home/device_table.h"
#include "home/event_board.h"
#include "host/host_interface.h"

namespace support {

// An event of the host that is only remembered.
class MemoryEvent final : public host::HostEvent {
  public:
    explicit MemoryEvent(std::string_view name) { fields_.name = name; }

    [[nodiscard]] host::EventFields fields() const override { return fields_; }

    void set_fields(const host::EventFields& fields) override { fields_ = fields; }

  private:
    host::EventFields fields_;
};

// The host of tests, and its callback object in one: all in memory, and everything that is asked
// of it can be read afterwards. A host of the newer generation unless `set_version` says otherwise.
// Owned by the fixture, before the plug-in.
class MemoryHost final : public host::HostInterface, public host::CallbackObject {
  public:
    MemoryHost() = default;

    // With devices that go to a store. The store outlives the host.
    explicit MemoryHost(home::DeviceStore& store) : devices_(store) {}

    MemoryHost(const MemoryHost&) = delete;
    MemoryHost& operator=(const MemoryHost&) = delete;

    // --- verbs of tests -------------------------------------------------------------------------

    void set_version(std::string_view version) { version_ = version; }

    void set_app_path(std::string_view path) { app_path_ = path; }

    // The first walk over the events finds, once it has given `nth` of them, that their number has
    // changed.
    void disturb_event_walk(int nth) { disturbed_at_ = nth; }

    [[nodiscard]] int event_walks() const noexcept { return event_walks_; }

    // Its telephone add-on; none at first.
    void install_phone(host::PhoneAddOn* phone) { phone_ = phone; }

    // "Setup" makes it the separate xAP program.
    void set_type_name(std::string_view name) { type_name_ = name; }

    // A device that somebody has made, the plug-in's own if `owner` says so.
    void put_device(std::string_view code, std::string_view owner = "",
                    std::string_view iomisc = "");

    // The callback object then finds no host.
    void become_unreachable() { is_reachable_ = false; }

    // A setting that is simply there; no write in the sense of `fail`.
    void put_setting(std::string_view section, std::string_view key, std::string_view value,
                     std::string_view file = "zynVeloraUtilities.ini");

    void remove_section(std::string_view section, std::string_view file = "zynVeloraUtilities.ini");

    enum class Operation : std::uint8_t { Writelog, SaveIniSetting, SetDeviceString };

    // The `nth` call of the operation from now on, 1 the next, throws `error` and does nothing
    // else.
    void fail(Operation operation, int nth,
              automation::ErrorNumber error = automation::ErrorNumber::DeviceIoError);

    // Somebody sends on the power line: listeners hear of it first, then the state changes. A code
    // is "A1", a status 2 for on or 3 for off. May pump.
    void receive_x10(std::string_view code, std::int32_t status);

    // Run within the call of the same name, before it does its work.
    std::function<void(std::string_view code, std::string_view text)> on_set_device_string;
    std::function<void(std::string_view code, std::string_view command)> on_exec_x10;

    // --- what has been asked of it --------------------------------------------------------------

    // "type: message", the oldest first.
    [[nodiscard]] const std::vector<std::string>& log() const noexcept { return log_; }

    // Forgets the log, the commands, the changes and the messages; keeps devices and settings.
    void forget();

    // "A1 off"
    [[nodiscard]] const std::vector<std::string>& x10_commands() const noexcept {
        return x10_commands_;
    }

    // "zynVelora: Start Slideshow"
    [[nodiscard]] const std::vector<std::string>& menu() const noexcept { return menu_; }

    // "[12=1"
    [[nodiscard]] const std::vector<std::string>& value_changes() const noexcept {
        return value_changes_;
    }

    // Every call that changes a device's state, with its operation: "SetDeviceString [12 text",
    // "SetDeviceLastChange [12", "SetDeviceValue [12 1", "SetDeviceStatus A1 3",
    // "SetDeviceStatusNoReport A1 2 0".
    [[nodiscard]] const std::vector<std::string>& device_calls() const noexcept {
        return device_calls_;
    }

    // "[ 10": the codes of the last silent collection.
    [[nodiscard]] const std::vector<std::string>& silent_codes() const noexcept {
        return silent_codes_;
    }

    struct XapMessage {
        std::string target;
        std::string message_class;
        std::string block;
        std::string body;
        std::string source;
        std::string uid;
    };

    [[nodiscard]] const std::vector<XapMessage>& xap_messages() const noexcept {
        return xap_messages_;
    }

    // "key=value" of every write through SaveIniSetting, the oldest first.
    [[nodiscard]] const std::vector<std::string>& saved_settings() const noexcept {
        return saved_settings_;
    }

    [[nodiscard]] home::DeviceTable& devices() noexcept { return devices_; }

    // The device with this code. Throws: std::out_of_range without such a device.
    [[nodiscard]] home::DeviceRecord device(std::string_view code) const;
    [[nodiscard]] bool has_device(std::string_view code) const;

    // Its events, the oldest first.
    [[nodiscard]] std::vector<host::EventFields> events() const;

    // How many of its events somebody hears.
    [[nodiscard]] std::size_t event_registrations() const noexcept { return registrations_.size(); }

    // --- host::HostInterface --------------------------------------------------------------------

    [[nodiscard]] std::string Version() const override { return version_; }

    [[nodiscard]] std::string GetAppPath() const override { return app_path_; }

    [[nodiscard]] std::shared_ptr<automation::Object> object() override;

    [[nodiscard]] host::PhoneAddOn* phone_add_on() override { return phone_; }

    [[nodiscard]] std::string GetIniSetting(std::string_view section, std::string_view key,
                                            std::string_view fallback,
                                            std::string_view file) override;
    void SaveIniSetting(std::string_view section, std::string_view key, std::string_view value,
                        std::string_view file) override;
    [[nodiscard]] std::string GetINISection(std::string_view section,
                                            std::string_view file) override;
    // A write of each entry in the sense of `fail`, made before any is kept.
    void SaveINISection(std::string_view section, const host::SettingsEntries& entries,
                        std::string_view file) override;

    void Writelog(std::string_view type, std::string_view message) override;

    [[nodiscard]] std::int32_t DeviceCount() override { return devices_.DeviceCount(); }

    [[nodiscard]] std::shared_ptr<host::Device> GetDevice(std::int16_t number) override {
        return devices_.GetDevice(number);
    }

    host::DeviceRef NewDevice(std::string_view name, std::string_view code) override {
        return devices_.NewDevice(name, code);
    }

    host::DeviceRef NewDevice(std::string_view name) override { return devices_.NewDevice(name); }

    [[nodiscard]] host::DeviceRef DeviceExists(std::string_view code) override {
        return devices_.DeviceExists(code);
    }

    [[nodiscard]] std::unique_ptr<host::DeviceEnumerator> GetDeviceEnumerator() override {
        return devices_.GetDeviceEnumerator();
    }

    [[nodiscard]] std::shared_ptr<host::Device> GetDeviceByRef(host::DeviceRef ref) override {
        return devices_.GetDeviceByRef(ref);
    }

    host::DeviceRef NewDeviceRef(std::string_view name) override {
        return devices_.NewDeviceRef(name);
    }

    [[nodiscard]] host::DeviceRef DeviceExistsRef(std::string_view code) override {
        return devices_.DeviceExistsRef(code);
    }

    void DeleteDevice(host::DeviceRef ref) override { devices_.DeleteDevice(ref); }

    void SetDeviceString(std::string_view code, std::string_view text) override;

    [[nodiscard]] std::string DeviceString(std::string_view code) override {
        return devices_.DeviceString(code);
    }

    void SetDeviceLastChange(std::string_view code, automation::DateTime when) override;

    [[nodiscard]] automation::DateTime DeviceLastChange(std::string_view code) override {
        return devices_.DeviceLastChange(code);
    }

    void SetDeviceStatus(std::string_view code, std::int32_t status) override;
    void SetDeviceStatusNoReport(std::string_view code, std::int32_t status,
                                 std::int32_t value) override;

    [[nodiscard]] std::int32_t DeviceStatus(std::string_view code) override {
        return devices_.DeviceStatus(code);
    }

    void SetDeviceValue(std::string_view code, std::int32_t value) override;

    [[nodiscard]] std::int32_t DeviceValue(std::string_view code) override {
        return devices_.DeviceValue(code);
    }

    void SetSilentDeviceCollection(
        const std::vector<std::pair<std::string, std::int32_t>>& codes) override;

    // Any code is taken. The status of the code's device counts where it is on or off, else the
    // last command.
    void ExecX10(std::string_view code, std::string_view command) override;
    [[nodiscard]] bool isOn(std::string_view code) override;
    [[nodiscard]] bool IsOff(std::string_view code) override;

    void RegisterEventCB(std::int32_t kind, host::EventListener& listener) override;
    void UnregisterEventCB(host::EventListener& listener) noexcept override;

    [[nodiscard]] std::int32_t EventCount() override;
    [[nodiscard]] std::shared_ptr<host::HostEvent> GetEvent(std::int32_t number) override;
    std::int32_t NewEvent(std::string_view name) override;
    [[nodiscard]] std::unique_ptr<host::EventEnumerator> GetEventEnumerator() override;
    std::shared_ptr<host::HostEvent> NewEventEx(std::string_view name) override;

    // --- host::CallbackObject -------------------------------------------------------------------

    [[nodiscard]] std::string type_name() const override { return type_name_; }

    [[nodiscard]] host::HostInterface* GetHSIface() override {
        return is_reachable_ ? this : nullptr;
    }

    void RegisterMenu(std::string_view plugin, std::string_view label) override;

    // "[" first.
    [[nodiscard]] std::int32_t GetNextFreeIOCode() override;
    void ValueChangeEvent(std::string_view code, std::int32_t value) override;
    void SendXapMessage(std::string_view target, std::string_view message_class,
                        std::string_view block, std::string_view body, std::string_view source,
                        std::string_view uid) override;

  private:
    struct Entry {
        std::string key;  // as it was first written
        std::string value;
    };

    struct Fault {
        int calls_left = 0;  // 0: none is ordered
        automation::ErrorNumber error{};
    };

    class EventWalk;

    using Section = std::vector<Entry>;

    static constexpr std::size_t kOperations = 3;

    [[nodiscard]] static std::string section_key(std::string_view section, std::string_view file);
    static Entry* find(Section& section, std::string_view key);
    void count_call(Operation operation);
    [[nodiscard]] std::int32_t x10_status(std::string_view code);
    void take_x10_state(std::string_view code, std::int32_t status);

    std::string version_ = "2.5.0.81";
    std::string app_path_ = "C:\\HomeSeer";
    std::string type_name_ = "MemoryHost";
    bool is_reachable_ = true;

    std::map<std::string, Section> sections_;  // by file and section, in lower case
    home::DeviceTable devices_;
    home::EventBoard events_;
    std::vector<host::EventListener*> registrations_;
    std::vector<std::shared_ptr<MemoryEvent>> host_events_;
    std::map<std::string, std::int32_t, std::less<>> x10_states_;
    std::array<Fault, kOperations> faults_{};

    int disturbed_at_ = 0;  // 0: no walk is disturbed
    int event_walks_ = 0;
    std::vector<std::string> log_;
    std::vector<std::string> x10_commands_;
    std::vector<std::string> menu_;
    host::PhoneAddOn* phone_ = nullptr;
    std::vector<std::string> value_changes_;
    std::vector<std::string> device_calls_;
    std::vector<std::string> silent_codes_;
    std::vector<std::string> saved_settings_;
    std::vector<XapMessage> xap_messages_;
};

}  // namespace support
