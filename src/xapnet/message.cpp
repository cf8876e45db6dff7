#include "xapnet/message.h"

#include <algorithm>

#include "automation/code_page.h"

namespace xapnet {

namespace {

constexpr char kDelete = '\x7F';

bool is_unsendable(char character) noexcept {
    const auto byte = static_cast<std::uint8_t>(character);
    return byte < ' ' || character == kDelete || character == '{' || character == '}';
}

// Some listeners do not survive a brace or a line end within a value.
std::string sendable(std::string text) {
    std::ranges::replace_if(text, is_unsendable, ' ');
    return text;
}

void append_block(std::string& text, std::string_view name, const std::vector<Line>& lines) {
    text += sendable(std::string(name));
    text += "\n{\n";
    for (const Line& line : lines) {
        if (const std::string content = sendable(line.text()); leaves_something(content)) {
            text += content;
            text += '\n';
        }
    }
    text += "}\n";
}

}  // namespace

std::string Line::text() const {
    return key.empty() ? value : key + "=" + value;
}

const std::string* Block::find(std::string_view key) const noexcept {
    const auto found = std::ranges::find_if(lines, [&](const Line& line) {
        return !line.key.empty() && automation::equals_ignoring_case(line.key, key);
    });
    return found == lines.end() ? nullptr : &found->value;
}

bool leaves_something(std::string_view name) noexcept {
    return std::ranges::any_of(name, [](char c) { return c != ' ' && !is_unsendable(c); });
}

std::string text_of(const Message& message) {
    std::vector<Line> header{{"v", std::to_string(message.version)},
                             {"hop", std::to_string(message.hop)}};
    if (!message.uid.empty()) {
        header.push_back({"uid", message.uid});
    }
    header.push_back({"class", message.message_class});
    header.push_back({"source", message.source});
    if (!message.target.empty()) {
        header.push_back({"target", message.target});
    }
    header.insert(header.end(), message.other.begin(), message.other.end());
    std::string text;
    append_block(text, message.kind == MessageKind::Heartbeat ? kHeartbeatHeader : kMessageHeader,
                 header);
    for (const Block& block : message.blocks) {
        append_block(text, block.name, block.lines);
    }
    return text;
}

}  // namespace xapnet
