#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/json.h"
#include "app/picture.h"
#include "app/terminal_screen.h"

namespace app {

// What a person wants sent to the modem.
struct ModemLine {
    std::string text;  // UTF-8
    bool with_line_end = true;
};

// The "Modem Echo Window" on a terminal: both boxes, and a line to send below them. Takes the whole
// screen while it lives, and gives it back in its old state. Owned by the sub-command; one at a
// time.
class EchoScreen {
  public:
    // Throws: CommandFailure when standard output is no terminal that can be drawn on.
    EchoScreen() = default;

    // Draws what the daemon says of the modem.
    void show(const Json& modem);

    // Takes keys for a fifth of a second, or until a line is to be sent. Enter sends, F2 switches
    // the line end on and off, Escape closes.
    [[nodiscard]] std::optional<ModemLine> take_keys();

    [[nodiscard]] bool is_closed() const noexcept { return is_closed_; }

  private:
    void draw_input() const;
    void take_backspace();

    TerminalScreen screen_;
    std::string input_;  // UTF-8
    bool with_line_end_ = true;
    bool is_closed_ = false;
};

}  // namespace app
