#pragma once

#include <string>
#include <string_view>

namespace pages {

struct RewrittenCalls {
    std::string source;
    bool has_calls = false;
};

// Puts the seconds to the next slide into each call of `CustomHeader` in a source: they are its
// seventh argument. Brackets and commas count wherever they stand, in texts too. A call with seven
// arguments or fewer gets a second closing bracket (kept); pages give eight.
[[nodiscard]] RewrittenCalls rewrite_custom_header_calls(std::string source,
                                                         std::string_view seconds);

}  // namespace pages
