#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Messages as xAP 1.2 frames them: blocks "name LF { LF key=value LF ... } LF", the header first.
// All texts are in code page 1252 and keep the case that came; names compare without regard to it.
namespace xapnet {

// One line of a block: an item, or a line without a key, which others may still want to see.
struct Line {
    std::string key;    // "" when the line is no item
    std::string value;  // of the item, decoded; or the line as it stands

    // "key=value", or the line.
    [[nodiscard]] std::string text() const;

    friend bool operator==(const Line&, const Line&) = default;
};

struct Block {
    std::string name;
    std::vector<Line> lines;

    // The value of the first item of this key. Lives as long as the block is left alone; null when
    // there is none.
    [[nodiscard]] const std::string* find(std::string_view key) const noexcept;

    friend bool operator==(const Block&, const Block&) = default;
};

enum class MessageKind : std::uint8_t { Message, Heartbeat };

// The names of the header's block of either kind.
inline constexpr std::string_view kMessageHeader = "xap-header";
inline constexpr std::string_view kHeartbeatHeader = "xap-hbeat";

// One message, a value.
struct Message {
    MessageKind kind = MessageKind::Message;
    std::int32_t version = 12;  // 12 or 13
    std::int32_t hop = 1;       // 0 to 999
    std::string uid;            // may be missing: ""
    std::string message_class;
    std::string source;
    std::string target;       // "" without one
    std::vector<Line> other;  // further items of the header, such as a heartbeat's interval
    std::vector<Block> blocks;

    friend bool operator==(const Message&, const Message&) = default;
};

// What became of a text: a message, or what is wrong with it.
struct ParsedMessage {
    std::optional<Message> message;
    std::string error;  // "line 3: what is wrong", lines from 1; "" with a message
};

inline constexpr std::size_t kLongestRead = 65'536;  // bytes

// Reads generously: lines end in LF, CR LF or CR; white space around lines, keys and values, empty
// lines and text behind the last block do not count; a brace may stand behind a block's name;
// "key!48656C6C6F" is an item whose value is given in bytes. The header needs a class and a source;
// v (12 or 13), hop and uid may be missing, but not be wrong. Of items of the header that are there
// twice the first counts. Never throws for what a text holds.
[[nodiscard]] ParsedMessage parse_message(std::string_view text);

// Writes strictly, for the network: LF alone, the header's items in the order of the standard, one
// space for each brace and control character in a name or value. Lines that are empty then are left
// out.
[[nodiscard]] std::string text_of(const Message& message);

// Whether a name is more than spaces when it is written so.
[[nodiscard]] bool leaves_something(std::string_view name) noexcept;

}  // namespace xapnet
