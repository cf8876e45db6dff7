#include "platform/gd/gd_image_resizer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "automation/run_time_error.h"
#include "support/fake_platform.h"
#include "support/pictures.h"

namespace platform {
namespace {

using automation::RunTimeError;
using support::BmpHeader;
using support::JpegKind;
using support::PngColour;
using support::ShownPicture;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr support::PictureSize kSize{.width = 120, .height = 60};
constexpr std::uint32_t kWhite = 0xFFFFFF;

struct Picture {
    const char* name;
    std::string bytes;
};

std::vector<Picture> pictures() {
    const std::string jpeg = support::jpeg_picture(kSize);
    return {
        {"PNG, grey of 1 bit", png_picture(kSize, PngColour::Grey, 1)},
        {"PNG, grey of 16 bits", png_picture(kSize, PngColour::Grey, 16)},
        {"PNG, RGB", png_picture(kSize, PngColour::Rgb)},
        {"PNG, palette of 2 bits", png_picture(kSize, PngColour::Palette, 2)},
        {"PNG, grey and alpha", png_picture(kSize, PngColour::GreyAlpha)},
        {"PNG, RGB and alpha of 16 bits", png_picture(kSize, PngColour::RgbAlpha, 16)},
        {"GIF of 2 colours", support::gif_picture(kSize, 1, "87a")},
        {"GIF of 256 colours", support::gif_picture(kSize, 8)},
        {"BMP of 1 bit", support::bmp_picture(kSize, 1)},
        {"BMP of 4 bits", support::bmp_picture(kSize, 4)},
        {"BMP of 8 bits with the older header", bmp_picture(kSize, 8, BmpHeader::Core)},
        {"BMP of 24 bits", support::bmp_picture(kSize, 24)},
        {"BMP of 32 bits, V5", bmp_picture(kSize, 32, BmpHeader::V5)},
        {"JPEG, baseline", jpeg},
        {"JPEG, progressive", support::jpeg_picture(kSize, JpegKind::Progressive)},
        {"JPEG with EXIF", support::with_exif(support::with_exif(jpeg, 65537), 9000)},
    };
}

class GdImageResizerTest : public testing::Test {
  protected:
    GdImageResizerTest() { machine_.files.put_folder("C:\\"); }

    // The whole way, with the copy at C:\copy and this extension.
    std::string resized(const std::string& bytes, double width, const std::string& extension) {
        machine_.files.put("C:\\a", bytes);
        const std::unique_ptr<host::ImageResize> component = resizer_.create();
        component->LoadFromFile("C:\\a");
        component->set_Width(width);
        component->DoResize();
        component->SaveToFile("C:\\copy" + extension);
        return machine_.files.read("C:\\copy" + extension);
    }

    // "5 what is wrong"; "none" when all goes well.
    std::string error_of(const std::string& bytes, double width = 40,
                         const std::string& extension = ".jpg") {
        try {
            resized(bytes, width, extension);
        } catch (const RunTimeError& error) {
            return std::to_string(error.number()) + " " + error.description();
        }
        return "none";
    }

    support::FakeMachine machine_;
    GdImageResizer resizer_{machine_.files};
};

TEST_F(GdImageResizerTest, ReadsAllFormatsAndWritesWhatTheExtensionSays) {
    const struct {
        const char* extension;
        std::string signature;
    } targets[] = {
        {".jpg", "\xFF\xD8\xFF"}, {".jpeg", "\xFF\xD8\xFF"}, {".GIF", "GIF8"}, {".png", "\x89PNG"},
        {".bmp", "BM"},
    };

    for (const Picture& picture : pictures()) {
        for (const auto& target : targets) {
            SCOPED_TRACE(std::string(picture.name) + " to " + target.extension);
            const std::string copy = resized(picture.bytes, 40, target.extension);
            EXPECT_THAT(copy, StartsWith(target.signature));
            const ShownPicture shown = support::shown_by(copy);
            EXPECT_EQ(shown.size.width, 40U);
            EXPECT_EQ(shown.size.height, 20U);
            EXPECT_LT(shown.left & 0xFFU, 10U);
            EXPECT_GT(shown.right & 0xFFU, 245U);
        }
    }
}

TEST_F(GdImageResizerTest, WidthIsRoundedAndTheShapeKept) {
    const struct {
        support::PictureSize size;
        double width;
        support::PictureSize expected;
    } rows[] = {{{120, 60}, 120, {120, 60}}, {{120, 60}, 33.4, {33, 16}},
                {{120, 60}, 33.6, {34, 17}}, {{120, 60}, 0.2, {1, 1}},
                {{400, 1}, 100, {100, 1}},   {{3, 900}, 1, {1, 300}},
                {{120, 60}, 240, {240, 120}}};

    for (const auto& row : rows) {
        const std::string copy = resized(png_picture(row.size, PngColour::Grey), row.width, ".png");
        const ShownPicture shown = support::shown_by(copy);
        EXPECT_EQ(shown.size.width, row.expected.width) << row.width;
        EXPECT_EQ(shown.size.height, row.expected.height) << row.width;
    }
}

TEST_F(GdImageResizerTest, TransparentPartsBecomeBlack) {
    // Colour 255 of the GIF, its white, is declared transparent.
    constexpr std::size_t kBehindColours = 13 + 3 * 256;
    std::string gif = support::gif_picture(kSize);
    gif.insert(kBehindColours, std::string("!\xF9\x04\x01\0\0\xFF\0", 8));
    for (const char* const extension : {".png", ".gif", ".jpg"}) {
        const ShownPicture shown = support::shown_by(resized(gif, 120, extension));
        EXPECT_LT(shown.right & 0xFFU, 10U) << extension;
    }
    const ShownPicture opaque =
        support::shown_by(resized(png_picture(kSize, PngColour::RgbAlpha), 120, ".png"));
    EXPECT_EQ(opaque.right, kWhite);
}

TEST_F(GdImageResizerTest, HugePicturesAreRefusedBeforeMemoryIsTaken) {
    const std::string png = png_picture(kSize, PngColour::Rgb);
    const std::string jpeg = support::jpeg_picture(kSize);
    const std::size_t frame = frame_of(jpeg, JpegKind::Baseline);
    const std::string gif = support::gif_picture(kSize);
    const std::string bmp = support::bmp_picture(kSize);
    const Picture rows[] = {
        {"PNG", support::with_png_size(png, {.width = 60000, .height = 60000})},
        {"PNG of the last size",
         support::with_png_size(png, {.width = 0xFFFFFFFF, .height = 0xFFFFFFFF})},
        {"JPEG", std::string(jpeg).replace(frame + 5, 4, "\xEA\x60\xEA\x60")},
        {"JPEG behind two marks and EXIF",
         support::with_exif(
             "\xFF\xD8\xFF" + std::string(jpeg).replace(frame + 5, 4, "\xEA\x60\xEA\x60").substr(2),
             5000)},
        {"GIF", std::string(gif).replace(6, 4, "\xFF\xFF\xFF\xFF")},
        {"BMP", std::string(bmp).replace(18, 8, std::string("\x60\xEA\0\0\x60\xEA\0\0", 8))},
        {"BMP from the top down",
         std::string(bmp).replace(18, 8, std::string("\x60\xEA\0\0\0\0\0\x80", 8))},
    };
    for (const Picture& row : rows) {
        EXPECT_THAT(error_of(row.bytes),
                    AllOf(StartsWith("7 Pictures: C:\\a has "), HasSubstr(" pixels, more than ")))
            << row.name;
    }
    EXPECT_EQ(error_of(support::with_png_size(png, {.width = 60000, .height = 60000})),
              "7 Pictures: C:\\a has 60000 x 60000 pixels, more than 50000000");
    EXPECT_THAT(error_of(png, 100000), StartsWith("7 "));
    EXPECT_THAT(error_of(std::string(kLargestPictureFile + 1, ' ')),
                HasSubstr(" bytes, more than "));
}

TEST_F(GdImageResizerTest, PictureThatIsCutOffIsAnError) {
    for (const Picture& picture : pictures()) {
        for (const std::size_t part : {0U, 1U, 4U, 10U, 50U, 90U}) {
            const std::string bytes = picture.bytes.substr(0, picture.bytes.size() * part / 100);
            EXPECT_THAT(error_of(bytes), StartsWith("5 Pictures: C:\\a is "))
                << picture.name << ", " << part << " %";
        }
    }
    EXPECT_EQ(error_of("plain text"), "5 Pictures: C:\\a is no picture, or is cut off");
}

TEST_F(GdImageResizerTest, DamagedPictureIsAnErrorOrAPicture) {
    for (const Picture& picture : pictures()) {
        for (std::uint32_t seed = 1; seed <= 60; ++seed) {
            EXPECT_THAT(error_of(support::damaged(picture.bytes, seed), 10),
                        testing::AnyOf("none", StartsWith("5 "), StartsWith("7 ")))
                << picture.name << ", seed " << seed;
        }
    }
}

TEST_F(GdImageResizerTest, RefusesWhatMakesNoSense) {
    const std::string png = png_picture(kSize, PngColour::Rgb);
    for (const double width : {0.0, -3.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(error_of(png, width), "5 Pictures: a width is positive");
    }
    EXPECT_EQ(error_of(png, 40, ".txt"),
              "5 Pictures: no format is known for the name C:\\copy.txt");

    const std::unique_ptr<host::ImageResize> component = resizer_.create();
    EXPECT_THROW(component->DoResize(), RunTimeError);
    EXPECT_THROW(component->SaveToFile("C:\\copy.jpg"), RunTimeError);
    EXPECT_THROW(component->LoadFromFile("C:\\none.jpg"), RunTimeError);
}

}  // namespace
}  // namespace platform
