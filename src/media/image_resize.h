#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/instance.h"

namespace host {
class ImageResizer;
}

namespace media {

// Who fetches a picture: a unit, whose memory is small, or another browser.
enum class SlideClient : std::uint8_t { Velora, Other };

// A picture of a slideshow: a file below the folder `base`, and its size in pixels.
struct Slide {
    std::string_view file;
    std::string_view base;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

// The path, below the server's root, of what the client is to load in place of the slide: for a
// unit the file itself, or a smaller copy of a JPEG or GIF of `MaxPixels` or more; for others a
// copy of full size. Copies lie in the temporary folder, from which they vanish after minutes.
// Blocks the thread while a copy is made. Without the resizing component the file is never
// changed. A failure is logged and gives "".
[[nodiscard]] std::string Resize(core::Instance& instance, host::ImageResizer& resizer,
                                 const Slide& slide, SlideClient client);

}  // namespace media
