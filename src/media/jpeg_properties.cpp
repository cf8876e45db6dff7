#include <optional>

#include "automation/convert.h"
#include "media/image_formats.h"

namespace media {

namespace {

constexpr std::int32_t kMark = 255;
constexpr std::int32_t kStartOfImage = 216;

// So that all of a frame's header lies in what has been read.
constexpr std::size_t kEndOfSearch = kImageHeaderBytes - 11;

// Markers that begin a frame, of all kinds of compression; the gaps are tables and extensions.
bool begins_frame(std::int32_t marker) {
    return (marker >= 192 && marker <= 195) || (marker >= 197 && marker <= 199) ||
           (marker >= 201 && marker <= 203) || (marker >= 205 && marker <= 207);
}

// The mark that follows the start of the image.
std::optional<std::size_t> first_mark(const ImageHeader& header) {
    for (std::size_t at = 0; at < kEndOfSearch; ++at) {
        if (header.byte(at) == kMark && header.byte(at + 1) == kStartOfImage &&
            header.byte(at + 2) == kMark) {
            return at + 2;
        }
    }
    return std::nullopt;
}

// The marker of the first frame, from one segment to the next.
std::optional<std::size_t> frame_marker(const ImageHeader& header, std::size_t from) {
    std::size_t at = from;
    while (at < kEndOfSearch) {
        const std::size_t marker = at + 1;
        if (header.byte(at) != kMark || header.byte(marker) == kMark) {
            ++at;
        } else if (begins_frame(header.byte(marker))) {
            return marker;
        } else {
            at = marker + static_cast<std::size_t>(header.number(marker + 2, marker + 1));
        }
    }
    return std::nullopt;
}

}  // namespace

void read_jpeg_properties(const ImageHeader& header, ImageProperties& properties) {
    constexpr std::int32_t kBitsPerSample = 8;
    const std::optional<std::size_t> first = first_mark(header);
    const std::optional<std::size_t> marker = first ? frame_marker(header, *first) : std::nullopt;
    if (!marker) {
        return;
    }
    properties.ImageType = eImageType::itJPEG;
    properties.Height = header.number(*marker + 5, *marker + 4);
    properties.Width = header.number(*marker + 7, *marker + 6);
    properties.Depth = automation::checked_byte(header.byte(*marker + 8) * kBitsPerSample);
}

}  // namespace media
