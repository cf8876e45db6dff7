#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace home {

// How a settings file on disk spells its characters. Files of older installations are in code page
// 1252, everything that people edit today is UTF-8.
enum class IniEncoding : std::uint8_t { Utf8, CodePage };

// Utf8 when the whole content is well-formed UTF-8 (RFC 3629), which plain ASCII is too.
[[nodiscard]] IniEncoding encoding_of(std::string_view content) noexcept;

// Between the file's bytes and the logic's texts of code page 1252. A character that the page does
// not have reads as '?'.
[[nodiscard]] std::string decode(IniEncoding encoding, std::string_view bytes);
[[nodiscard]] std::string encode(IniEncoding encoding, std::string_view text);

}  // namespace home
