#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace unit {

enum class ResponseProgress { NeedsMore, Complete, Failed };

// Collects one HTTP response as it arrives, and takes what small servers really send: fields
// without a blank behind the colon, lines that are no field, more bytes than Content-Length says,
// no length at all, a head that ends with the connection. The requests that lead here are
// HTTP/1.0 (RFC 1945), so that no transfer coding is looked for. A value; one for each response.
class ResponseReader {
  public:
    // A body of more than `body_limit` bytes fails.
    explicit ResponseReader(std::size_t body_limit) : body_limit_(body_limit) {}

    // Takes the next bytes. Every result but NeedsMore is final.
    ResponseProgress feed(std::string_view bytes);

    // The server has closed the connection. Gives Complete or Failed.
    ResponseProgress end_of_stream();

    // The first line, such as "HTTP/1.0 200 OK"; empty until it has arrived.
    [[nodiscard]] const std::string& status_line() const noexcept { return status_line_; }

    // The status code; 0 until the status line has arrived.
    [[nodiscard]] int status() const noexcept { return status_; }

    // What has arrived of the body, never more than Content-Length bytes.
    [[nodiscard]] const std::string& body() const noexcept { return body_; }

    // Why the result was Failed.
    [[nodiscard]] const std::string& problem() const noexcept { return problem_; }

  private:
    ResponseProgress read_head();
    ResponseProgress read_line(std::string_view line);
    ResponseProgress read_body(std::string_view bytes);
    ResponseProgress fail(std::string problem);

    std::size_t body_limit_;
    std::string head_;  // what has arrived of the head and is not a whole line yet
    std::size_t head_size_ = 0;
    bool in_body_ = false;
    std::string status_line_;
    int status_ = 0;
    std::optional<std::size_t> content_length_;
    std::string body_;
    std::string problem_;
    ResponseProgress progress_ = ResponseProgress::NeedsMore;
};

}  // namespace unit
