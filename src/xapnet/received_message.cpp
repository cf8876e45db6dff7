#include "xapnet/received_message.h"

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "xapnet/address.h"

namespace xapnet {

namespace {

constexpr std::string_view kMissing = "Unknown";

}  // namespace

std::vector<std::string> ReceivedMessage::MsgSection() const {
    std::vector<std::string> names;
    names.reserve(message_.blocks.size());
    for (const Block& block : message_.blocks) {
        names.push_back(block.name);
    }
    return names;
}

std::vector<std::string> ReceivedMessage::msgCollection(std::size_t block) const {
    if (block >= message_.blocks.size()) {
        throw automation::RunTimeError(automation::ErrorNumber::SubscriptOutOfRange);
    }
    std::vector<std::string> lines;
    lines.reserve(message_.blocks[block].lines.size());
    for (const Line& line : message_.blocks[block].lines) {
        lines.push_back(line.text());
    }
    return lines;
}

bool ReceivedMessage::CompareClass(std::string_view message_class) const {
    return automation::equals_ignoring_case(message_.message_class, message_class);
}

bool ReceivedMessage::CompareTarget(std::string_view address) const {
    return covers(message_.target, address);
}

std::string ReceivedMessage::GetItem(std::string_view section, std::string_view key) const {
    for (const Block& block : message_.blocks) {
        if (!automation::equals_ignoring_case(block.name, section)) {
            continue;
        }
        if (const std::string* value = block.find(key)) {
            return *value;
        }
    }
    return std::string(kMissing);
}

}  // namespace xapnet
