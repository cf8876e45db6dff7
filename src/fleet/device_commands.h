#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "appliance/velora.h"

namespace appliance {
class CallerDisplay;
}

namespace devices {
class StatusBoard;
}

namespace fleet {

class Fleet;

// From the host's device commands to operations of units: somebody has set a device of the
// plug-in's house code to a value. Owned by the plug-in's entry class.
class DeviceCommands final : public appliance::DeviceCommandTarget {
  public:
    // What the rules act on beside the unit. All of it outlives this object; the fleet may be made
    // after it.
    struct Services {
        core::Instance& instance;
        Fleet& fleet;
        devices::StatusBoard& status_board;
        appliance::CallerDisplay& caller_display;
    };

    explicit DeviceCommands(const Services& services) : services_(services) {}

    // Carries out command 19, "set the value", on the unit to whose block the device number
    // belongs. Nothing happens for another house code, before start-up has finished, for a number
    // behind the ten of a block, and for a value that the device does not have. Errors are logged.
    // May pump.
    void SetVeloraIO(const std::string& house_code, const std::string& device_code,
                     std::int16_t command, std::int16_t brightness) override;

  private:
    Services services_;
};

}  // namespace fleet
