#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace udp {

// The first byte of a datagram to a client program.
enum class Message : std::uint8_t { Caller = 3, Command = 6 };

// The first byte of a datagram from a client program; what follows it is ignored.
enum class Request : std::uint8_t { Subscribe = 1, Unsubscribe = 2 };

inline constexpr std::size_t kHeaderBytes = 8;  // the message's kind and seven zero bytes
inline constexpr std::size_t kFieldBytes = 64;  // of each of the two fields

// The datagram with two fields: a caller's name and number, or a command and its parameter. A
// shorter field is filled up with zero bytes; a longer one goes out whole, and what follows moves.
[[nodiscard]] std::string make_datagram(Message message, std::string_view first,
                                        std::string_view second);

}  // namespace udp
