#include <algorithm>

#include "fuzz/expect.h"
#include "xapnet/heartbeat.h"
#include "xapnet/message.h"
#include "xapnet/outgoing.h"
#include "xapnet/received_message.h"
#include "xapnet/wire_text.h"

// Any bytes as a datagram of an xAP network, and as the data of a message that is sent.
namespace {

using xapnet::Block;
using xapnet::Line;
using xapnet::Message;
using xapnet::ParsedMessage;

constexpr std::string_view kHeaderEnd = "}\n";

bool is_sent_as_it_is(std::string_view text) {
    const bool is_clean = std::ranges::none_of(text, [](char c) {
        return static_cast<std::uint8_t>(c) < ' ' || c == '{' || c == '}' || c == '\x7F';
    });
    return is_clean && !text.starts_with(' ') && !text.ends_with(' ');
}

bool are_sent_as_they_are(const std::vector<Line>& lines) {
    return std::ranges::all_of(lines, [](const Line& line) {
        return is_sent_as_it_is(line.key) && is_sent_as_it_is(line.value);
    });
}

bool is_sent_as_it_is(const Message& message) {
    return is_sent_as_it_is(message.message_class) && is_sent_as_it_is(message.source) &&
           is_sent_as_it_is(message.target) && are_sent_as_they_are(message.other) &&
           std::ranges::all_of(message.blocks, [](const Block& block) {
               return is_sent_as_it_is(block.name) && are_sent_as_they_are(block.lines);
           });
}

void look_at(const Message& message) {
    const xapnet::ReceivedMessage received(message);
    (void)received.CompareTarget(message.source);
    (void)xapnet::heartbeat_of(message);
    const std::vector<std::string> sections = received.MsgSection();
    for (std::size_t i = 0; i < sections.size(); ++i) {
        for (const std::string& line : received.msgCollection(i)) {
            (void)received.GetItem(sections[i], line.substr(0, line.find('=')));
        }
    }
}

void read(std::string_view datagram) {
    const ParsedMessage first = xapnet::parse_message(xapnet::text_from_wire(datagram));
    fuzz::expect(first.message.has_value() == first.error.empty(), "a message or an error");
    if (!first.message) {
        return;
    }
    look_at(*first.message);
    const std::string text = xapnet::text_of(*first.message);
    const ParsedMessage second = xapnet::parse_message(text);
    if (text.size() > xapnet::kLongestRead) {
        return;  // decoded or named twice, it has grown
    }
    if (!is_sent_as_it_is(*first.message)) {
        return;
    }
    fuzz::expect(second.message == first.message, "what was written is read as it was");
    fuzz::expect(xapnet::text_of(*second.message) == text, "and written as it was");
}

void send(std::string_view data) {
    const xapnet::Composed composed =
        xapnet::compose({"a.b.c", 1}, {"", "class", "block", data, "", "00"});
    fuzz::expect(composed.datagram.empty() != composed.error.empty(), "a datagram or an error");
    fuzz::expect(composed.datagram.size() <= xapnet::kLongestSent, "no datagram is too long");
    if (!composed.datagram.empty()) {
        fuzz::expect(
            xapnet::parse_message(xapnet::text_from_wire(composed.datagram)).message.has_value(),
            "what is sent can be read");
        fuzz::expect(composed.datagram.ends_with(kHeaderEnd), "the last block is closed");
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::as_text(data, size);
    read(bytes);
    send(bytes);
    return 0;
}
