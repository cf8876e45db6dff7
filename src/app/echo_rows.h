#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// The last rows of a text as a box of that size shows them: long lines go on in the next row,
// control characters are "?". Lines end with CR LF or LF; the text is UTF-8, and a row never ends
// within a character. Requires: `width` above 0.
[[nodiscard]] std::vector<std::string> last_rows(std::string_view text, std::size_t width,
                                                 std::size_t height);

}  // namespace app
