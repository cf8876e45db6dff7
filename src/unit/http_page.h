#pragma once

#include <string>
#include <string_view>

namespace unit {

// An answer before it is put into bytes.
struct Page {
    std::string_view status;  // status code and reason, one of the constants below
    std::string text;         // text of the page's body, plain
};

constexpr std::string_view kStatusOk = "200 OK";
constexpr std::string_view kStatusBadRequest = "400 Bad Request";
constexpr std::string_view kStatusNotFound = "404 Not Found";
constexpr std::string_view kStatusTooLarge = "413 Content Too Large";
constexpr std::string_view kStatusServerError = "500 Internal Server Error";
constexpr std::string_view kStatusNotImplemented = "501 Not Implemented";

// The whole response, head and HTML page (RFC 9112), for a connection that closes behind it.
// `version` is that of the request, "HTTP/1.0" or "HTTP/1.1".
[[nodiscard]] std::string to_response(const Page& page, std::string_view version);

}  // namespace unit
