#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "xapnet/message.h"

namespace xapnet {

struct Sender;

enum class HeartbeatState : std::uint8_t { Alive, Stopped };

inline constexpr std::chrono::seconds kShortestInterval{1};
inline constexpr std::chrono::seconds kLongestInterval{3600};
inline constexpr std::chrono::seconds kUsualInterval{60};

// A sign of life of a program, as xAP 1.2 has it: one each interval, and one at its orderly end.
struct Heartbeat {
    HeartbeatState state = HeartbeatState::Alive;
    std::chrono::seconds interval = kUsualInterval;  // 1 s to 1 h
    std::int32_t port = 0;   // that the program listens on, 0 when it does not tell
    std::string process_id;  // any text, "" for none
};

// What a heartbeat tells, by its class; nothing for any other message. An interval that is missing
// or out of range is the usual one, a port that is none of 1 to 65535 is 0. "stop" is read as
// "stopped".
[[nodiscard]] std::optional<Heartbeat> heartbeat_of(const Message& message);

// The heartbeat of a sender on the wire.
[[nodiscard]] std::string heartbeat_datagram(const Sender& sender, const Heartbeat& heartbeat);

}  // namespace xapnet
