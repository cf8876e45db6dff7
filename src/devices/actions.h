#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "automation/object.h"
#include "core/instance.h"

namespace devices {

class HostDevices;

// Events of the host that set devices of units, and presses of their buttons. All of them end as
// device values in the host, which hands them on as device commands. Owned by the plug-in's entry
// class. Errors are logged. All may pump.
//
// An action is a text of fields separated by chr 2: a prefix, a field that nobody reads, and twelve
// pairs of a device ("[11-Kitchen", or "[11-Kitchen;name to show") and a label of
// `DeviceCommands`. A pair without a known label, or whose "-" stands behind position 4, is passed
// over.
class Actions {
  public:
    Actions(core::Instance& instance, HostDevices& host_devices)
        : instance_(instance), host_devices_(host_devices) {}

    // Lays out the host's 48 controls of an action, four in each of twelve rows. `controls` is a
    // collection from 1.
    void ModifyActionUI(const std::shared_ptr<automation::Object>& controls);

    // The pairs in words, as "Awaken to [11-Kitchen Velora AND ..."; "" for a text that does not
    // begin with "zynVelora".
    [[nodiscard]] std::string ActionUIFormat(std::string_view action);

    // Sets the value of each pair's device; nothing for a text that does not begin with "Velora".
    // The two prefixes differ; hosts have both.
    void TriggerAction(std::string_view action);

    // "<label> @ <location> Velora": sets the device of this location whose buttons have the
    // label to the button's place among them. A text without exactly one "@" does nothing.
    void ButtonPress(std::string_view button_name);

  private:
    // The unit's device that has the button, and the button's place; searched from device number
    // `first` on. Sets the value and gives true when there is one.
    bool press_from(int first, std::string_view button);
    [[nodiscard]] std::string code_of(int number) const;
    void press(std::string_view location, std::string_view button);

    core::Instance& instance_;
    HostDevices& host_devices_;
};

}  // namespace devices
