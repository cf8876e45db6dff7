#pragma once

#include <filesystem>
#include <string_view>

#include "automation/run_time_error.h"

namespace home {

// The run-time error of a failed system call: 70 no permission, 61 disk full, 53 no such file,
// 57 for the rest. `error` is the call's errno; the description reads "action path: reason".
[[nodiscard]] automation::RunTimeError system_failure(int error, std::string_view action,
                                                      const std::filesystem::path& path);

}  // namespace home
