#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The plug-in's two dialogs as a program sees them that shows them to a person: a terminal, a
// script, another window system. Texts are in code page 1252.
namespace host {

enum class DialogControlKind : std::uint8_t { Text, Check, Option, Label, Button };

// One control, or one place of a control array.
struct DialogControl {
    DialogControlKind kind{};
    std::string page;
    std::string name;
    std::size_t index = 0;
    std::size_t count = 1;  // places of its array
    std::string setting;    // the key of the settings file that it edits; "" without one alone
    std::string group;      // what stands beside a group of option buttons or check boxes
    std::string caption;
    std::string text;                  // of a text box or label
    bool value = false;                // of a check box or option button
    bool is_enabled = true;            // else it shows its text and takes none
    std::string enabled_by;            // options whose first button enables it; "" for no such rule
    std::vector<std::string> choices;  // offered for a text box
};

// The setup dialog. Owned by the plug-in. Texts of `set` are what the control then shows; check
// boxes and option buttons take "1" and "0", "True" and "False".
class SetupDialog {
  public:
    SetupDialog() = default;
    SetupDialog(const SetupDialog&) = delete;
    SetupDialog& operator=(const SetupDialog&) = delete;
    virtual ~SetupDialog() = default;

    // Fills the controls from the settings; changes that nobody has stored are gone.
    virtual void open() = 0;

    [[nodiscard]] virtual std::vector<std::string> labels() const = 0;  // version and house code
    [[nodiscard]] virtual std::vector<std::string> pages() const = 0;
    [[nodiscard]] virtual std::string shown_page() const = 0;

    // Throws: RunTimeError 5 for a page that there is not.
    virtual void show_page(std::string_view page) = 0;

    // All controls, page by page.
    [[nodiscard]] virtual std::vector<DialogControl> controls() const = 0;

    // Throws: RunTimeError 438 for a name that no control has, 340 for a place behind the end of a
    // control array, 13 for a text that is no truth value.
    virtual void set(std::string_view name, std::size_t index, std::string_view text) = 0;

    // Throws: RunTimeError 438 for what is no button. May pump.
    virtual void press(std::string_view button) = 0;

    // Stores everything. False when that has failed half-way: the log tells why, and the dialog is
    // still open. May pump.
    virtual bool ok() = 0;

    virtual void cancel() = 0;
};

// The dialog "Velora Server". Owned by the plug-in; its box fills whether or not it is shown.
class ServerDialog {
  public:
    ServerDialog() = default;
    ServerDialog(const ServerDialog&) = delete;
    ServerDialog& operator=(const ServerDialog&) = delete;
    virtual ~ServerDialog() = default;

    // Shows it anew: the check box as it was saved, and the clients in the box.
    virtual void open() = 0;

    [[nodiscard]] virtual bool is_open() const = 0;
    [[nodiscard]] virtual std::string status_box() const = 0;
    [[nodiscard]] virtual bool debug_box() const = 0;
    virtual void set_debug_box(bool value) = 0;

    // The names of its buttons, and that of the box for its double click.
    [[nodiscard]] virtual std::vector<std::string> buttons() const = 0;

    // Throws: RunTimeError 438 for what is no button. May pump.
    virtual void press(std::string_view button) = 0;
};

}  // namespace host
