#include "unit/response_reader.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "automation/whole_number.h"

namespace unit {
namespace {

constexpr std::size_t kLargestHead = std::size_t{64} * 1024;
constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

char to_lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool is_same_name(std::string_view name, std::string_view lower_case_name) {
    return std::equal(name.begin(), name.end(), lower_case_name.begin(), lower_case_name.end(),
                      [](char left, char right) { return to_lower(left) == right; });
}

// The value of a Content-Length field; nothing for any other line.
std::optional<std::size_t> content_length_of(std::string_view line) {
    const auto colon = line.find(':');
    if (colon == std::string_view::npos ||
        !is_same_name(trimmed(line.substr(0, colon)), "content-length")) {
        return std::nullopt;
    }
    const auto length = automation::whole_number(trimmed(line.substr(colon + 1)), 0,
                                                 std::numeric_limits<std::int64_t>::max());
    return length ? std::optional(static_cast<std::size_t>(*length)) : std::nullopt;
}

// The code of "HTTP/1.0 200 OK"; nothing for a line of another form.
std::optional<int> status_code_of(std::string_view line) {
    const auto blank = line.find(' ');
    if (!line.starts_with("HTTP/") || blank == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view rest = trimmed(line.substr(blank));
    const auto code = automation::whole_number(rest.substr(0, rest.find(' ')), 100, 999);
    return code ? std::optional(static_cast<int>(*code)) : std::nullopt;
}

}  // namespace

ResponseProgress ResponseReader::feed(std::string_view bytes) {
    if (progress_ != ResponseProgress::NeedsMore) {
        return progress_;
    }
    if (in_body_) {
        return progress_ = read_body(bytes);
    }
    head_.append(bytes);
    return progress_ = read_head();
}

ResponseProgress ResponseReader::end_of_stream() {
    if (progress_ != ResponseProgress::NeedsMore) {
        return progress_;
    }
    if (!in_body_ && !head_.empty()) {
        // The last line of the head ended with the connection instead of a line end.
        progress_ = read_line(trimmed(std::exchange(head_, {})));
    }
    if (progress_ != ResponseProgress::NeedsMore) {
        return progress_;
    }
    if (status_line_.empty()) {
        return fail("the server closed the connection without an answer");
    }
    if (in_body_ && content_length_ && body_.size() < *content_length_) {
        return fail("the server closed the connection after " + std::to_string(body_.size()) +
                    " of " + std::to_string(*content_length_) + " bytes");
    }
    return progress_ = ResponseProgress::Complete;
}

ResponseProgress ResponseReader::read_head() {
    std::size_t line_start = 0;
    for (auto end = head_.find('\n'); end != std::string::npos && !in_body_;
         end = head_.find('\n', line_start)) {
        const std::string line(
            trimmed(std::string_view{head_}.substr(line_start, end - line_start)));
        line_start = end + 1;
        if (const auto progress = read_line(line); progress != ResponseProgress::NeedsMore) {
            return progress;
        }
    }
    head_size_ += line_start;
    head_.erase(0, line_start);
    if (in_body_) {
        return read_body(std::exchange(head_, {}));
    }
    if (head_size_ + head_.size() > kLargestHead) {
        return fail("the head of the answer is too long");
    }
    return ResponseProgress::NeedsMore;
}

ResponseProgress ResponseReader::read_line(std::string_view line) {
    if (status_line_.empty()) {
        const auto code = status_code_of(line);
        if (!code) {
            return fail("the answer is not HTTP");
        }
        status_line_ = line;
        status_ = *code;
        return ResponseProgress::NeedsMore;
    }
    if (line.empty()) {
        in_body_ = true;
    } else if (const auto length = content_length_of(line)) {
        content_length_ = length;
    }
    return ResponseProgress::NeedsMore;
}

ResponseProgress ResponseReader::read_body(std::string_view bytes) {
    if (content_length_) {
        bytes = bytes.substr(0, *content_length_ - body_.size());
    }
    if (bytes.size() > body_limit_ - body_.size() ||
        (content_length_ && *content_length_ > body_limit_)) {
        return fail("the answer has more than " + std::to_string(body_limit_) + " bytes");
    }
    body_.append(bytes);
    return content_length_ && body_.size() == *content_length_ ? ResponseProgress::Complete
                                                               : ResponseProgress::NeedsMore;
}

ResponseProgress ResponseReader::fail(std::string problem) {
    problem_ = std::move(problem);
    return progress_ = ResponseProgress::Failed;
}

}  // namespace unit
