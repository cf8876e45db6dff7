#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace app {

// What a client program is told by one datagram of the daemon: a caller's name and number, or a
// command and its parameter. See docs/udp-clients.md for the lay-out.
struct ClientMessage {
    enum class Kind { Caller, Command };

    Kind kind = Kind::Caller;
    std::string first;
    std::string second;
};

// None for a datagram that is neither.
[[nodiscard]] std::optional<ClientMessage> parse_client_message(std::string_view datagram);

// "caller   Anna Smith/home   (503) 555-1234", in UTF-8.
[[nodiscard]] std::string text_of(const ClientMessage& message);

}  // namespace app
