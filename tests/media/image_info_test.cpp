#include "media/image_info.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "automation/run_time_error.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"
#include "support/pictures.h"

namespace media {

bool operator==(const ImageProperties& left, const ImageProperties& right) {
    return left.Width == right.Width && left.Height == right.Height && left.Depth == right.Depth &&
           left.ImageType == right.ImageType;
}

void PrintTo(const ImageProperties& properties, std::ostream* out) {
    *out << properties.Width << 'x' << properties.Height << 'x' << int{properties.Depth} << " type "
         << static_cast<int>(properties.ImageType);
}

namespace {

using enum eImageType;
using support::BmpHeader;
using support::JpegKind;
using support::PngColour;
using support::with_exif;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

constexpr support::PictureSize kSize{.width = 300, .height = 20};
constexpr ImageProperties kUnknown{};

class ImageInfoTest : public testing::Test {
  protected:
    ImageInfoTest() { instance_.attach(host_, &host_); }

    ImageProperties read(const std::string& bytes) {
        machine_.files.put("C:\\a", bytes);
        info_.ReadImageInfo("C:\\a");
        return {info_.Width(), info_.Height(), info_.Depth(), info_.ImageType()};
    }

    support::FakeMachine machine_;
    support::MemoryHost host_;
    core::Instance instance_{machine_.platform()};
    ImageInfo info_{instance_};
};

struct Row {
    const char* name;
    std::string bytes;
    ImageProperties expected;
};

// The file with one byte changed.
std::string with_byte(std::string bytes, std::size_t at, char byte) {
    bytes.at(at) = byte;
    return bytes;
}

TEST_F(ImageInfoTest, PngTellsSizeAndBitsOfAllSamples) {
    const Row rows[] = {
        {"grey, 1 bit", png_picture(kSize, PngColour::Grey, 1), {300, 20, 1, itPNG}},
        {"grey, 16 bits", png_picture(kSize, PngColour::Grey, 16), {300, 20, 16, itPNG}},
        {"RGB", png_picture(kSize, PngColour::Rgb), {300, 20, 24, itPNG}},
        {"RGB, 16 bits", png_picture(kSize, PngColour::Rgb, 16), {300, 20, 48, itPNG}},
        {"palette", png_picture(kSize, PngColour::Palette, 2), {300, 20, 8, itPNG}},
        {"grey and alpha", png_picture(kSize, PngColour::GreyAlpha), {300, 20, 16, itPNG}},
        {"RGB and alpha", png_picture(kSize, PngColour::RgbAlpha, 16), {300, 20, 64, itPNG}},
        {"no such colour type", with_byte(png_picture(kSize, PngColour::Rgb), 25, '\x05'),
         kUnknown},
        {"only the lower half of a size counts",
         support::with_png_size(png_picture(kSize, PngColour::Rgb),
                                {.width = 65536 + 7, .height = 65536}),
         {7, 0, 24, itPNG}},
        {"three bytes of the signature are enough", "\x89PN", {0, 0, 0, itPNG}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(read(row.bytes), row.expected) << row.name;
    }
    EXPECT_THAT(host_.log(), IsEmpty());
}

TEST_F(ImageInfoTest, GifTellsTheSizeOfItsScreenAndOfItsColourTable) {
    for (std::uint8_t bits = 1; bits <= 8; ++bits) {
        const ImageProperties expected{300, 20, bits, itGIF};
        EXPECT_EQ(read(support::gif_picture(kSize, bits, "87a")), expected);
        EXPECT_EQ(read(support::gif_picture(kSize, bits, "89a")), expected);
    }
    const std::string largest = support::gif_picture(kSize).replace(6, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(read(largest), (ImageProperties{65535, 65535, 8, itGIF}));
}

TEST_F(ImageInfoTest, BmpIsReadAsIfItsHeaderWereOfTheUsualKind) {
    const std::string core = bmp_picture(kSize, 24, BmpHeader::Core);
    const Row rows[] = {
        {"1 bit", support::bmp_picture(kSize, 1), {300, 20, 1, itBMP}},
        {"8 bits", support::bmp_picture(kSize, 8), {300, 20, 8, itBMP}},
        {"24 bits", support::bmp_picture(kSize), {300, 20, 24, itBMP}},
        {"OS/2", support::bmp_picture(kSize, 24, BmpHeader::Os2), {300, 20, 24, itBMP}},
        {"V4", support::bmp_picture(kSize, 32, BmpHeader::V4), {300, 20, 32, itBMP}},
        {"V5", support::bmp_picture(kSize, 32, BmpHeader::V5), {300, 20, 32, itBMP}},
        {"-20 rows, from the top down",
         support::bmp_picture(kSize).replace(22, 4, "\xEC\xFF\xFF\xFF"),
         {300, 65516, 24, itBMP}},
        {"the older header has one plane at the place of the height, and a pixel for the depth",
         core,
         {300, 1, 0, itBMP}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(read(row.bytes), row.expected) << row.name;
    }
}

TEST_F(ImageInfoTest, JpegIsFoundByItsFrame) {
    const std::string baseline = support::jpeg_picture(kSize);
    const std::string progressive = support::jpeg_picture(kSize, JpegKind::Progressive);
    const std::size_t frame = frame_of(baseline, JpegKind::Baseline);
    const ImageProperties found{300, 20, 24, itJPEG};
    const Row rows[] = {
        {"baseline", baseline, found},
        {"progressive", progressive, found},
        {"grey", with_byte(baseline, frame + 9, '\x01'), {300, 20, 8, itJPEG}},
        {"EXIF with a thumbnail", with_exif(progressive, 20000), found},
        {"two segments", with_exif(with_exif(baseline, 30000), 30000), found},
        {"behind something else", "\r\n\xFF\xD8 " + baseline, found},
        {"fill bytes before a marker", std::string(baseline).insert(frame, 5, '\xFF'), found},
        {"last place of a frame", with_exif(baseline, 65524 - frame), found},
        {"one place too far", with_exif(baseline, 65525 - frame), kUnknown},
        {"no frame", baseline.substr(0, frame), kUnknown},
        {"a start alone", "\xFF\xD8\xFF", kUnknown},
        {"a start at the end of what is read", std::string(65533, ' ') + baseline, kUnknown},
        {"a segment without length", std::string("\xFF\xD8\xFF\xE0\0\0", 6) + baseline.substr(2),
         found},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(read(row.bytes), row.expected) << row.name;
    }
    EXPECT_THAT(host_.log(), IsEmpty());
}

TEST_F(ImageInfoTest, EveryKindOfFrameCounts) {
    const std::string jpeg = support::jpeg_picture(kSize);
    const std::size_t marker = frame_of(jpeg, JpegKind::Baseline) + 1;
    std::vector<int> kinds;
    for (int kind = 0xC0; kind <= 0xCF; ++kind) {
        if (read(with_byte(jpeg, marker, static_cast<char>(kind))).ImageType == itJPEG) {
            kinds.push_back(kind);
        }
    }
    EXPECT_THAT(kinds, ElementsAre(0xC0, 0xC1, 0xC2, 0xC3, 0xC5, 0xC6, 0xC7, 0xC9, 0xCA, 0xCB, 0xCD,
                                   0xCE, 0xCF));
}

TEST_F(ImageInfoTest, DepthThatIsNoByteIsLoggedAndWhatWasFoundBeforeStands) {
    const std::string jpeg = support::jpeg_picture(kSize);
    const std::size_t frame = frame_of(jpeg, JpegKind::Baseline);
    EXPECT_EQ(read(with_byte(jpeg, frame + 9, '\x20')), (ImageProperties{300, 20, 0, itJPEG}));
    EXPECT_EQ(read(with_byte(png_picture(kSize, PngColour::Rgb), 24, '\x56')),
              (ImageProperties{0, 0, 0, itPNG}));
    const auto line = MatchesRegex("zynVelora: ReadImageInfo file C:\\\\a Line [0-9]+ Overflow");
    EXPECT_THAT(host_.log(), ElementsAre(line, line));
}

TEST_F(ImageInfoTest, ForgetsTheFileBefore) {
    ASSERT_EQ(read(support::bmp_picture(kSize)).ImageType, itBMP);
    EXPECT_EQ(read("plain text that is longer than thirty bytes"), kUnknown);
    ASSERT_EQ(read(support::bmp_picture(kSize)).ImageType, itBMP);
    info_.ReadImageInfo("C:\\none.jpg");
    EXPECT_EQ(info_.ImageType(), itUNKNOWN);
    EXPECT_THAT(
        host_.log(),
        ElementsAre(MatchesRegex("zynVelora: ReadImageInfo file C:\\\\none.jpg Line [0-9]+ .+")));
}

TEST(ImageFormats, TakeAnyBytes) {
    const std::string pictures[] = {support::png_picture(kSize, PngColour::Rgb),
                                    support::gif_picture(kSize), support::bmp_picture(kSize),
                                    support::jpeg_picture(kSize),
                                    with_exif(support::jpeg_picture(kSize), 1000)};
    for (const std::string& picture : pictures) {
        for (std::size_t length = 0; length < picture.size(); length += 1 + length / 64) {
            ImageProperties properties;
            EXPECT_NO_THROW(read_image_properties(picture.substr(0, length), properties));
        }
        for (std::uint32_t seed = 1; seed <= 300; ++seed) {
            ImageProperties properties;
            try {
                read_image_properties(support::damaged(picture.substr(0, 700), seed), properties);
            } catch (const automation::RunTimeError& error) {
                EXPECT_TRUE(error.is(automation::ErrorNumber::Overflow)) << seed;
            }
        }
    }
}

}  // namespace
}  // namespace media
