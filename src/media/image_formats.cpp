#include "media/image_formats.h"

#include <algorithm>
#include <array>

#include "automation/convert.h"

namespace media {

namespace {

// Samples of a pixel by the colour type of a PNG.
struct PngColour {
    std::int32_t type;
    std::int32_t samples;
};

constexpr std::int32_t kPngPalette = 3;
constexpr std::int32_t kPngPaletteDepth = 8;
constexpr auto kPngColours = std::to_array<PngColour>({{0, 1}, {2, 3}, {4, 2}, {6, 4}});

// Only the lower half of the two sizes is read: they are of 32 bits.
void read_png(const ImageHeader& header, ImageProperties& properties) {
    const std::int32_t sample_depth = header.byte(24);
    const std::int32_t colour_type = header.byte(25);
    const auto colour = std::ranges::find(kPngColours, colour_type, &PngColour::type);
    const bool has_palette = colour_type == kPngPalette;
    if (!has_palette && colour == kPngColours.end()) {
        return;
    }
    properties.ImageType = eImageType::itPNG;
    properties.Depth =
        automation::checked_byte(has_palette ? kPngPaletteDepth : sample_depth * colour->samples);
    properties.Width = header.number(19, 18);
    properties.Height = header.number(23, 22);
}

void read_gif(const ImageHeader& header, ImageProperties& properties) {
    constexpr std::int32_t kColourTableSize = 7;
    properties.ImageType = eImageType::itGIF;
    properties.Width = header.number(6, 7);
    properties.Height = header.number(8, 9);
    properties.Depth = automation::checked_byte((header.byte(10) & kColourTableSize) + 1);
}

void read_bmp(const ImageHeader& header, ImageProperties& properties) {
    properties.ImageType = eImageType::itBMP;
    properties.Width = header.number(18, 19);
    properties.Height = header.number(22, 23);
    properties.Depth = automation::checked_byte(header.byte(28));
}

struct Format {
    std::string_view signature;
    void (*read)(const ImageHeader& header, ImageProperties& properties);
};

constexpr auto kFormats = std::to_array<Format>({
    {"\x89PN", read_png},
    {"GIF", read_gif},
    {"BM", read_bmp},
});

}  // namespace

void read_image_properties(std::string_view bytes, ImageProperties& properties) {
    const ImageHeader header(bytes);
    for (const Format& format : kFormats) {
        if (header.starts_with(format.signature)) {
            format.read(header, properties);
            break;
        }
    }
    if (properties.ImageType == eImageType::itUNKNOWN) {
        read_jpeg_properties(header, properties);
    }
}

}  // namespace media
