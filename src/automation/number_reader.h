#pragma once

#include <optional>
#include <string_view>

namespace automation {

// As `parse_number`, but tells a number beyond the range of a double apart from a text that is no
// number: it is infinite.
[[nodiscard]] std::optional<double> read_whole_number(std::string_view text);

}  // namespace automation
