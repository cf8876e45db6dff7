#pragma once

#include <filesystem>

#include "home/sqlite/database.h"

namespace home {

// Opens the file in which a home keeps devices and events, and makes it, whole or not at all, if
// it is missing. Throws: RunTimeError with the file's name: 57 for one that is damaged, that some
// other program has made, or that a newer version of this one has made; 70 or 61 as `Database`.
// None of these is changed.
[[nodiscard]] Database open_home_database(const std::filesystem::path& file);

}  // namespace home
