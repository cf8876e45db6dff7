#pragma once

#include <string>
#include <string_view>

#include "pages/asp_source.h"

namespace core {
class VeloraLog;
}

namespace pages {

// The name of a page's function: "zynVelora" and the file's name in lower case, without the
// characters that a name cannot have.
[[nodiscard]] std::string asp_function_name(std::string_view page);

// Turns one page into script source, by replacing text and not by reading the language: literal
// text becomes output statements of a function, code stays as it is. Declarations at the page's
// start come in front of the function; the page's own procedures close it. One object converts
// one page; the log outlives it.
class AspConverter {
  public:
    AspConverter(core::VeloraLog& log, std::string_view function)
        : log_(log), source_(log, function) {}

    // The source of a page, statements for empty literals taken out.
    // Throws: RunTimeError 5 for a "<%" whose end overlaps it or the end of the page.
    [[nodiscard]] std::string convert(std::string_view page);

  private:
    // A block of code by the position of its marks in the page.
    struct Block {
        std::size_t open = 0;
        std::size_t close = 0;
    };

    void convert_block(std::string_view code, const Block& block);
    [[nodiscard]] std::string_view open_function(std::string_view code);
    void close_function(std::string_view code, const Block& block);

    core::VeloraLog& log_;
    AspSource source_;
    bool function_ended_ = false;  // FunctionEnded
};

}  // namespace pages
