#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/address.hpp>
#include <memory>

#include "host/sockets.h"

namespace platform {

// The UDP socket that the logic holds, with a port behind it while it is bound.
class AsioUdpSocket final : public host::UdpSocket {
  public:
    AsioUdpSocket(boost::asio::io_context& context, boost::asio::ip::address listen_address,
                  host::UdpSocketEvents& events);
    ~AsioUdpSocket() override;

    void set_remote_host(std::string_view host) override;
    void set_remote_port(std::int32_t port) override;
    void set_local_port(std::int32_t port) override;
    [[nodiscard]] std::int32_t LocalPort() const override;
    void Bind() override;
    void SendData(std::string_view bytes) override;
    [[nodiscard]] std::string GetData() override;
    [[nodiscard]] std::string RemoteHostIP() const override;
    void Close() noexcept override;

  private:
    class Port;

    boost::asio::io_context& context_;
    boost::asio::ip::address listen_address_;
    host::UdpSocketEvents& events_;
    std::string remote_host_;
    std::int32_t remote_port_ = 0;
    std::int32_t local_port_ = 0;
    std::string sender_;          // of the datagram taken last
    std::shared_ptr<Port> port_;  // shared with its own transfers
};

}  // namespace platform
