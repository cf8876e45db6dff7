#pragma once

#include <boost/asio/awaitable.hpp>
#include <boost/asio/ip/tcp.hpp>

namespace unit {

class Appliance;

// Serves one accepted connection of the music player: all that comes until the client closes is
// one text, which is taken as the appliance's fault allows. Nothing is answered. `appliance`
// outlives the task.
[[nodiscard]] boost::asio::awaitable<void> serve_jukebox(boost::asio::ip::tcp::socket socket,
                                                         Appliance& appliance);

}  // namespace unit
