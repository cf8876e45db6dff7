#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace unit {

// The request line of a request. `target` is what stands between method and version, and may hold
// blanks: the senders that this server knows do not encode them.
struct HttpRequest {
    std::string method;
    std::string target;
    std::string version;  // "HTTP/1.0" or "HTTP/1.1"
};

enum class RequestProgress { NeedsMore, Complete, Malformed, TooLarge };

constexpr std::size_t kLargestRequest = std::size_t{64} * 1024;

// Collects the head of one HTTP request (RFC 9112) as it arrives. Header fields have to be there
// in form only; none is looked at. Lines may end in CR LF or LF. A value; one for each connection.
class RequestReader {
  public:
    // Takes the next bytes. Every result but NeedsMore is final: later bytes are not looked at.
    // A head of more than kLargestRequest bytes is TooLarge; a first line that is no request line
    // of HTTP/1.0 or HTTP/1.1 is Malformed.
    RequestProgress feed(std::string_view bytes);

    // Requires: feed() gave Complete.
    [[nodiscard]] const HttpRequest& request() const noexcept { return request_; }

  private:
    RequestProgress examine();

    std::string head_;
    std::size_t line_start_ = 0;  // of the first line that has not ended yet
    HttpRequest request_;         // empty method until the request line has been read
    RequestProgress progress_ = RequestProgress::NeedsMore;
};

}  // namespace unit
