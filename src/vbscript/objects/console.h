#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace vbscript {

// The terminal in front of a script, or what stands for it. Implemented by the program; outlives
// the scripts.
class Console {
  public:
    Console() = default;
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;
    virtual ~Console() = default;

    virtual void write_output(std::u16string_view text) = 0;
    virtual void write_error(std::u16string_view text) = 0;

    // Appends what was typed next to `buffer`, a line or more; false at the end. May wait.
    virtual bool read_input(std::u16string& buffer) = 0;

    // Waits for at most `duration`, which the script's time limit may cut short.
    virtual void pause(std::chrono::milliseconds duration) = 0;
};

}  // namespace vbscript
