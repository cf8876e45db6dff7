#pragma once

#include <cstdint>
#include <string_view>

#include "core/instance.h"
#include "media/image_formats.h"

namespace media {

// Reads the size of a picture from the first 64 kB of its file, without decoding it. Made anew for
// each file by whoever asks.
class ImageInfo {
  public:
    explicit ImageInfo(core::Instance& instance) : instance_(instance) {}

    [[nodiscard]] std::int32_t Width() const noexcept { return properties_.Width; }

    [[nodiscard]] std::int32_t Height() const noexcept { return properties_.Height; }

    [[nodiscard]] std::uint8_t Depth() const noexcept { return properties_.Depth; }

    [[nodiscard]] eImageType ImageType() const noexcept { return properties_.ImageType; }

    // Sets all four; a file that is no picture leaves them 0. A failure is logged, and what was
    // found before it stands.
    void ReadImageInfo(std::string_view sFileName);

  private:
    core::Instance& instance_;
    ImageProperties properties_;
};

}  // namespace media
