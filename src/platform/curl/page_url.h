#pragma once

#include <string>
#include <string_view>

namespace platform {

// The address as it goes onto the wire (RFC 3986): "http://" in front where no scheme stands, and
// every blank, control character and byte outside ASCII as %XX, so that "beep.shtml?0 5" asks for
// "beep.shtml?0%205" and no text can add a header line. Throws: RunTimeError 5 for what is no http
// or https URL.
[[nodiscard]] std::string page_url(std::string_view text);

}  // namespace platform
