#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "home/device_list.h"
#include "home/device_record.h"
#include "home/subscriptions.h"
#include "host/devices.h"

namespace home {

// What of a device's state has become other than it was.
enum class DevicePart : std::uint8_t { Status, Value };

struct DeviceChange {
    const DeviceRecord& device;  // as it is now; valid during the call
    DevicePart part;
};

// The host's devices: read from memory, and each change in the store, if there is one, when the
// call returns. Owned by the host, outlives the plug-in, its devices and its walks. The operations
// of the older generation give and take the place of a device, from 1, which changes when an older
// device is deleted; `Device::ref` and `DeleteDevice` speak of the reference, which never changes
// and is never given twice, in both generations.
//
// All that write throw RunTimeError with the file's name when the store refuses; memory and store
// then are as they were.
class DeviceTable : public host::Devices {
  public:
    // Devices that end with the program.
    DeviceTable() = default;

    // Comes up with what is stored. The store must outlive the table. Throws: RunTimeError.
    explicit DeviceTable(DeviceStore& store) : list_(store) {}

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
    void SetDeviceValue(std::string_view code, std::int32_t value) override;
    [[nodiscard]] std::int32_t DeviceValue(std::string_view code) override;

    void SetSilentDeviceCollection(
        const std::vector<std::pair<std::string, std::int32_t>>& codes) override;

    // Value and moment of the change in one step.
    void set_value(std::string_view code, std::int32_t value, automation::DateTime when);

    // The device with a code as it is now; none without one.
    [[nodiscard]] std::shared_ptr<const DeviceRecord> find(std::string_view code) const {
        return list_.find(code);
    }

    // Told of each status and value that becomes another, but for silent codes and changes that
    // are not to be reported. A follower may change devices.
    [[nodiscard]] Subscription follow(std::function<void(const DeviceChange&)> follower);

    // Whether changes of the code are not to be reported. The collection ends with the program.
    [[nodiscard]] bool is_silent(std::string_view code) const;

    // All devices as they are now, oldest first.
    [[nodiscard]] std::vector<DeviceRecord> snapshot() const;

  private:
    enum class Report : std::uint8_t { No, Yes };

    void change(const DeviceRecord& device, const DeviceState& state, Report report = Report::Yes);

    DeviceList list_;
    std::vector<std::string> silent_codes_;
    Subscriptions<const DeviceChange&> followers_;
};

}  // namespace home
