#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Text tools of the page conversion. Positions count from 1, and 0 is "not there".
namespace pages {

inline constexpr std::string_view kLineEnd = "\r\n";

// First place of `part` in `text` from a position on, which may lie behind the text.
// Requires: from > 0, a part that is not empty.
[[nodiscard]] std::size_t in_str(std::size_t from, std::string_view text, std::string_view part);

// The same without regard to case.
[[nodiscard]] std::size_t in_str_any_case(std::size_t from, std::string_view text,
                                          std::string_view part);

// The piece from one position up to another, which does not belong to it; what lies behind the
// text is left out. Throws: RunTimeError 5 for an end in front of the start.
[[nodiscard]] std::string_view between(std::string_view text, std::size_t from, std::size_t end);

// All from a position on, "" behind the text.
[[nodiscard]] std::string_view from_position(std::string_view text, std::size_t from);

}  // namespace pages
