#pragma once

#include <curl/curl.h>

namespace platform {

// The functions of libcurl. The library is loaded at the first use, since three dozen others come
// with it, which would make even the shortest run of the program wait; it stays loaded.
struct CurlLibrary {
    // Throws: RunTimeError 429 without the library, and tries again at the next call.
    static const CurlLibrary& of_process();

    decltype(&curl_global_init) global_init;
    decltype(&curl_global_cleanup) global_cleanup;
    decltype(&curl_free) free;

    decltype(&curl_easy_init) easy_init;
    decltype(&curl_easy_cleanup) easy_cleanup;
    decltype(&curl_easy_setopt) easy_setopt;
    decltype(&curl_easy_getinfo) easy_getinfo;
    decltype(&curl_easy_strerror) easy_strerror;

    decltype(&curl_multi_init) multi_init;
    decltype(&curl_multi_cleanup) multi_cleanup;
    decltype(&curl_multi_setopt) multi_setopt;
    decltype(&curl_multi_add_handle) multi_add_handle;
    decltype(&curl_multi_remove_handle) multi_remove_handle;
    decltype(&curl_multi_socket_action) multi_socket_action;
    decltype(&curl_multi_info_read) multi_info_read;
    decltype(&curl_multi_strerror) multi_strerror;

    decltype(&curl_url) url;
    decltype(&curl_url_cleanup) url_cleanup;
    decltype(&curl_url_set) url_set;
    decltype(&curl_url_get) url_get;
};

[[nodiscard]] inline const CurlLibrary& curl() {
    return CurlLibrary::of_process();
}

}  // namespace platform
