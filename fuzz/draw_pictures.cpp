#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "support/pictures.h"

// Draws small pictures of all kinds into a folder, for the targets that read pictures to start
// from: fuzz_draw_pictures FOLDER
namespace {

using support::PictureSize;

constexpr PictureSize kSize{16, 9};

void draw_all(const std::filesystem::path& folder) {
    const auto put = [&folder](const std::string& name, const std::string& bytes) {
        std::ofstream(folder / name, std::ios::binary) << bytes;
    };
    using enum support::PngColour;
    for (const auto colour : {Grey, Rgb, Palette, GreyAlpha, RgbAlpha}) {
        put("png" + std::to_string(static_cast<int>(colour)), support::png_picture(kSize, colour));
    }
    for (const std::uint32_t table_bits : {1U, 4U, 8U}) {
        put("gif" + std::to_string(table_bits), support::gif_picture(kSize, table_bits));
    }
    using enum support::BmpHeader;
    for (const auto header : {Core, Info, Os2, V4, V5}) {
        put("bmp" + std::to_string(static_cast<int>(header)),
            support::bmp_picture(kSize, 24, header));
    }
    for (const std::uint32_t bits : {1U, 4U, 8U, 32U}) {
        put("bmp_bits" + std::to_string(bits), support::bmp_picture(kSize, bits));
    }
    const std::string baseline = support::jpeg_picture(kSize);
    put("jpeg", baseline);
    put("jpeg_exif", support::with_exif(baseline, 2000));
    put("jpeg_progressive", support::jpeg_picture(kSize, support::JpegKind::Progressive));
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: fuzz_draw_pictures FOLDER\n";
        return 1;
    }
    draw_all(arguments[1]);
    return 0;
}
