#pragma once

#include <span>
#include <string>
#include <string_view>

namespace home {

// The end of an error text about a name that there is not: "; the nearest are a, b", or, with none
// that is near, "; there are a, b, c", or "; there are none". Long lists are cut with "...".
[[nodiscard]] std::string nearest_text(std::span<const std::string> names, std::string_view name);

}  // namespace home
