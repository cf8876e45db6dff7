#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace home {

// Moments as HTTP writes them, to the second and in UTC: "Tue, 24 Nov 2026 16:03:03 GMT".
[[nodiscard]] std::string http_date(std::chrono::sys_seconds moment);

// Absent for anything that is not of this form; the two older forms are not sent by anyone.
[[nodiscard]] std::optional<std::chrono::sys_seconds> parse_http_date(std::string_view text);

}  // namespace home
