#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Code page 1252, the single-byte page of all the logic's texts, and the edges where other
// encodings begin: UTF-8 at terminals, JSON and web pages of the host, UTF-16 in scripts.
// The table is the one of the Unicode consortium's CP1252.TXT; the five unused bytes map to the
// control characters of the same number.
namespace automation {

[[nodiscard]] std::u16string code_page_to_utf16(std::string_view bytes);
[[nodiscard]] std::string utf16_to_code_page(std::u16string_view units);
[[nodiscard]] std::string code_page_to_utf8(std::string_view bytes);

// A malformed sequence becomes one '?', as does a character that the page does not have.
[[nodiscard]] std::string utf8_to_code_page(std::string_view utf8);

// Case of ASCII and of the page's letters; used by all comparisons without regard to case.
[[nodiscard]] std::string to_lower(std::string_view bytes);
[[nodiscard]] std::string to_upper(std::string_view bytes);
[[nodiscard]] bool equals_ignoring_case(std::string_view left, std::string_view right);

// Position of `part` in `whole` without regard to case, npos when absent.
[[nodiscard]] std::size_t find_ignoring_case(std::string_view whole, std::string_view part);

// Every occurrence without regard to case, found from the left; `what` must not be empty.
[[nodiscard]] std::string replace_ignoring_case(std::string_view text, std::string_view what,
                                                std::string_view with);

}  // namespace automation
