#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace unit {

// What a client program is told by one datagram of the daemon: a caller's name and number, or a
// command and its parameter, in UTF-8. See docs/udp-clients.md for the lay-out.
struct ClientMessage {
    enum class Kind { Caller, Command };

    Kind kind = Kind::Caller;
    std::string first;
    std::string second;
};

// What a client program asks of the daemon, a datagram of one byte.
inline constexpr std::string_view kSubscribeDatagram = "\1";
inline constexpr std::string_view kUnsubscribeDatagram = "\2";

// None for a datagram that is neither a caller nor a command. Of one with a field above 64 bytes,
// all that is text is the first field, since nobody can tell where it ends.
[[nodiscard]] std::optional<ClientMessage> parse_client_message(std::string_view datagram);

}  // namespace unit
