#include "callerid/friends_file.h"

#include "automation/convert.h"
#include "automation/strings.h"

namespace callerid {

namespace {

bool is_comment(std::string_view line) {
    return line.starts_with(';');
}

}  // namespace

std::optional<Friend> parse_friend(std::string_view line) {
    if (is_comment(line)) {
        return std::nullopt;
    }
    const std::vector<std::string> fields = automation::split(line, '\t');
    Friend result{.number = fields.front(), .name = {}, .wav = {}};
    for (std::size_t i = 1; i < fields.size() && result.wav.empty(); ++i) {
        const std::string text = automation::trim(fields[i]);
        (result.name.empty() ? result.name : result.wav) = text;
    }
    return result.name.empty() ? std::nullopt : std::optional(std::move(result));
}

bool is_malformed(std::string_view line) {
    return !automation::trim(line).empty() && !is_comment(line) && !parse_friend(line);
}

std::vector<std::string> lines_of(std::string_view text) {
    std::vector<std::string> lines = automation::split(text, '\n');
    for (std::string& line : lines) {
        if (line.ends_with('\r')) {
            line.pop_back();
        }
    }
    return lines;
}

}  // namespace callerid
