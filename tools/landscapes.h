#pragma once

#include <string>
#include <vector>

#include "shapes.h"

namespace tools {

// A picture for the slideshow of a fresh home.
struct Landscape {
    std::string file;
    Pixels pixels;
};

[[nodiscard]] std::vector<Landscape> landscapes();

}  // namespace tools
