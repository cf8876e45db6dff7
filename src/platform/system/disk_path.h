#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// Names of the logic and names on disk. The logic separates with backslashes or slashes, writes
// code page 1252 and does not care for case; the disk has slashes, UTF-8 and case.
namespace platform {

// The file or folder that `path` means. Each component is taken as it is written where that exists,
// else as the first name of the folder, in byte order, that is equal without regard to case; what
// is not there keeps its spelling, so that it can be made. "." and ".." are resolved by name,
// before anything is looked up. Absent for names that no disk here can carry: an empty name, one
// with a drive letter or with a zero byte.
[[nodiscard]] std::optional<std::filesystem::path> disk_path(std::string_view path);

// A name on disk as the logic sees it; absent when it could not be found again: characters outside
// the code page, malformed UTF-8, a backslash.
[[nodiscard]] std::optional<std::string> logic_name(const std::filesystem::path& name);

}  // namespace platform
