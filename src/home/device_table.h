#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "home/device_list.h"
#include "host/devices.h"

namespace home {

// The host's devices in memory. Owned by the host, outlives the plug-in and its walks. The
// operations of the older generation give and take the place of a device, from 1, which changes
// when an older device is deleted; `Device::ref` and `DeleteDevice` speak of the reference, which
// never changes, in both generations.
class DeviceTable : public host::Devices {
  public:
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
    void SetDeviceStatus(std::string_view code, std::int32_t status) override;
    void SetDeviceStatusNoReport(std::string_view code, std::int32_t status,
                                 std::int32_t value) override;
    [[nodiscard]] std::int32_t DeviceStatus(std::string_view code) override;
    void SetDeviceValue(std::string_view code, std::int32_t value) override;
    [[nodiscard]] std::int32_t DeviceValue(std::string_view code) override;

    void SetSilentDeviceCollection(
        const std::vector<std::pair<std::string, std::int32_t>>& codes) override;

    // Whether changes of the code are not to be reported.
    [[nodiscard]] bool is_silent(std::string_view code) const;

    // All devices as they are now, oldest first.
    [[nodiscard]] std::vector<DeviceRecord> snapshot() const;

  private:
    DeviceList list_;
    std::vector<std::string> silent_codes_;
};

}  // namespace home
