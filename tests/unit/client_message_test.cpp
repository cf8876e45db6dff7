#include "unit/client_message.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace unit {
namespace {

std::string datagram(char kind, std::string first, std::string second) {
    first.resize(std::max<std::size_t>(first.size(), 64), '\0');
    second.resize(std::max<std::size_t>(second.size(), 64), '\0');
    return kind + std::string(7, '\0') + first + second;
}

std::string shown(const ClientMessage& message) {
    const bool is_caller = message.kind == ClientMessage::Kind::Caller;
    return std::string(is_caller ? "caller|" : "command|") + message.first + "|" + message.second;
}

TEST(ClientMessage, CallersAndCommandsAreReadAndAllElseIsPassedOver) {
    const std::string whole(64, 'n');

    struct Case {
        std::string bytes;
        std::string shown;  // "" for no message
    };

    for (const Case& c : {
             Case{datagram(3, "Anna", "555-1234"), "caller|Anna|555-1234"},
             Case{datagram(6, "TopLed", "on"), "command|TopLed|on"},
             Case{datagram(3, "J\xFCrgen", ""), "caller|J\xC3\xBCrgen|"},
             Case{datagram(3, whole, "1"), "caller|" + whole + "|1"},
             Case{datagram(3, whole + "more", "1"), "caller|" + whole + "more1|"},
             Case{datagram(4, "a", "b"), ""},
             Case{"\3", ""},
             Case{"", ""},
         }) {
        const auto message = parse_client_message(c.bytes);
        EXPECT_EQ(message ? shown(*message) : "", c.shown);
    }
}

}  // namespace
}  // namespace unit
