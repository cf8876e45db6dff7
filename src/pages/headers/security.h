#pragma once

#include <cstdint>

namespace pages {

class HostPage;

// Finds out who asks for the page and what this user may do, by the host's security mode: from the
// users' table, from the name that the web server has checked, or not at all.
void XSecurityCheck(HostPage& page);

// Refuses a page that wants more than the user's level, and notes who has tried.
void LogAuthorized(HostPage& page, std::int16_t wanted_level);

}  // namespace pages
