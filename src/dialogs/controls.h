#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dialogs {

// One control of the setup dialog: its name, and its place if it is one of a control array, from
// 0. "aServerPort" and 0; "aIP" and 3; "Option1" and 2.
struct ControlId {
    std::string_view name;
    std::size_t index = 0;
};

// The controls of the setup dialog, as the setup page fills them in and reads them. Names compare
// without regard to case. All members throw RunTimeError 438 for a name that no control has, and
// 340 for a place behind the end of a control array.
class Controls {
  public:
    virtual ~Controls() = default;

    // A dialog that is not loaded has empty controls.
    [[nodiscard]] virtual bool is_loaded() const = 0;

    // Fills all controls from the settings. A dialog that is loaded already stays as it is.
    virtual void Load() = 0;

    // Text of a text box.
    [[nodiscard]] virtual std::string Text(const ControlId& id) const = 0;
    virtual void set_Text(const ControlId& id, std::string_view text) = 0;

    // Whether a check box is ticked or an option button is chosen. Choosing an option button clears
    // the others of its group.
    [[nodiscard]] virtual bool Value(const ControlId& id) const = 0;
    virtual void set_Value(const ControlId& id, bool value) = 0;

    // The text that stands on the control or beside it.
    [[nodiscard]] virtual std::string Caption(const ControlId& id) const = 0;

    // Places of a control array; 1 for a control alone.
    [[nodiscard]] virtual std::size_t count(std::string_view name) const = 0;

    // Stores everything, in the dialog's order, loads the settings anew and unloads the dialog. An
    // error is logged and leaves the dialog loaded. May pump.
    virtual void OKButton_Click() = 0;
};

}  // namespace dialogs
