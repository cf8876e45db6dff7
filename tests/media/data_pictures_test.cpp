#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "devices/status_table.h"
#include "media/image_formats.h"

// What a fresh home shows: the pictures that pages name must lie there.
namespace media {
namespace {

namespace fs = std::filesystem;

ImageProperties properties_of(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    ImageProperties properties;
    read_image_properties(bytes, properties);
    return properties;
}

TEST(DataPictures, EveryStatusHasItsIcon) {
    const fs::path icons = fs::path(ZYN_DATA_FOLDER) / "HTML/images/Velora";
    for (std::size_t index = 0; index < devices::kStatusCount; ++index) {
        const std::string name(devices::DeviceImages(static_cast<std::int16_t>(index)));
        const ImageProperties icon = properties_of(icons / name);
        EXPECT_EQ(icon.ImageType, eImageType::itGIF) << name;
        EXPECT_EQ(icon.Width, 24) << name;
        EXPECT_EQ(icon.Height, 24) << name;
    }
    EXPECT_EQ(properties_of(icons / "blank3.gif").Width, 3);
    EXPECT_EQ(properties_of(icons / "blank5x5.gif").Width, 5);
}

TEST(DataPictures, SlideshowHasPicturesForTheScreen) {
    int count = 0;
    for (const auto& entry :
         fs::directory_iterator(fs::path(ZYN_DATA_FOLDER) / "HTML/slides/pictures")) {
        const ImageProperties picture = properties_of(entry.path());
        EXPECT_EQ(picture.ImageType, eImageType::itJPEG) << entry.path();
        EXPECT_EQ(picture.Width, 800) << entry.path();
        EXPECT_EQ(picture.Height, 480) << entry.path();
        ++count;
    }
    EXPECT_EQ(count, 3);
}

}  // namespace
}  // namespace media
