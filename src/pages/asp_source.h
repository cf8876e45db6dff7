#pragma once

#include <string>
#include <string_view>

#include "pages/fast_string.h"

namespace core {
class VeloraLog;
}

namespace pages {

// The script source of one page while it grows: a function that collects the page's output in a
// FastString of the script, `fs`, and gives it as its result. Head and tail of the function are
// written once each. Owned by the conversion of the page.
class AspSource {
  public:
    // `function` is the name of the page's function. The log outlives the source.
    AspSource(core::VeloraLog& log, std::string_view function) : log_(log), function_(function) {}

    // From here on, literal text belongs to the function in any case: its code has begun.
    void start_body() noexcept { body_started_ = true; }

    [[nodiscard]] bool BodyStarted() const noexcept { return body_started_; }

    // Literal text of the page. Its include lines go into the source as they are, all else as
    // output statements. A failure is logged and leaves the rest out.
    void ConvertToString(std::string_view html);

    // Text without include lines, one output statement for each of its lines. The last one has no
    // line end behind it, so that code behind it must begin on a new line. Text that shows
    // something opens the function.
    void HTMLToCode(std::string_view html);

    // Code of the page: what it writes goes to `fs`.
    void CodeToCode(std::string_view code);

    void WriteFunctionHead();
    void WriteFunctionTail();

    [[nodiscard]] const std::string& text() const noexcept { return text_.value(); }

  private:
    void convert(std::string_view html);

    core::VeloraLog& log_;
    std::string_view function_;
    FastString text_;  // ASPText
    bool body_started_ = false;
    bool header_done_ = false;  // HeaderDone
    bool footer_done_ = false;  // FooterDone
};

}  // namespace pages
