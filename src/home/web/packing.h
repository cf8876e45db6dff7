#pragma once

#include "host/http.h"

namespace home {

// True when the client takes answers that are packed with gzip.
[[nodiscard]] bool takes_gzip(const host::HttpRequest& request);

// Packs a body of a kind and size that it pays for, if the client takes it.
void pack(const host::HttpRequest& request, host::HttpResponse& response);

}  // namespace home
