#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <cstdint>
#include <memory>
#include <string>

#include "host/sockets.h"
#include "platform/asio/waiting_requests.h"

namespace platform {

// A listening port, shared between the socket that opened it and its own waits.
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
    void accept();
    void on_accept(const boost::system::error_code& error, boost::asio::ip::tcp::socket socket);
    void retry_later();

    boost::asio::ip::tcp::acceptor acceptor_;
    boost::asio::steady_timer retry_;
    std::shared_ptr<WaitingRequests> requests_;
    host::TcpSocketEvents& events_;
    std::string latest_peer_;
};

}  // namespace platform
