#include "platform/asio/socket_errors.h"

#include <algorithm>
#include <array>
#include <boost/asio/error.hpp>
#include <limits>

#include "automation/run_time_error.h"

namespace platform {

namespace errors = boost::asio::error;
using automation::ErrorNumber;
using automation::RunTimeError;

std::int32_t socket_error_number(const boost::system::error_code& error) {
    struct Row {
        boost::system::error_code error;
        std::int32_t number;
    };

    const std::array rows{
        Row{errors::access_denied, 10013},
        Row{errors::address_in_use, 10048},
        Row{errors::network_unreachable, 10051},
        Row{errors::connection_aborted, 10053},
        Row{errors::connection_reset, 10054},
        Row{errors::broken_pipe, 10054},
        Row{errors::timed_out, 10060},
        Row{errors::connection_refused, 10061},
        Row{errors::host_unreachable, 10065},
        Row{errors::host_not_found, 11001},
        Row{errors::host_not_found_try_again, 11002},
        Row{errors::no_data, 11004},
    };
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const Row& candidate) { return candidate.error == error; });
    return row != rows.end() ? row->number : static_cast<std::int32_t>(ErrorNumber::DeviceIoError);
}

void throw_if_failed(const boost::system::error_code& error, const std::string& place) {
    if (error == errors::address_in_use) {
        throw RunTimeError(ErrorNumber::AddressInUse, "Address in use: " + place);
    }
    if (error) {
        throw RunTimeError(ErrorNumber::DeviceIoError, error.message() + ": " + place);
    }
}

std::uint16_t port_number(std::int32_t port) {
    if (port < 0 || port > std::numeric_limits<std::uint16_t>::max()) {
        throw RunTimeError(ErrorNumber::DeviceIoError, "Not a port: " + std::to_string(port));
    }
    return static_cast<std::uint16_t>(port);
}

}  // namespace platform
