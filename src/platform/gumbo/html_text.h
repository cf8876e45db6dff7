#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

// No more of a page is read for its text: the pages of a unit are a few words long, while the
// tree of a page that is made to grow takes hundreds of times its size.
inline constexpr std::size_t kLongestPageForText = std::size_t{16} * 1024;

enum class PageCharset : std::uint8_t {
    Detect,  // UTF-8 if the whole page is valid UTF-8, else code page 1252
    Utf8,    // declared: malformed sequences become '?'
};

// The text of the body as a browser shows it (HTML Standard, innerText), in code page 1252: without
// scripts, styles and the head; entities decoded; white space collapsed but in `pre`; block
// elements and `br` on lines of their own, ended by CR LF; cells of a row separated by a blank. No
// blank lines around paragraphs. Never throws for broken HTML.
[[nodiscard]] std::string body_inner_text(std::string_view html, PageCharset charset);

}  // namespace platform
