#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace platform {

enum class PictureFormat : std::uint8_t { Gif, Jpeg, Png, Bmp };

// What a picture file says of itself.
struct PictureFile {
    PictureFormat format{};
    std::int64_t width = 0;  // pixels, as many as a decoder will make room for
    std::int64_t height = 0;
};

// Looks at a whole file without decoding it, so that its size is known before memory is taken for
// it. Absent for what is no picture, and for what ends before its size is told. Decoders of GIF and
// JPEG are content with half a picture; so of a GIF whose first frame, and of a JPEG whose scans
// are cut off it is absent as well.
[[nodiscard]] std::optional<PictureFile> examine_picture(std::string_view bytes);

}  // namespace platform
