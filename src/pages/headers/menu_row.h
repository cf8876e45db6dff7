#pragma once

#include <string>

namespace pages {

class HostPage;

// The menu of the host as rows of a table: what everybody of the user's level sees, then what lies
// above and below the page itself, then weather alerts. "" when the setting `useMenuRow` is off;
// its value "LINK" or "IMAGE" chooses how an item looks, any other makes buttons. A page that
// wants more than the user's level is refused, and a hit is noted if the host wishes it, with or
// without the row.
[[nodiscard]] std::string MenuRow(HostPage& page);

}  // namespace pages
