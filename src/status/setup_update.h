#pragma once

#include <string_view>

#include "core/instance.h"
#include "status/form.h"
#include "status/setup_fields.h"

namespace dialogs {
class Controls;
}

namespace status {

// Takes the setup sections of a posted form back into the controls of the setup dialog, without
// a look at what the values mean. A value for the time of one form. A failure is logged, and ends
// that routine.
class SetupUpdate {
  public:
    // All outlive it. Requires: the dialog is loaded.
    SetupUpdate(core::Instance& instance, dialogs::Controls& controls, const Form& form)
        : instance_(instance), controls_(controls), form_(form) {}

    void UpdateVeloras();

    void UpdateDefinitions() { update(kDefinitions); }

    void UpdatePower() { update(kPower); }

    void UpdateScreen() { update(kScreen); }

    void UpdateSlideGroup();

    void UpdateCID() { update(kCallers); }

  private:
    void update(const SetupSection& section);
    void take(const SetupField& field);
    void take_numbered(const UnitField& field, std::size_t number);
    void take_text(std::string_view name, std::string_view control, std::size_t index);
    void take_check(std::string_view name, std::string_view control, std::size_t index);
    void take_choice(std::string_view name, std::string_view control);

    core::Instance& instance_;
    dialogs::Controls& controls_;
    const Form& form_;
};

}  // namespace status
