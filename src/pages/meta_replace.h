#pragma once

#include <string>
#include <string_view>

#include "host/protection.h"

namespace core {
class VeloraLog;
}

namespace pages {

// Puts the seconds to the next slide into the source of a page: in the place of the first digits
// of its first "meta http-equiv" tag, whatever that tag says; in a page without such a tag as a
// new one, with a document around it if there is none. A failure is logged and gives "".
[[nodiscard]] std::string metaReplace(core::VeloraLog& log, const host::Protection& protection,
                                      std::string_view source, std::string_view seconds);

}  // namespace pages
