#pragma once

#include <boost/asio/awaitable.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <functional>

#include "unit/task_group.h"

namespace unit {

// A port of the appliance: listens, and serves each connection as a task of its own. Owned by the
// unit, used on its loop only.
class PortListener {
  public:
    using Serve = std::function<boost::asio::awaitable<void>(boost::asio::ip::tcp::socket socket)>;

    // Does not listen yet. Port 0 is replaced by the port that the first open() is given. What
    // `serve` refers to outlives the listener.
    PortListener(boost::asio::io_context& loop, const boost::asio::ip::tcp::endpoint& address,
                 Serve serve);

    // The address with its real port.
    [[nodiscard]] const boost::asio::ip::tcp::endpoint& address() const noexcept {
        return address_;
    }

    // Listens; connections wait until start(). Requires: not open.
    // Throws: std::runtime_error that names the address, when it cannot be listened on.
    void open();

    // Accepts. Requires: called on the loop, once for each open().
    void start();

    // Refuses connections from now on, and cuts those that are open.
    void close() noexcept;

  private:
    boost::asio::awaitable<void> accept_connections();

    Serve serve_;
    boost::asio::ip::tcp::endpoint address_;
    boost::asio::ip::tcp::acceptor acceptor_;
    TaskGroup tasks_;  // the accepting task, and one for each open connection
};

}  // namespace unit
