#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <cstdint>
#include <memory>
#include <string>

#include "host/sockets.h"
#include "platform/asio/accept_loop.h"
#include "platform/asio/waiting_requests.h"

namespace platform {

// A listening port, owned by the socket that opened it and kept alive by an event of its own.
class TcpListener : public std::enable_shared_from_this<TcpListener> {
  public:
    TcpListener(boost::asio::io_context& context, std::shared_ptr<WaitingRequests> requests,
                host::TcpSocketEvents& events);

    // Throws: RunTimeError 10048 or 57.
    void open(const boost::asio::ip::tcp::endpoint& endpoint);

    // No event comes afterwards.
    void close() noexcept;

    [[nodiscard]] std::int32_t port() const;

    // Address of the latest request's peer, empty before the first.
    [[nodiscard]] const std::string& latest_peer() const noexcept { return latest_peer_; }

  private:
    using Loop = AcceptLoop<boost::asio::ip::tcp>;

    void on_connection(Loop::Socket socket);

    boost::asio::io_context& context_;
    std::shared_ptr<Loop> loop_;  // from `open` on
    std::shared_ptr<WaitingRequests> requests_;
    host::TcpSocketEvents& events_;
    std::string latest_peer_;
};

}  // namespace platform
