#pragma once

#include <cstdint>
#include <string>

#include "app/json.h"

// The daemon's answers as a person reads them on a terminal, in UTF-8.
namespace app {

// The result of an operation with its line's end; "" for nothing and for an empty text.
[[nodiscard]] std::string result_text(const Json& result);

// Role and flags, then the units with what waits for them, then the timers.
[[nodiscard]] std::string status_text(const Json& status);

enum class Colours : std::uint8_t { Off, On };

// Log lines in three columns; the second grows with the longest type so far.
class LogText {
  public:
    explicit LogText(Colours colours) : colours_(colours) {}

    // One line with its end.
    [[nodiscard]] std::string line(const Json& line);

  private:
    Colours colours_;
    std::size_t type_width_ = 15;  // of "zynVelora Debug"
};

}  // namespace app
