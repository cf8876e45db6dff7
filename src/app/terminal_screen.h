#pragma once

#include <string>

#include "app/picture.h"

namespace app {

// The whole screen of the terminal in front of the program. Takes it while it lives, and gives it
// back in its old state. Owned by what is shown there; one at a time. It follows the size of the
// window.
class TerminalScreen {
  public:
    // Throws: CommandFailure when standard output is no terminal that can be drawn on.
    TerminalScreen();
    ~TerminalScreen();
    TerminalScreen(const TerminalScreen&) = delete;
    TerminalScreen& operator=(const TerminalScreen&) = delete;

    [[nodiscard]] static WindowSize size();

    // Everything between the two appears at once.
    static void begin();
    static void end();

    // UTF-8; cut at the window's edge.
    static void put(int row, int column, const std::string& text, Look look = Look::Plain);

    // A line from side to side.
    static void rule(int row);

    static void show(const Picture& picture);

    // Waits for a fifth of a second.
    [[nodiscard]] static KeyPress take_key();
};

// Whether a person sits at both standard input and standard output.
[[nodiscard]] bool is_at_terminal();

}  // namespace app
