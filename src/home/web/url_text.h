#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Texts in web addresses, forms and pages. All are bytes; nobody here asks for their encoding.
namespace home {

// "a%20b" to "a b"; a "%" without two hexadecimal digits behind it stays. `plus_is_blank` is the
// way of forms.
enum class Plus : bool { Stays, IsBlank };
[[nodiscard]] std::string percent_decoded(std::string_view text, Plus plus);

// All but letters, digits and "-_.~" as "%XX", a blank as "+".
[[nodiscard]] std::string form_encoded(std::string_view text);

using NamedTexts = std::vector<std::pair<std::string, std::string>>;

// "a=1&b=2", decoded, in the order of the text. A part without "=" has an empty value.
[[nodiscard]] NamedTexts parse_form(std::string_view text);

// "a=1; b=2", the header of a client's cookies.
[[nodiscard]] NamedTexts parse_cookies(std::string_view text);

}  // namespace home
