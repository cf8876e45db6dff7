#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace core {
class VeloraLog;
}

namespace pages {

// Reads a block of code by lines, in search of its first statement. Positions count from 1. Owned
// by the conversion of a page; code and log outlive it.
class AspLines {
  public:
    AspLines(core::VeloraLog& log, std::string_view code) : log_(log), code_(code) {}

    // Reads the line at a position, empty lines passed over, and gives the position behind it. A
    // failure is logged and gives 0.
    std::size_t GetLine(std::size_t position);

    // The line that was read last: without tabs, trimmed, in lower case. "" when there was none.
    // A last line without an end reads as the whole code (kept).
    [[nodiscard]] const std::string& CurrentLine() const noexcept { return current_line_; }

    // Where the code's first statement begins, behind constants, declarations, comments and
    // include lines; 0 when there is nothing but those.
    [[nodiscard]] std::size_t first_statement();

  private:
    std::size_t read(std::size_t position);
    [[nodiscard]] std::size_t line_start(std::size_t position) const;
    [[nodiscard]] bool is_statement() const;

    core::VeloraLog& log_;
    std::string_view code_;
    std::string current_line_;
};

}  // namespace pages
