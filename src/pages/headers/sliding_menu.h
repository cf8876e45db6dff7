#pragma once

#include <string>

namespace pages {

class HostPage;

// The script that sets up the sliding menu of the user: its looks, or those of a new user, and its
// items.
[[nodiscard]] std::string ssmItems(HostPage& page);

}  // namespace pages
