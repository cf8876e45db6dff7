#include <algorithm>
#include <array>
#include <utility>

#include "automation/code_page.h"
#include "automation/hexadecimal.h"
#include "automation/whole_number.h"
#include "xapnet/message.h"
#include "xapnet/uid.h"
#include "xapnet/wire_text.h"

namespace xapnet {

namespace {

using automation::equals_ignoring_case;

constexpr std::int32_t kHighestHop = 999;
constexpr std::size_t kShownCharacters = 40;  // of what is wrong

// Many lines are looked at, so no search in a set of characters.
constexpr bool is_white(char character) noexcept {
    return character == ' ' || character == '\t' || character == '\v' || character == '\f' ||
           character == '\0';  // some send C texts whole
}

std::string_view trimmed(std::string_view text) noexcept {
    while (!text.empty() && is_white(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && is_white(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// Foreign text for the end of an error's line.
std::string shown(std::string_view text) {
    std::string result(text.substr(0, kShownCharacters));
    std::ranges::replace_if(
        result, [](char c) { return static_cast<std::uint8_t>(c) < ' '; }, ' ');
    return " '" + result + (text.size() > kShownCharacters ? "...'" : "'");
}

// A line with '=' is an item as it stands, so '!' counts only in one without.
Line line_of(std::string_view text) {
    if (const std::size_t sign = text.find('='); sign != std::string_view::npos) {
        const std::string_view key = trimmed(text.substr(0, sign));
        if (!key.empty()) {
            return {std::string(key), std::string(trimmed(text.substr(sign + 1)))};
        }
    } else if (const std::size_t mark = text.find('!'); mark != std::string_view::npos) {
        const std::string_view key = trimmed(text.substr(0, mark));
        const std::string_view digits = trimmed(text.substr(mark + 1));
        if (!key.empty() && automation::is_hexadecimal(digits)) {
            return {std::string(key), text_from_wire(automation::bytes_of_hexadecimal(digits))};
        }
    }
    return {"", std::string(text)};
}

// Gives the lines of a text that hold more than white space, trimmed.
class LineReader {
  public:
    explicit LineReader(std::string_view text) noexcept : rest_(text) {}

    // "" at the end.
    [[nodiscard]] std::string_view next() noexcept {
        while (!rest_.empty()) {
            if (const std::string_view line = trimmed(take_line()); !line.empty()) {
                return line;
            }
        }
        return {};
    }

    // Of the line read last, from 1.
    [[nodiscard]] std::size_t number() const noexcept { return number_; }

  private:
    [[nodiscard]] std::string_view take_line() noexcept {
        ++number_;
        const std::string_view up_to_feed = rest_.substr(0, rest_.find('\n'));
        const std::string_view line = up_to_feed.substr(0, up_to_feed.find('\r'));
        rest_.remove_prefix(line.size());
        const std::size_t end_length = rest_.starts_with("\r\n") ? 2 : 1;
        rest_.remove_prefix(std::min(end_length, rest_.size()));
        return line;
    }

    std::string_view rest_;
    std::size_t number_ = 0;
};

// Takes one text apart, once.
class Parser {
  public:
    explicit Parser(std::string_view text) noexcept : lines_(text) {}

    [[nodiscard]] ParsedMessage parse() {
        std::optional<Block> header = next_block();
        if (!header && error_.empty()) {
            fail("there is no header block");
        }
        if (header) {
            read_header(*header);
        }
        while (error_.empty()) {
            std::optional<Block> block = next_block();
            if (!block) {
                break;
            }
            message_.blocks.push_back(std::move(*block));
        }
        if (!error_.empty()) {
            return {std::nullopt, std::move(error_)};
        }
        return {std::move(message_), {}};
    }

  private:
    // None at the end of the message and after an error.
    [[nodiscard]] std::optional<Block> next_block() {
        const std::string_view line = lines_.next();
        const bool is_open = line.ends_with('{') || lines_.next() == "{";
        if (!is_open) {
            return std::nullopt;
        }
        const std::string_view name =
            line.ends_with('{') ? trimmed(line.substr(0, line.size() - 1)) : line;
        if (name.empty() || name.find_first_of("{}") != std::string_view::npos) {
            return fail("a block has no name, but" + shown(name));
        }
        return read_lines(name);
    }

    [[nodiscard]] std::optional<Block> read_lines(std::string_view name) {
        Block block{std::string(name), {}};
        numbers_.clear();
        for (std::string_view line = lines_.next(); !line.empty(); line = lines_.next()) {
            if (line == "}") {
                return block;
            }
            if (line == "{") {
                return fail("a block begins within the block" + shown(name));
            }
            block.lines.push_back(line_of(line));
            numbers_.push_back(lines_.number());
        }
        return fail("the end of the text stands within the block" + shown(name));
    }

    void read_header(Block& block) {
        if (equals_ignoring_case(block.name, kHeartbeatHeader)) {
            message_.kind = MessageKind::Heartbeat;
        } else if (!equals_ignoring_case(block.name, kMessageHeader)) {
            fail("the first block is no header, but" + shown(block.name));
            return;
        }
        for (std::size_t i = 0; i < block.lines.size() && error_.empty(); ++i) {
            read_header_line(block.lines[i], numbers_[i]);
        }
        for (const Field& field : kFields) {
            if (field.is_required && (message_.*field.member).empty()) {
                fail(std::string("the header has no ").append(field.key));
            }
        }
    }

    void read_header_line(Line& line, std::size_t number) {
        if (line.key.empty()) {
            return;
        }
        for (const Field& field : kFields) {
            if (equals_ignoring_case(line.key, field.key)) {
                std::string& member = message_.*field.member;
                if (member.empty()) {
                    member = std::move(line.value);
                }
                if (field.member == &Message::uid && !member.empty() && !is_uid(member)) {
                    fail("the uid is no identifier, but" + shown(member), number);
                }
                return;
            }
        }
        if (equals_ignoring_case(line.key, "v")) {
            read_number(version_, line.value, 12, 13, "version", number);
            message_.version = version_.value_or(message_.version);
        } else if (equals_ignoring_case(line.key, "hop")) {
            read_number(hop_, line.value, 0, kHighestHop, "hop", number);
            message_.hop = hop_.value_or(message_.hop);
        } else {
            message_.other.push_back(std::move(line));
        }
    }

    void read_number(std::optional<std::int32_t>& result, std::string_view text,
                     std::int32_t lowest, std::int32_t highest, const char* what,
                     std::size_t line_number) {
        if (result) {
            return;
        }
        result = automation::whole_number(text, lowest, highest);
        if (!result) {
            fail(std::string("the ") + what + " is no number from " + std::to_string(lowest) +
                     " to " + std::to_string(highest) + ", but" + shown(text),
                 line_number);
        }
    }

    // The first failure counts; it is at the line read last unless a number tells otherwise.
    std::nullopt_t fail(const std::string& what, std::optional<std::size_t> line_number = {}) {
        if (error_.empty()) {
            const std::size_t number =
                std::max<std::size_t>(line_number.value_or(lines_.number()), 1);
            error_ = "line " + std::to_string(number) + ": " + what;
        }
        return std::nullopt;
    }

    struct Field {
        std::string_view key;
        std::string Message::*member;
        bool is_required;
    };

    static constexpr std::array<Field, 4> kFields{{
        {"uid", &Message::uid, false},
        {"class", &Message::message_class, true},
        {"source", &Message::source, true},
        {"target", &Message::target, false},
    }};

    LineReader lines_;
    std::vector<std::size_t> numbers_;  // of the lines of the block read last
    std::optional<std::int32_t> version_;
    std::optional<std::int32_t> hop_;
    Message message_;
    std::string error_;
};

}  // namespace

ParsedMessage parse_message(std::string_view text) {
    if (text.size() > kLongestRead) {
        return {std::nullopt, "line 1: longer than " + std::to_string(kLongestRead) + " bytes"};
    }
    return Parser(text).parse();
}

}  // namespace xapnet
