#include "udp/datagram.h"

#include <algorithm>

namespace udp {

namespace {

std::string field(std::string_view text) {
    std::string bytes(text);
    bytes.resize(std::max(bytes.size(), kFieldBytes), '\0');
    return bytes;
}

}  // namespace

std::string make_datagram(Message message, std::string_view first, std::string_view second) {
    std::string bytes(1, static_cast<char>(message));
    bytes.resize(kHeaderBytes, '\0');
    return bytes.append(field(first)).append(field(second));
}

}  // namespace udp
