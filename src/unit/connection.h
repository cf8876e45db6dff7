#pragma once

#include <boost/asio/awaitable.hpp>
#include <boost/asio/ip/tcp.hpp>

namespace unit {

class Appliance;

// Serves one accepted connection: reads one request, answers it as the appliance's fault allows,
// and closes. `appliance` outlives the task.
[[nodiscard]] boost::asio::awaitable<void> serve_connection(boost::asio::ip::tcp::socket socket,
                                                            Appliance& appliance);

}  // namespace unit
