#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/instance.h"

namespace media {

// How a text message looks, as HTML wants it.
struct TextLook {
    std::string background;
    std::string foreground;
    std::string size;
    std::string face;
};

// Makes the page of a text message. `file` is relative to HTML, `delay` counts seconds until the
// page goes back to what was there before; a page without delay stays, and makes the unit's
// browser toggle its buttons when it is shown. A failure is logged and leaves the page incomplete.
void WrapHTML(core::Instance& instance, const std::string& file, const TextLook& look,
              const std::string& text, std::int32_t delay);

// A text without its mark-up, for logs and messages: without "&nbsp;" and whatever stands between
// "<" and the next ">". The rest from a "<" that is never closed stays.
[[nodiscard]] std::string StripHTML(std::string_view text);

}  // namespace media
