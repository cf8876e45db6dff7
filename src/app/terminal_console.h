#pragma once

#include "vbscript/objects/console.h"

namespace app {

// The terminal in front of a script: standard input, output and error in UTF-8.
class TerminalConsole final : public vbscript::Console {
  public:
    void write_output(std::u16string_view text) override;
    void write_error(std::u16string_view text) override;
    bool read_input(std::u16string& buffer) override;
    void pause(std::chrono::milliseconds duration) override;
};

}  // namespace app
