#pragma once

#include <boost/system/error_code.hpp>
#include <cstdint>
#include <string>

namespace platform {

// Number of a network failure as socket users know it: 10061 for a refused connection, 57 for one
// without a number of its own.
[[nodiscard]] std::int32_t socket_error_number(const boost::system::error_code& error);

// Throws: RunTimeError 10048 "Address in use: <place>" or 57 "<reason>: <place>", if `error` is
// set.
void throw_if_failed(const boost::system::error_code& error, const std::string& place);

// Throws: RunTimeError 57 for a number that is no port.
[[nodiscard]] std::uint16_t port_number(std::int32_t port);

}  // namespace platform
