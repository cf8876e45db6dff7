#pragma once

#include <string>

namespace pages {

class HostPage;

// The page behind its content: navigation buttons, the host's own page end, version and uptime, as
// far as the host shows them.
[[nodiscard]] std::string XCustomFooter(HostPage& page);

}  // namespace pages
