#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

#include "automation/run_time_error.h"

namespace platform {

// The run-time error of a failed file operation: the number that belongs to `error`, described as
// "Disk full: \home\x\a.wav". `path` is the name that the logic used, `on_disk` what it stands for,
// absent for a name that no disk can carry; a missing file in a missing folder is error 76.
[[nodiscard]] automation::RunTimeError file_error(
    std::error_code error, std::string_view path,
    const std::optional<std::filesystem::path>& on_disk);

// The same for the `errno` that a system call has just left.
[[nodiscard]] automation::RunTimeError last_file_error(
    std::string_view path, const std::optional<std::filesystem::path>& on_disk);

}  // namespace platform
