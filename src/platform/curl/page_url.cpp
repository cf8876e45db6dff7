#include "platform/curl/page_url.h"

#include <memory>

#include "automation/run_time_error.h"
#include "platform/curl/curl_library.h"

namespace platform {
namespace {

std::string encode(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string encoded;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte > 0x20 && byte < 0x7F) {
            encoded += character;
        } else {
            encoded += {'%', kDigits[byte >> 4U], kDigits[byte & 0xFU]};
        }
    }
    return encoded;
}

bool has_scheme(std::string_view url) {
    const std::size_t separator = url.find("://");
    return separator != std::string_view::npos && separator == url.find_first_of(":/?#");
}

bool is_http_url(const std::string& url) {
    const std::unique_ptr<CURLU, decltype(&curl_url_cleanup)> parts(curl().url(),
                                                                    curl().url_cleanup);
    if (curl().url_set(parts.get(), CURLUPART_URL, url.c_str(), CURLU_NON_SUPPORT_SCHEME) !=
        CURLUE_OK) {
        return false;
    }
    char* scheme = nullptr;
    curl().url_get(parts.get(), CURLUPART_SCHEME, &scheme, 0);
    const std::unique_ptr<char, decltype(&curl_free)> owner(scheme, curl().free);
    return scheme != nullptr &&
           (std::string_view(scheme) == "http" || std::string_view(scheme) == "https");
}

}  // namespace

std::string page_url(std::string_view text) {
    std::string url = encode(text);
    if (!has_scheme(url)) {
        url = "http://" + url;
    }
    if (!is_http_url(url)) {
        throw automation::RunTimeError(automation::ErrorNumber::InvalidProcedureCall,
                                       "Not a page's address: " + std::string(text));
    }
    return url;
}

}  // namespace platform
