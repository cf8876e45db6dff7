#include "home/ini/ini_lines.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "automation/code_page.h"

namespace home {
namespace {

using automation::equals_ignoring_case;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kCommentMarks = ";#";
constexpr std::size_t kShownCharacters = 60;

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Takes one line's end off the start of `rest`.
std::string_view take_line_end(std::string_view& rest) {
    const std::size_t length = rest.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, rest.size());
    const std::string_view end = rest.substr(0, length);
    rest.remove_prefix(length);
    return end;
}

std::string quoted(std::string_view text) {
    const bool whole = text.size() <= kShownCharacters;
    return "'" + std::string(text.substr(0, kShownCharacters)) + (whole ? "'" : "...'");
}

// Neither part can hold a line feed.
std::string key_identity(std::string_view section, std::string_view key) {
    return automation::to_lower(section) + "\n" + automation::to_lower(key);
}

}  // namespace

IniLines::IniLines(std::string_view content) : encoding_(encoding_of(content)) {
    if (content.starts_with(kByteOrderMark)) {
        mark_ = kByteOrderMark;
        content.remove_prefix(kByteOrderMark.size());
    }
    Context context;
    while (!content.empty()) {
        const std::size_t length = std::min(content.find_first_of("\r\n"), content.size());
        Line& line = lines_.emplace_back();
        line.bytes = content.substr(0, length);
        content.remove_prefix(length);
        line.end = take_line_end(content);
        read_line(line, context);
    }
    if (!lines_.empty() && !lines_.front().end.empty()) {
        line_end_ = lines_.front().end;
    }
}

void IniLines::read_line(Line& line, Context& context) {
    const std::string_view text = trimmed(line.bytes);
    if (text.empty() || kCommentMarks.find(text.front()) != std::string_view::npos) {
        return;
    }
    if (text.find('\0') != std::string_view::npos) {
        report("a NUL byte");
        return;
    }
    if (text.front() == '[') {
        read_header(line, text, context);
        return;
    }
    read_entry(line, text, context);
}

void IniLines::read_header(Line& line, std::string_view text, Context& context) {
    const std::size_t end = text.find(']');
    if (end == std::string_view::npos) {
        report("no ']' in " + quoted(decode(encoding_, text)));
    }
    line.kind = Kind::Section;
    line.section = decode(encoding_, trimmed(text.substr(1, std::min(end, text.size()) - 1)));
    context.section = line.section;
}

void IniLines::read_entry(Line& line, std::string_view text, Context& context) {
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) {
        report("no '=' in " + quoted(decode(encoding_, text)));
        return;
    }
    const std::string key = decode(encoding_, trimmed(text.substr(0, equals)));
    if (key.empty()) {
        report("no key in " + quoted(decode(encoding_, text)));
        return;
    }
    if (!context.known_keys.insert(key_identity(context.section, key)).second) {
        report(quoted(key) + " stands in the section already, the first one counts");
        return;
    }
    const std::size_t behind_equals = line.bytes.find('=') + 1;
    line.kind = Kind::Entry;
    line.section = context.section;
    line.key = key;
    line.value = decode(encoding_, trimmed(text.substr(equals + 1)));
    line.value_start =
        std::min(line.bytes.find_first_not_of(kBlanks, behind_equals), line.bytes.size());
}

void IniLines::report(std::string text) {
    problems_.push_back({lines_.size(), std::move(text)});
}

IniLines::Line* IniLines::find_entry(std::string_view section, std::string_view key) {
    const auto found = std::ranges::find_if(lines_, [&](const Line& line) {
        return line.kind == Kind::Entry && equals_ignoring_case(line.key, key) &&
               equals_ignoring_case(line.section, section);
    });
    return found == lines_.end() ? nullptr : &*found;
}

std::string IniLines::settings_text() const {
    std::string text;
    for (const Line& line : lines_) {
        if (line.kind == Kind::Section) {
            text += "[" + line.section + "]\n";
        } else if (line.kind == Kind::Entry) {
            text += line.key + "=" + line.value + "\n";
        }
    }
    return text;
}

void IniLines::set(std::string_view section, std::string_view key, std::string_view value) {
    if (Line* line = find_entry(section, key)) {
        line->bytes.replace(line->value_start, std::string::npos, encode(encoding_, value));
        line->value = trimmed(value);
        return;
    }
    insert(entries_position(section), std::string(key) + "=" + std::string(value));
    *this = IniLines(content());  // the new lines count from now on
}

void IniLines::replace_section(std::string_view section,
                               const std::vector<std::pair<std::string, std::string>>& entries) {
    const auto is_of_section = [&](const Line& line) {
        return line.kind == Kind::Entry && equals_ignoring_case(line.section, section);
    };
    const auto first = std::ranges::find_if(lines_, is_of_section);
    std::optional<std::size_t> position;
    if (first != lines_.end()) {
        position = static_cast<std::size_t>(first - lines_.begin());
    } else if (entries.empty()) {
        return;
    }
    std::erase_if(lines_, is_of_section);
    std::size_t next = position ? *position : entries_position(section);
    for (const auto& [key, value] : entries) {
        insert(next++, std::string(key).append("=").append(value));
    }
    *this = IniLines(content());
}

// Where the next entry of a section goes; makes the section if it is not there.
std::size_t IniLines::entries_position(std::string_view section) {
    const std::size_t position = end_of_section(section);
    if (position > 0 || section.empty()) {
        return position;
    }
    if (!lines_.empty()) {
        insert(lines_.size(), "");
    }
    insert(lines_.size(), "[" + std::string(section) + "]");
    return lines_.size();
}

// Behind the section's last entry, or its header; 0 for a section that is not there.
std::size_t IniLines::end_of_section(std::string_view section) const {
    for (std::size_t i = lines_.size(); i > 0; --i) {
        const Line& line = lines_[i - 1];
        if (line.kind != Kind::Other && equals_ignoring_case(line.section, section)) {
            return i;
        }
    }
    return 0;
}

void IniLines::insert(std::size_t position, std::string_view text) {
    if (position > 0 && lines_[position - 1].end.empty()) {
        lines_[position - 1].end = line_end_;
    }
    Line line;
    line.bytes = encode(encoding_, text);
    line.end = line_end_;
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(position), std::move(line));
}

std::string IniLines::content() const {
    std::string content = mark_;
    for (const Line& line : lines_) {
        content += line.bytes + line.end;
    }
    return content;
}

}  // namespace home
