#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/date.h"

namespace host {

// Reference number of a device; -1 stands for "no such device".
using DeviceRef = std::int32_t;
inline constexpr DeviceRef kNoDevice = -1;

// State of a device as a number: 2 is on, 3 is off, 17 is unknown.
inline constexpr std::int32_t kStatusOn = 2;
inline constexpr std::int32_t kStatusOff = 3;
inline constexpr std::int32_t kStatusUnknown = 17;

// What a device is, as opposed to the state that it is in.
struct DeviceFields {
    std::string name;
    std::string hc;  // house code, one character
    std::string dc;  // number behind the house code, as text
    std::string location;
    std::string dev_type_string;
    std::string interface_name;  // plug-in that owns the device
    std::string iomisc;
    std::int32_t misc = 0;  // flags, kept as given
    std::int32_t iotype = 0;
    std::string values;   // word, chr 2, number; entries separated by chr 1
    std::string buttons;  // plug-in, chr 2, caption; entries separated by chr 1

    friend bool operator==(const DeviceFields&, const DeviceFields&) = default;
};

// One device of the host. The object stays valid when the device is deleted; writes are then lost.
class Device {
  public:
    virtual ~Device() = default;
    [[nodiscard]] virtual DeviceRef ref() const = 0;
    [[nodiscard]] virtual DeviceFields fields() const = 0;
    virtual void set_fields(const DeviceFields& fields) = 0;
};

// A walk over all devices. When `CountChanged` turns true the walk has missed or repeated some.
class DeviceEnumerator {
  public:
    virtual ~DeviceEnumerator() = default;
    [[nodiscard]] virtual bool Finished() const = 0;
    [[nodiscard]] virtual bool CountChanged() const = 0;
    virtual std::shared_ptr<Device> GetNext() = 0;  // none at the end
};

// The moment of a device whose state has never changed: 30 December 1899, midnight.
inline constexpr automation::DateTime kNeverChanged{
    std::chrono::local_days{std::chrono::year{1899} / std::chrono::December / 30}};

// The host's devices. A code is the house code character followed by the number: "A1", "[11".
// Operations on the state of a code that no device has do nothing and read as 0, "" or
// `kNeverChanged`.
class Devices {
  public:
    virtual ~Devices() = default;

    // Older generation of the host: devices by 1-based number.
    [[nodiscard]] virtual std::int32_t DeviceCount() = 0;
    [[nodiscard]] virtual std::shared_ptr<Device> GetDevice(std::int16_t number) = 0;
    virtual DeviceRef NewDevice(std::string_view name, std::string_view code) = 0;
    virtual DeviceRef NewDevice(std::string_view name) = 0;
    [[nodiscard]] virtual DeviceRef DeviceExists(std::string_view code) = 0;

    // Newer generation: devices by reference.
    [[nodiscard]] virtual std::unique_ptr<DeviceEnumerator> GetDeviceEnumerator() = 0;
    [[nodiscard]] virtual std::shared_ptr<Device> GetDeviceByRef(DeviceRef ref) = 0;
    virtual DeviceRef NewDeviceRef(std::string_view name) = 0;
    [[nodiscard]] virtual DeviceRef DeviceExistsRef(std::string_view code) = 0;

    virtual void DeleteDevice(DeviceRef ref) = 0;

    // State, by code.
    virtual void SetDeviceString(std::string_view code, std::string_view text) = 0;
    [[nodiscard]] virtual std::string DeviceString(std::string_view code) = 0;
    virtual void SetDeviceLastChange(std::string_view code, automation::DateTime when) = 0;
    [[nodiscard]] virtual automation::DateTime DeviceLastChange(std::string_view code) = 0;
    virtual void SetDeviceStatus(std::string_view code, std::int32_t status) = 0;
    virtual void SetDeviceStatusNoReport(std::string_view code, std::int32_t status,
                                         std::int32_t value) = 0;
    [[nodiscard]] virtual std::int32_t DeviceStatus(std::string_view code) = 0;
    virtual void SetDeviceValue(std::string_view code, std::int32_t value) = 0;
    [[nodiscard]] virtual std::int32_t DeviceValue(std::string_view code) = 0;

    // Codes whose changes the host does not report: house code and number.
    virtual void SetSilentDeviceCollection(
        const std::vector<std::pair<std::string, std::int32_t>>& codes) = 0;
};

}  // namespace host
