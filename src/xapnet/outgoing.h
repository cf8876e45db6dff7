#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace xapnet {

// Who sends.
struct Sender {
    std::string source;         // "vendor.device.instance"
    std::uint16_t unit_id = 0;  // the device's part of the UID
};

// A message as the logic gives it, in code page 1252; views for the time of the call.
struct OutgoingCall {
    std::string_view target;  // "" for everybody
    std::string_view message_class;
    std::string_view section;      // name of the first block
    std::string_view data;         // see `compose`
    std::string_view sub_address;  // goes behind the source and a ':'; "" for none
    std::string_view uid;          // "00", or two hexadecimal digits of an endpoint
};

// A datagram, or why there is none.
struct Composed {
    std::string datagram;  // UTF-8; "" with an error
    std::string error;     // "" with a datagram
};

inline constexpr std::size_t kLongestSent = 1400;  // bytes; some hubs cut off what is longer

// The message on the wire. The data are the first block's items, key and value with chr 1 between
// them and chr 0 between items; further blocks follow as plain text, LF } LF name LF { LF and lines
// with LF between them, which pass unchanged. The last block is closed here. A line end or brace
// that begins no such block is part of a value or line, and becomes a space.
[[nodiscard]] Composed compose(const Sender& sender, const OutgoingCall& call);

}  // namespace xapnet
