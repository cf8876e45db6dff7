#pragma once

#include <memory>

#include "platform/curl/curl_library.h"
#include "platform/curl/page_load.h"

namespace platform {

struct EasyDeleter {
    void operator()(CURL* easy) const noexcept { curl().easy_cleanup(easy); }
};

// The library's side of a page load; private to this folder.
struct PageLoad::Library {
    std::unique_ptr<CURL, EasyDeleter> easy{curl().easy_init()};
};

}  // namespace platform
