#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace automation {

// The fields between separators; always at least one.
[[nodiscard]] std::vector<std::string> split(std::string_view text, char separator);
[[nodiscard]] std::vector<std::string> split(std::string_view text, std::string_view separator);

// Every occurrence, found from the left; `what` must not be empty.
[[nodiscard]] std::string replace_all(std::string_view text, std::string_view what,
                                      std::string_view with);

[[nodiscard]] std::string join(const std::vector<std::string>& fields, std::string_view separator);

}  // namespace automation
