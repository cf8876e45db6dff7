#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "core/instance.h"
#include "devices/status_table.h"
#include "host/devices.h"

namespace devices {

class StatusBoard;

// What a device of the plug-in is told besides its name and code.
struct OwnedDevice {
    std::string_view location;
    std::int32_t misc = 0;
    std::int32_t iotype = 0;
};

// The way to the host's devices for both of its generations, and the devices that the plug-in
// keeps there. Owned by the plug-in's entry class.
class HostDevices {
  public:
    HostDevices(core::Instance& instance, StatusBoard& status_board)
        : instance_(instance), status_board_(status_board) {}

    // By reference on newer hosts, by number or code on older ones. None or -1 when absent; an
    // error of the host is logged and counts as absent.
    [[nodiscard]] std::shared_ptr<host::Device> hsGetDevice(host::DeviceRef ref);
    host::DeviceRef hsNewDevice(std::string_view name, std::string_view code);
    [[nodiscard]] host::DeviceRef hsDeviceExists(std::string_view code);

    // The device with this code, none when absent.
    [[nodiscard]] std::shared_ptr<host::Device> device_with(std::string_view code);

    // Makes a device of the plug-in with this code and gives it; none when the host refuses. Code
    // and owner reach the host in one write, so that a kill never leaves a code without an owner.
    std::shared_ptr<host::Device> NewHSDevice(std::string_view name, std::string_view code,
                                              const OwnedDevice& owned);

    // Finds the plug-in's house code among the host's devices, or takes a free one, makes its
    // first device and stores the code. Sets `HouseCode` of the instance.
    void InitDevices();

    // The device that keeps the house code in use, if it is missing.
    void NewDevice(std::string_view code);

    // The device that shows the last caller, if it is missing.
    void CIDDevice(std::string_view code);

    // One of a unit's ten devices, made or brought up to date. `location` is the unit's name.
    void make_unit_device(std::string_view code, SubDevice sub_device, std::string_view location);

    // Lets every device of the plug-in report changes of its value (newer hosts only).
    void SetValueCallback();

    // Button mark-up of the enabled sounds; "" when devices show states only.
    [[nodiscard]] std::string UpdateSoundsButton(std::string_view location) const;

    // Gives the sounds devices of all blocks the buttons of the sounds that are enabled now. Blocks
    // begin at 1, 11, 21 and so on. Errors are logged.
    void UpdateButtons();

    [[nodiscard]] static std::string DefineValues(std::int16_t first, std::int16_t count);
    [[nodiscard]] std::string DefineButtons(std::int16_t first, std::int16_t count,
                                            std::string_view location) const;

  private:
    [[nodiscard]] std::string GetHouseCode();
    [[nodiscard]] std::string house_code_by_enumerator();
    [[nodiscard]] std::string house_code_by_number();

    // A device that belongs to the plug-in and to no unit; false when it is there already or the
    // host refuses.
    bool make_own_device(std::string_view name, std::string_view code, std::int32_t misc);
    void write_unit_device(host::Device& device, SubDevice sub_device, std::string_view location,
                           std::int32_t flags);

    core::Instance& instance_;
    StatusBoard& status_board_;
};

// Version of the plug-in, as it is shown to the host and in the log.
inline constexpr std::string_view kProgramVersion = "1.0.0";

}  // namespace devices
