#pragma once

#include <string_view>

namespace automation {

// Whether a text is UTF-8 throughout, by the table of RFC 3629, section 4: neither overlong forms
// nor surrogates nor numbers beyond the last character. So is an empty one.
[[nodiscard]] bool is_well_formed_utf8(std::string_view bytes) noexcept;

}  // namespace automation
