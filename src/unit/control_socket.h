#pragma once

#include <boost/asio/awaitable.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/local/stream_protocol.hpp>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "unit/task_group.h"

namespace unit {

// The Unix socket, open to its owner alone, through which a unit is told what to do: each line
// is answered with one line. Owned by the unit, used on its loop only.
class ControlSocket {
  public:
    // Gives the answer to one line; neither has a line end.
    using Handler = std::function<std::string(std::string_view line)>;

    // Takes the path, also from a process that left its socket behind. Connections wait until
    // start().
    // Throws: std::runtime_error when a living unit has the path, or it cannot be used.
    ControlSocket(boost::asio::io_context& loop, std::filesystem::path path, Handler handler);

    ~ControlSocket();

    ControlSocket(const ControlSocket&) = delete;
    ControlSocket& operator=(const ControlSocket&) = delete;

    // Accepts. Requires: called on the loop, once.
    void start();

    // Ends all connections and removes the socket's file.
    void close() noexcept;

  private:
    using Protocol = boost::asio::local::stream_protocol;

    void bind();
    boost::asio::awaitable<void> accept_connections();
    boost::asio::awaitable<void> serve(Protocol::socket socket);

    std::filesystem::path path_;
    Handler handler_;
    Protocol::acceptor acceptor_;
    TaskGroup tasks_;  // the accepting task, and one for each open connection
};

}  // namespace unit
