#pragma once

#include <string>
#include <vector>

#include "shapes.h"

namespace tools {

// A picture of the status table; more than one frame when it blinks.
struct Icon {
    std::string file;
    std::vector<Drawing> frames;
};

[[nodiscard]] std::vector<Icon> icons();

}  // namespace tools
