#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/dialogs.h"

namespace udp {
class ClientLink;
}

namespace dialogs {

// The dialog "Velora Server", `frmOptions`: state and tests of the link to the client programs. Its
// status box is that of the link's log, which fills whether or not the dialog is shown. Loaded when
// the host registers, owned by the plug-in instance. Its buttons have the names of its controls.
class ServerOptions final : public host::ServerDialog {
  public:
    explicit ServerOptions(udp::ClientLink& link) : link_(link) {}

    void Form_Load();

    // 0 saves the check box and closes, 1 closes.
    void cmdArray_Click(std::size_t index);

    // A call, and a command to the top LED of every client, logged as if debugging were on.
    void TestMessageButton_Click();
    void TestCommandButton_Click();

    void AdvancedInfoButton_Click();

    // Empties the status box.
    void txtArray_DblClick();

    // --- host::ServerDialog ----------------------------------------------------------------------

    void open() override;

    [[nodiscard]] bool is_open() const override { return is_open_; }

    [[nodiscard]] std::string status_box() const override;

    [[nodiscard]] bool debug_box() const override { return chkArray_; }

    void set_debug_box(bool value) override { chkArray_ = value; }

    [[nodiscard]] std::vector<std::string> buttons() const override;
    void press(std::string_view button) override;

  private:
    void fill_in();
    void list_clients();
    void write_line(std::string_view text);
    void log(std::string_view text);

    udp::ClientLink& link_;
    bool chkArray_ = false;
    bool is_on_ = false;  // the state that the next test command toggles
    bool is_open_ = false;
};

}  // namespace dialogs
