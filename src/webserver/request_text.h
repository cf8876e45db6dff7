#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace webserver {

inline constexpr std::string_view kLineEnd = "\r\n";
inline constexpr std::string_view kHeaderEnd = "\r\n\r\n";

// Undoes the coding of form values, tolerantly: "+" is a blank; "%" and the two characters behind
// it are one character. Only "0" to "9" and "A" to "F" are digits, any other counts as minus one
// there, and codes below 32 become blanks: "%2F" is "/", but "%2f" is a blank.
[[nodiscard]] std::string decoded(std::string_view text);

// The pieces between the delimiters, at least one; they refer to `text`.
[[nodiscard]] std::vector<std::string_view> split(std::string_view text,
                                                  std::string_view delimiter);

// Whether a POST still lacks the end of its header, or of the body whose length it tells. Never for
// other requests, without a length, and behind a megabyte.
[[nodiscard]] bool lacks_more_of_post(std::string_view text);

[[nodiscard]] std::string without_line_ends(std::string_view text);

}  // namespace webserver
