#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/process.h"

namespace system_tests {

// One run of the program at a terminal of its own, 80 by 24, and a person who looks and types.
// Whoever owns it ends it: what still runs is killed.
class TerminalProcess {
  public:
    explicit TerminalProcess(const std::vector<std::string>& arguments);
    TerminalProcess(const TerminalProcess&) = delete;
    TerminalProcess& operator=(const TerminalProcess&) = delete;
    ~TerminalProcess();

    void type(std::string_view keys) const;

    void resize(unsigned short rows, unsigned short columns) const;

    // Waits until the program writes the text, since the last time that something was found.
    [[nodiscard]] bool shows(std::string_view text);

    // As `Process::wait`; takes what the program still writes.
    [[nodiscard]] std::optional<int> wait();

  private:
    void read_screen();

    int master_ = -1;
    pid_t id_ = 0;
    std::string written_;
    bool has_ended_ = false;
};

}  // namespace system_tests
