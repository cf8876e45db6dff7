#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/code_page.h"

namespace host {

struct HttpHeader {
    std::string name;
    std::string value;

    friend bool operator==(const HttpHeader&, const HttpHeader&) = default;
};

// The value of the first header of the name, without regard to case; absent when there is none.
[[nodiscard]] inline std::optional<std::string> find_header(const std::vector<HttpHeader>& headers,
                                                            std::string_view name) {
    for (const HttpHeader& header : headers) {
        if (automation::equals_ignoring_case(header.name, name)) {
            return header.value;
        }
    }
    return std::nullopt;
}

// One request to the host's own web server. All texts are the bytes that came.
struct HttpRequest {
    std::string method = "GET";  // "GET", "HEAD" or "POST"
    std::string target = "/";    // path and query, still coded
    std::vector<HttpHeader> headers;
    std::string body;
    std::string remote_address;  // "127.0.0.1"

    // The first header of the name; absent when there is none.
    [[nodiscard]] std::optional<std::string> header(std::string_view name) const {
        return find_header(headers, name);
    }
};

// A part of a file on disk.
struct HttpFile {
    std::filesystem::path path;
    std::uint64_t begin = 0;
    std::uint64_t size = 0;
};

// The answer: a body, or a file in its place. Length and state of the connection are the server's
// own headers; a HEAD request gets all headers and no body.
struct HttpResponse {
    std::int32_t status = 200;
    std::string reason;  // "" stands for the usual one of the status
    std::vector<HttpHeader> headers;
    std::string body;
    std::optional<HttpFile> file;

    void add(std::string name, std::string value) {
        headers.push_back({std::move(name), std::move(value)});
    }

    [[nodiscard]] std::optional<std::string> header(std::string_view name) const {
        return find_header(headers, name);
    }
};

// Answers the requests of a web server. Outlives it.
class HttpHandler {
  public:
    virtual ~HttpHandler() = default;

    // May pump; other requests may come meanwhile. An exception is answered with status 500 and
    // goes on to whoever runs the pump.
    [[nodiscard]] virtual HttpResponse answer(const HttpRequest& request) = 0;
};

}  // namespace host
