#pragma once

#include <boost/asio/awaitable.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/udp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <string_view>

#include "unit/task_group.h"

namespace unit {

class Appliance;

// The client program of an appliance: subscribes to the daemon, again each minute since the daemon
// forgets its clients at its start, and gives the appliance what comes. Owned by the unit, used on
// its loop only.
class ClientProgram {
  public:
    using Address = boost::asio::ip::udp::endpoint;

    // Listens at `own`, and knows the daemon at `daemon`. `appliance` outlives the program.
    ClientProgram(boost::asio::io_context& loop, const Address& own, const Address& daemon,
                  Appliance& appliance);

    // Throws: std::runtime_error that names the address, when it cannot be listened on.
    void open();

    // Subscribes, and hears. Requires: called on the loop, once for each open().
    void start();

    // Without a word to the daemon, as when the power fails.
    void close() noexcept;

    // A daemon that is not there is no error. Both do nothing while the program is closed.
    void subscribe();
    void unsubscribe();

  private:
    boost::asio::awaitable<void> subscribe_again();
    boost::asio::awaitable<void> hear();
    void send(std::string_view datagram) noexcept;

    Address own_;
    Address daemon_;
    Appliance& appliance_;
    boost::asio::ip::udp::socket socket_;
    boost::asio::steady_timer minute_;
    TaskGroup tasks_;
    bool is_subscribed_ = false;
};

}  // namespace unit
