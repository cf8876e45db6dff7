#pragma once

#include <string>
#include <string_view>

namespace callerid {

// The lay-out of a telephone number by its length alone: 555-1234, (503) 555-1234 and
// 1503 555 1234 for 7, 10 and 11 characters. All others, and ten that begin with "*", stay as they
// are.
[[nodiscard]] std::string FormatPhoneNumber(std::string_view number);

}  // namespace callerid
