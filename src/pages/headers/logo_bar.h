#pragma once

#include <string>

namespace pages {

class HostPage;

// A table row with the date, the weather and what else the host's includes.ini switches on, and
// the logo at its right end. Throws: RunTimeError of the host.
[[nodiscard]] std::string logo_bar(HostPage& page);

}  // namespace pages
