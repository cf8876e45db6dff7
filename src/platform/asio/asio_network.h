#pragma once

#include <memory>
#include <string_view>

#include "host/sockets.h"

namespace platform {

class AsioPump;

// The network of the machine. Owned by the program; the pump outlives it. Sockets may outlive it;
// their events must not. Connections that were closed with bytes still queued live on in the pump.
class AsioNetwork : public host::Network {
  public:
    static constexpr std::string_view kLoopback = "127.0.0.1";

    // Listeners and UDP sockets are bound to `listen_address`, an IPv4 or IPv6 address; "0.0.0.0"
    // listens everywhere. Throws: RunTimeError 5 for anything else.
    explicit AsioNetwork(AsioPump& pump, std::string_view listen_address = kLoopback);
    ~AsioNetwork() override;

    // TCP sockets send without delay, and stop reading from the peer while 64 kB wait for
    // `GetData`. `Close` gives queued bytes 30 s. `Listen`, `Accept` and `Connect` throw
    // RunTimeError 57 unless the socket is closed.
    [[nodiscard]] std::unique_ptr<host::TcpSocket> make_tcp_socket(
        host::TcpSocketEvents& events) override;

    // UDP sockets may broadcast. `SendData` binds a socket that is not bound yet. A remote host
    // given by name is looked up behind the call; when nobody knows it, the datagram is lost and
    // the next `SendData` throws. 256 datagrams wait for `GetData`, later ones are dropped.
    [[nodiscard]] std::unique_ptr<host::UdpSocket> make_udp_socket(
        host::UdpSocketEvents& events) override;

  private:
    struct Core;

    std::unique_ptr<Core> core_;
};

}  // namespace platform
