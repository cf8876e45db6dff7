#include "xapnet/outgoing.h"

#include <optional>
#include <vector>

#include "automation/strings.h"
#include "host/xap_message.h"
#include "xapnet/message.h"
#include "xapnet/uid.h"
#include "xapnet/wire_text.h"

namespace xapnet {

namespace {

// A line that is split at its sign stands on the wire as it came, blanks and all.
Line line_of(std::string_view text, char sign) {
    const std::size_t end = text.find(sign);
    if (end == std::string_view::npos || end == 0) {
        return {"", std::string(text)};
    }
    return {std::string(text.substr(0, end)), std::string(text.substr(end + 1))};
}

std::vector<Line> coded_lines(const std::string& coded) {
    std::vector<Line> lines;
    for (const std::string& item : automation::split(coded, host::kXapPairEnd)) {
        lines.push_back(line_of(item, host::kXapKeyEnd));
    }
    return lines;
}

bool begins_block(const std::vector<std::string>& lines, std::size_t at) {
    return at + 2 < lines.size() && lines[at] == "}" && leaves_something(lines[at + 1]) &&
           lines[at + 2] == "{";
}

std::vector<Block> blocks_of(std::string_view section, std::string_view data) {
    const std::vector<std::string> lines = automation::split(data, '\n');
    std::size_t at = 0;
    std::string coded = lines[at];
    for (++at; at < lines.size() && !begins_block(lines, at); ++at) {
        coded += '\n' + lines[at];
    }
    std::vector<Block> blocks{{std::string(section), coded_lines(coded)}};
    while (at < lines.size()) {
        if (begins_block(lines, at)) {
            blocks.push_back({lines[at + 1], {}});
            at += 3;
        } else {
            blocks.back().lines.push_back(line_of(lines[at], '='));
            ++at;
        }
    }
    return blocks;
}

}  // namespace

Composed compose(const Sender& sender, const OutgoingCall& call) {
    const std::optional<std::string> uid = make_uid(sender.unit_id, call.uid);
    if (!uid) {
        return {"", "The endpoint '" + std::string(call.uid) +
                        "' is none of two hexadecimal digits, 00 to FE"};
    }
    if (!leaves_something(call.message_class) || !leaves_something(call.section)) {
        return {"", "A message needs a class and a block"};
    }
    Message message;
    message.uid = *uid;
    message.message_class = call.message_class;
    message.source = sender.source;
    if (!call.sub_address.empty()) {
        message.source.append(":").append(call.sub_address);
    }
    message.target = call.target;
    message.blocks = blocks_of(call.section, call.data);
    std::string datagram = wire_from_text(text_of(message));
    if (datagram.size() > kLongestSent) {
        return {"", "A message of " + std::to_string(datagram.size()) + " bytes is longer than " +
                        std::to_string(kLongestSent)};
    }
    return {std::move(datagram), ""};
}

}  // namespace xapnet
