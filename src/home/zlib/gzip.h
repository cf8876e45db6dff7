#pragma once

#include <string>
#include <string_view>

namespace home {

// The bytes as one gzip member (RFC 1952). Throws: RunTimeError 7.
[[nodiscard]] std::string gzip(std::string_view bytes);

}  // namespace home
