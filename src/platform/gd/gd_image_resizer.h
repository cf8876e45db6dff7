#pragma once

#include <cstdint>
#include <memory>

#include "host/image_resize.h"

namespace host {
class Files;
}

namespace platform {

// Pictures by libgd. Reads PNG, GIF (its first frame), BMP and JPEG, told apart by their content;
// writes what the extension ".png", ".gif", ".bmp", ".jpg" or ".jpeg" says. Transparent parts
// become black, and nothing but the picture is copied. A picture that is cut off is an error, never
// half a picture; one that is damaged within may be an error or have a blemish. Owned by the
// program; `files`, which reads and takes all files, outlives it and all objects that it makes.
class GdImageResizer final : public host::ImageResizer {
  public:
    explicit GdImageResizer(host::Files& files) : files_(files) {}

    [[nodiscard]] std::unique_ptr<host::ImageResize> create() override;

  private:
    host::Files& files_;
};

// Larger files, and pictures of more pixels, are not loaded: a pixel takes 4 bytes, for a while 8.
inline constexpr std::int64_t kLargestPictureFile = std::int64_t{64} * 1024 * 1024;
inline constexpr std::int64_t kMostPixels = 50'000'000;

}  // namespace platform
