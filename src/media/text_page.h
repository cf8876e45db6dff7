#pragma once

#include <cstdint>
#include <string>

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

}  // namespace media
