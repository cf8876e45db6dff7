#include "app/modem_capture.h"

#include <charconv>
#include <cstdint>
#include <optional>

#include "app/control_client.h"

namespace app {
namespace {

constexpr std::int64_t kLongestPause = 60000;
constexpr std::string_view kBlanks = " \t";

std::optional<std::int64_t> pause_of(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    std::int64_t pause = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, pause);
    if (error != std::errc{} || rest != end || pause < 0 || pause > kLongestPause) {
        return std::nullopt;
    }
    return pause;
}

// The bytes of a line; none for an unknown escape.
std::optional<std::string> bytes_of(std::string_view line) {
    std::string bytes;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '\\') {
            bytes += line[i];
        } else if (i + 1 == line.size()) {
            return bytes;
        } else {
            const char escaped = line[++i];
            if (escaped != 'r' && escaped != 'n' && escaped != '\\') {
                return std::nullopt;
            }
            bytes += escaped == 'r' ? '\r' : escaped == 'n' ? '\n' : '\\';
        }
    }
    return bytes + "\r\n";
}

// A record of the NetCallerID dialect begins with the same sign.
bool is_remark(std::string_view line) {
    return line == "#" || line.starts_with("# ");
}

// Cuts the next line off.
std::string_view take_line(std::string_view& text) {
    const auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

}  // namespace

std::vector<CaptureStep> parse_modem_capture(std::string_view text, const std::string& name) {
    std::vector<CaptureStep> steps;
    std::chrono::milliseconds pause{0};
    for (int number = 1; !text.empty(); ++number) {
        const std::string_view line = take_line(text);
        const auto fail = [&](const std::string& what) {
            throw CommandFailure((name + ", line ").append(std::to_string(number)).append(": ") +
                                 what);
        };
        if (line.empty() || is_remark(line)) {
            continue;
        }
        if (line.front() == '@') {
            const auto length = pause_of(line.substr(1));
            if (!length) {
                fail("a pause is \"@\" and 0 to 60000 milliseconds");
            }
            pause += std::chrono::milliseconds(*length);
            continue;
        }
        auto bytes = bytes_of(line);
        if (!bytes) {
            fail("behind a \"\\\" stands r, n, \"\\\" or the end of the line");
        }
        steps.push_back({pause, *std::move(bytes)});
        pause = {};
    }
    if (pause.count() > 0) {
        steps.push_back({pause, ""});
    }
    return steps;
}

}  // namespace app
