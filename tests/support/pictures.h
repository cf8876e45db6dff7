#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Pictures for tests, made on the spot. All show the same: the left half black, the right half
// white.
namespace support {

struct PictureSize {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
};

// By the numbers that the format has for them.
enum class PngColour : std::uint8_t { Grey = 0, Rgb = 2, Palette = 3, GreyAlpha = 4, RgbAlpha = 6 };

// `bits` of a sample: 8 or 16; 1, 2 and 4 too for Grey, and 1 to 8 for Palette. All is opaque.
[[nodiscard]] std::string png_picture(PictureSize size, PngColour colour, std::uint32_t bits = 8);

// A colour table of 2 to the power of `table_bits`, 1 to 8, colours; `version` is "87a" or "89a".
[[nodiscard]] std::string gif_picture(PictureSize size, std::uint32_t table_bits = 8,
                                      std::string_view version = "89a");

// By the bytes of the header.
enum class BmpHeader : std::uint8_t { Core = 12, Info = 40, Os2 = 64, V4 = 108, V5 = 124 };

// `bits` of a pixel: 1, 4, 8, 24 or 32.
[[nodiscard]] std::string bmp_picture(PictureSize size, std::uint32_t bits = 24,
                                      BmpHeader header = BmpHeader::Info);

enum class JpegKind : std::uint8_t { Baseline, Progressive };

[[nodiscard]] std::string jpeg_picture(PictureSize size, JpegKind kind = JpegKind::Baseline);

// The same file with an EXIF segment behind its start: `total` bytes with its marker, at least 10
// and at most 65537. A thumbnail, a small JPEG, fills it as far as it goes.
[[nodiscard]] std::string with_exif(const std::string& jpeg, std::size_t total);

// Where the frame's marker stands in a file of `jpeg_picture`.
[[nodiscard]] std::size_t frame_of(const std::string& jpeg, JpegKind kind);

// A few bytes other than they were, always the same for the same seed.
[[nodiscard]] std::string damaged(std::string bytes, std::uint32_t seed);

// A PNG's first chunk that tells another size, with a sum that is right.
[[nodiscard]] std::string with_png_size(std::string png, PictureSize size);

// What one sees of a picture of any format: the colours, 0xRRGGBB, in the middle of each half.
struct ShownPicture {
    PictureSize size;
    std::uint32_t left = 0;
    std::uint32_t right = 0;
};

// Throws: std::invalid_argument for what is no picture.
[[nodiscard]] ShownPicture shown_by(std::string bytes);

}  // namespace support
