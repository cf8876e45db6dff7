#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/utility_settings.h"

namespace slideshow {

// Pictures of one base folder, in three parallel arrays. An empty list has one element without a
// name.
struct PictureList {
    std::vector<std::string> FileNames{""};     // below the base folder, with leading backslash
    std::vector<std::int32_t> FileWidths{-1};   // pixels, -1 until somebody has asked
    std::vector<std::int32_t> FileHeights{-1};  // pixels

    [[nodiscard]] bool is_empty() const { return FileNames.front().empty(); }

    void add(std::string name) {
        if (is_empty()) {
            FileNames.front() = std::move(name);
            return;
        }
        FileNames.push_back(std::move(name));
        FileWidths.push_back(-1);
        FileHeights.push_back(-1);
    }
};

// The main list, of the folder `SlideshowPath`, and one of the folders in each group's rows. A
// load of the settings fills them.
struct PictureLists {
    PictureList SlideshowFiles;
    std::array<PictureList, core::kSlideGroups> groups;
};

}  // namespace slideshow
