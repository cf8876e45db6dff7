#pragma once

#include <filesystem>
#include <vector>

#include "shapes.h"

namespace tools {

// Write the file anew. Throw: std::runtime_error when it cannot be written.

// Frames of one size, shown in turn for half a second each; a single one stands still.
void write_gif(const std::filesystem::path& file, const std::vector<Pixels>& frames);

// Transparent pixels are black.
void write_jpeg(const std::filesystem::path& file, const Pixels& pixels);

}  // namespace tools
