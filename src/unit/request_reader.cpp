#include "unit/request_reader.h"

#include <algorithm>
#include <optional>

namespace unit {
namespace {

std::string_view without_carriage_return(std::string_view line) {
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

bool is_control(char character) {
    return static_cast<unsigned char>(character) < ' ';
}

std::optional<HttpRequest> parse_request_line(std::string_view line) {
    const auto first_blank = line.find(' ');
    const auto last_blank = line.rfind(' ');
    if (first_blank == std::string_view::npos || first_blank == 0 || first_blank == last_blank ||
        std::any_of(line.begin(), line.end(), is_control)) {
        return std::nullopt;
    }
    HttpRequest request;
    request.method = line.substr(0, first_blank);
    request.target = line.substr(first_blank + 1, last_blank - first_blank - 1);
    request.version = line.substr(last_blank + 1);
    if (request.version != "HTTP/1.0" && request.version != "HTTP/1.1") {
        return std::nullopt;
    }
    return request;
}

}  // namespace

RequestProgress RequestReader::feed(std::string_view bytes) {
    if (progress_ != RequestProgress::NeedsMore) {
        return progress_;
    }
    head_.append(bytes.substr(0, kLargestRequest + 1 - head_.size()));
    progress_ = examine();
    if (progress_ == RequestProgress::NeedsMore && head_.size() > kLargestRequest) {
        progress_ = RequestProgress::TooLarge;
    }
    return progress_;
}

RequestProgress RequestReader::examine() {
    for (auto end = head_.find('\n', line_start_); end != std::string::npos;
         end = head_.find('\n', line_start_)) {
        const std::string_view line =
            without_carriage_return(std::string_view{head_}.substr(line_start_, end - line_start_));
        line_start_ = end + 1;
        if (request_.method.empty()) {
            const auto request = parse_request_line(line);
            if (!request) {
                return RequestProgress::Malformed;
            }
            request_ = *request;
        } else if (line.empty()) {
            return RequestProgress::Complete;
        }
    }
    return RequestProgress::NeedsMore;
}

}  // namespace unit
