#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "home/events/event.h"

namespace home {

// Hands each kind of action to the part of the program that carries it out. Owned by the event
// engine; the carriers are installed by host and program, and throw RunTimeError for what fails.
class EventRunner {
  public:
    using Carrier = std::function<void(const std::string& text)>;
    using DeviceSetter = std::function<void(const std::string& code, const std::string& value)>;

    // One line of script.
    void set_script_runner(Carrier run) { run_script_ = std::move(run); }

    // The plug-in's `TriggerAction`; the text has chr 2 between its fields.
    void set_plugin_action(Carrier act) { trigger_action_ = std::move(act); }

    // The plug-in's `ButtonPress`.
    void set_button_press(Carrier press) { press_button_ = std::move(press); }

    // Installed by the host.
    void set_device_setter(DeviceSetter set) { set_device_ = std::move(set); }

    // May pump. Throws: RunTimeError 429 for an action that nobody carries out, else what the
    // carrier throws.
    void carry_out(const Action& action) const;

  private:
    Carrier run_script_;
    Carrier trigger_action_;
    Carrier press_button_;
    DeviceSetter set_device_;
};

}  // namespace home
