#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "app/json.h"
#include "app/picture.h"

namespace app {

// The dialog "Velora Server" on a terminal: its status box, its check box and its buttons. Knows no
// terminal. Owned by the sub-command.
class ServerForm {
  public:
    enum class Outcome : std::uint8_t {
        GoesOn,
        Debug,   // the check box has been switched
        Button,  // one that leaves the dialog open
        Close,   // one of the two that close it
    };

    // What the daemon answers to "server_options", as often as it does.
    void take(const Json& options);
    void set_window(WindowSize window);

    Outcome press(const KeyPress& press);

    [[nodiscard]] Picture picture() const;

    [[nodiscard]] bool debug() const noexcept { return debug_; }

    // The name, for the daemon, of the button that an outcome means.
    [[nodiscard]] std::string pressed_button() const;

  private:
    [[nodiscard]] std::size_t box_rows() const noexcept;
    void scroll_up();
    [[nodiscard]] Outcome press_stop();

    std::string box_;  // UTF-8
    bool debug_ = false;
    WindowSize window_{24, 80};
    std::size_t stop_ = 0;        // 0 is the check box, behind it come the buttons
    std::size_t pressed_ = 0;     // a button
    std::size_t rows_below_ = 0;  // of the box, when it shows older lines
};

}  // namespace app
