#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/address.hpp>
#include <memory>

#include "host/sockets.h"
#include "platform/asio/tcp_connection.h"
#include "platform/asio/tcp_listener.h"

namespace platform {

// The socket that the logic holds: closed, or with either a listener or a connection behind it.
class AsioTcpSocket final : public host::TcpSocket {
  public:
    AsioTcpSocket(boost::asio::io_context& context, boost::asio::ip::address listen_address,
                  std::shared_ptr<WaitingRequests> requests, host::TcpSocketEvents& events);
    ~AsioTcpSocket() override;

    [[nodiscard]] std::int32_t LocalPort() const override;
    void set_local_port(std::int32_t port) override;
    void Listen() override;
    void Accept(host::ConnectionRequestId request) override;
    void Connect(std::string_view remote_host, std::int32_t remote_port) override;
    [[nodiscard]] std::string GetData(std::int32_t max_length) override;
    void SendData(std::string_view bytes) override;
    void Close() noexcept override;
    [[nodiscard]] host::SocketState State() const override;
    [[nodiscard]] std::string RemoteHostIP() const override;

  private:
    void require_closed() const;

    boost::asio::io_context& context_;
    boost::asio::ip::address listen_address_;
    std::shared_ptr<WaitingRequests> requests_;
    host::TcpSocketEvents& events_;
    std::int32_t local_port_ = 0;
    std::string last_peer_;  // of what has been closed
    std::shared_ptr<TcpListener> listener_;
    std::shared_ptr<TcpConnection> connection_;
};

}  // namespace platform
