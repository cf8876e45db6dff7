#pragma once

#include <filesystem>

#include "home/sqlite/database.h"

namespace home {

// Opens the file in which a home keeps the users and menus of its pages, and makes it with a few
// rows to start from if it is missing: the person at this machine with full rights, a guest, the
// pages of a fresh home. Texts compare without regard to case. Throws: RunTimeError with the file's
// name: 57 for one that is damaged or that some other program has made, 70 or 61 as `Database`.
[[nodiscard]] Database open_menu_database(const std::filesystem::path& file);

}  // namespace home
