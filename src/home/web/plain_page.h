#pragma once

#include <cstdint>
#include <string_view>

#include "host/http.h"

namespace home {

// The type of all pages that the site makes itself.
inline constexpr std::string_view kPageType = "text/html; charset=windows-1252";

// A page of the site itself, with a title and one paragraph; both are plain text of code page 1252.
[[nodiscard]] host::HttpResponse plain_page(std::int32_t status, std::string_view title,
                                            std::string_view text);

}  // namespace home
