#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace home {

// "@SERVER_PORT@" to "8080": what stands in the place of a mark in a fresh settings file. UTF-8.
using Placeholders = std::map<std::string, std::string>;

// Makes the folders of a home and copies what lies below `data_dir` into it, where no such file is
// yet: a missing home comes up whole, an existing one is completed and nothing in it is changed.
// Marks are replaced in the files Config/*.ini alone. A file appears whole or not at all.
// Throws: RunTimeError 70, 61, 53 or 57 with the path.
void lay_out_home(const std::filesystem::path& home, const std::filesystem::path& data_dir,
                  const Placeholders& defaults);

}  // namespace home
