#pragma once

#include <cstdint>
#include <string>

#include "core/instance.h"
#include "media/image_resize.h"

namespace slideshow {

// A picture as a page of the slideshow shows it.
struct ShownPicture {
    std::string file{};       // below `base`
    std::string server{};     // scheme, address and port that it is fetched from
    std::string base{};       // folder
    std::int32_t width = -1;  // pixels, -1 unknown
    std::int32_t height = -1;
    std::string dwell{};  // seconds until the next slide
    media::SlideClient client{};
};

// The page of one picture, fitted into the 620 by 460 pixels of a unit's screen by its relatively
// larger side, or behind the page as its wallpaper. The page comes back for the next slide after
// the dwell; a touch on the picture leads to the links page. May make a smaller copy of the
// picture. A failure is logged and gives "".
[[nodiscard]] std::string BuildSlideshow(core::Instance& instance, const ShownPicture& picture);

// Reads the size of a picture from its file, unless it is known or no page needs it.
void read_size(core::Instance& instance, const std::string& base, const std::string& file,
               std::int32_t& width, std::int32_t& height);

}  // namespace slideshow
