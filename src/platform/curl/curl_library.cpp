#include "platform/curl/curl_library.h"

#include "platform/system/shared_library.h"

namespace platform {

const CurlLibrary& CurlLibrary::of_process() {
    static const CurlLibrary library = [] {
        const SharedLibrary curl("Page fetch", "libcurl.so.4");
        CurlLibrary functions{};
        curl.find("curl_global_init", functions.global_init);
        curl.find("curl_global_cleanup", functions.global_cleanup);
        curl.find("curl_free", functions.free);
        curl.find("curl_easy_init", functions.easy_init);
        curl.find("curl_easy_cleanup", functions.easy_cleanup);
        curl.find("curl_easy_setopt", functions.easy_setopt);
        curl.find("curl_easy_getinfo", functions.easy_getinfo);
        curl.find("curl_easy_strerror", functions.easy_strerror);
        curl.find("curl_multi_init", functions.multi_init);
        curl.find("curl_multi_cleanup", functions.multi_cleanup);
        curl.find("curl_multi_setopt", functions.multi_setopt);
        curl.find("curl_multi_add_handle", functions.multi_add_handle);
        curl.find("curl_multi_remove_handle", functions.multi_remove_handle);
        curl.find("curl_multi_socket_action", functions.multi_socket_action);
        curl.find("curl_multi_info_read", functions.multi_info_read);
        curl.find("curl_multi_strerror", functions.multi_strerror);
        curl.find("curl_url", functions.url);
        curl.find("curl_url_cleanup", functions.url_cleanup);
        curl.find("curl_url_set", functions.url_set);
        curl.find("curl_url_get", functions.url_get);
        return functions;
    }();
    return library;
}

}  // namespace platform
