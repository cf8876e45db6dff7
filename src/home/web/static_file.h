#pragma once

#include "home/web/site_files.h"
#include "host/http.h"

namespace home {

// A file as it stands: whole, one range of it, packed, or not at all when the client has it
// already. Requires: `file` is a file.
[[nodiscard]] host::HttpResponse answer_file(const host::HttpRequest& request,
                                             const SiteEntry& file);

}  // namespace home
