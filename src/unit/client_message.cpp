#include "unit/client_message.h"

#include "automation/code_page.h"

namespace unit {
namespace {

constexpr std::size_t kFirstField = 8;
constexpr std::size_t kFieldSize = 64;
constexpr std::size_t kWholeDatagram = kFirstField + 2 * kFieldSize;
constexpr char kCaller = 3;
constexpr char kCommand = 6;

// A field ends at its first zero byte.
std::string field(std::string_view bytes) {
    return automation::code_page_to_utf8(bytes.substr(0, bytes.find('\0')));
}

}  // namespace

std::optional<ClientMessage> parse_client_message(std::string_view datagram) {
    if (datagram.size() < kWholeDatagram ||
        (datagram.front() != kCaller && datagram.front() != kCommand)) {
        return std::nullopt;
    }
    ClientMessage message;
    message.kind =
        datagram.front() == kCaller ? ClientMessage::Kind::Caller : ClientMessage::Kind::Command;
    if (datagram.size() > kWholeDatagram) {
        message.first = field(datagram.substr(kFirstField));
    } else {
        message.first = field(datagram.substr(kFirstField, kFieldSize));
        message.second = field(datagram.substr(kFirstField + kFieldSize));
    }
    return message;
}

}  // namespace unit
