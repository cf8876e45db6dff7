#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace automation {

// Within a value in single quotes an apostrophe means something; `HTMLEncode` of ASP leaves it.
enum class Apostrophe : std::uint8_t { Keep, Escape };

// The characters that mean something in HTML, "&", "<", ">" and the quotes, as entities.
[[nodiscard]] std::string html_encoded(std::string_view text,
                                       Apostrophe apostrophe = Apostrophe::Keep);

}  // namespace automation
