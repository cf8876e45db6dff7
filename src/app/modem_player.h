#pragma once

#include <filesystem>
#include <iosfwd>
#include <vector>

#include "app/modem_capture.h"
#include "platform/asio/asio_pump.h"
#include "platform/system/pseudo_terminal.h"

namespace app {

// Plays a modem on a pseudo terminal that the daemon reads as its serial line, and tells what goes
// both ways. Owned by the sub-command; its end hangs up and removes the link.
class ModemPlayer {
  public:
    // `link` becomes a link to the terminal's device. Throws: CommandFailure when something else
    // is there, or the folder cannot be written.
    ModemPlayer(platform::AsioPump& pump, std::filesystem::path link, std::ostream& out);
    ~ModemPlayer();
    ModemPlayer(const ModemPlayer&) = delete;
    ModemPlayer& operator=(const ModemPlayer&) = delete;

    // Waits, as long as it takes, until a program opens the line.
    void wait_for_reader();

    // Sends the session. Throws: CommandFailure when the reader has gone.
    void play(const std::vector<CaptureStep>& steps);

  private:
    void listen(std::chrono::milliseconds time);

    platform::AsioPump& pump_;
    std::filesystem::path link_;
    std::ostream& out_;
    platform::PseudoTerminal terminal_;
};

}  // namespace app
