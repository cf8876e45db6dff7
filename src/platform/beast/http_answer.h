#pragma once

#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/string_body.hpp>
#include <cstdint>

#include "host/http.h"

// Between the host's plain requests and answers and those of the library.
namespace platform {

using AnswerHeader = boost::beast::http::response<boost::beast::http::empty_body>;

[[nodiscard]] host::HttpRequest plain_request(
    boost::beast::http::request<boost::beast::http::string_body>&& request);

// Status line and headers, with those that are the server's own. `version` is that of the request,
// 10 or 11.
[[nodiscard]] AnswerHeader answer_header(const host::HttpResponse& response, unsigned int version,
                                         bool keeps_connection);

// False for an answer that ends behind its header, whatever its length.
[[nodiscard]] bool has_body(std::int32_t status);

// A short page for an answer that no handler has made.
[[nodiscard]] host::HttpResponse error_answer(std::int32_t status);

}  // namespace platform
