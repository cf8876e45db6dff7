#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/pump.h"
#include "host/sockets.h"
#include "support/memory_tcp.h"
#include "support/memory_udp.h"

namespace support {

// A test's own end of a TCP connection, on another machine than the house. Owned by the network.
class TcpPeer final : private host::TcpSocketEvents {
  public:
    TcpPeer(const std::shared_ptr<TcpWires>& wires, std::string_view address);

    // Connects to a port of the house, or takes over a request; events of the pump do the rest.
    void connect(std::string_view host, std::int32_t port);
    void accept(host::ConnectionRequestId request);

    // Each call is one packet. Throws: RunTimeError 57 unless connected.
    void send(std::string_view packet);

    void close();

    // Breaks the connection, as when this machine loses its power: an error at the house.
    void reset();

    // Stops reading: what the house sends does not complete until `read_on`.
    void hold_back() { socket_.end().set_holds_back(true); }

    void read_on() { socket_.end().set_holds_back(false); }

    // All bytes read so far.
    [[nodiscard]] const std::string& received() const noexcept { return received_; }

    [[nodiscard]] bool connected() const { return socket_.State() == host::SocketState::Connected; }

    // Nobody listened.
    [[nodiscard]] bool refused() const noexcept { return refused_; }

    // The connection is over, whichever side has closed it.
    [[nodiscard]] bool closed() const noexcept { return closed_; }

    // Runs with each packet that arrives, and may answer it.
    std::function<void(TcpPeer& self, std::string_view packet)> on_packet;

  private:
    void DataArrival(std::int32_t bytes_total) override;
    void Close() override;
    void Error(std::int32_t number, std::string_view description) override;

    MemoryTcpSocket socket_;
    std::string received_;
    bool refused_ = false;
    bool closed_ = false;
};

// A TCP server on another machine: takes every connection. Owned by the network.
class TcpPeerServer final : private host::TcpSocketEvents {
  public:
    TcpPeerServer(const std::shared_ptr<TcpWires>& wires, std::string_view address,
                  std::int32_t port);

    // Its connections, the oldest first; those that are over stay in the list.
    [[nodiscard]] TcpPeer& peer(std::size_t index) { return peers_.at(index); }

    [[nodiscard]] std::size_t peer_count() const noexcept { return peers_.size(); }

    // All packets of all connections, in the order of arrival.
    [[nodiscard]] const std::vector<std::string>& packets() const noexcept { return packets_; }

    // Stops listening: later connections are refused.
    void close() { listener_.Close(); }

    // Runs when a connection stands, for a server that closes it or holds back.
    std::function<void(TcpPeer& peer)> on_connection;

    // Runs with each packet that arrives, and may answer it.
    std::function<void(TcpPeer& peer, std::string_view packet)> on_packet;

  private:
    void ConnectionRequest(host::ConnectionRequestId request) override;

    std::shared_ptr<TcpWires> wires_;
    std::string address_;
    MemoryTcpSocket listener_;
    std::deque<TcpPeer> peers_;
    std::vector<std::string> packets_;
};

// A UDP port of another machine. Owned by the network.
class UdpPeer final : private host::UdpSocketEvents {
  public:
    UdpPeer(const std::shared_ptr<UdpWires>& wires, std::string_view address, std::int32_t port);

    void send(std::string_view host, std::int32_t port, std::string_view datagram);

    // All datagrams so far, the oldest first.
    [[nodiscard]] const std::vector<std::string>& received() const noexcept { return received_; }

    // Runs with each datagram that arrives, and may answer it.
    std::function<void(UdpPeer& self, std::string_view datagram)> on_datagram;

  private:
    void DataArrival(std::int32_t bytes_total) override;

    MemoryUdpSocket socket_;
    std::vector<std::string> received_;
};

// The network of tests: the house and other machines, in memory. What one side does reaches the
// other as events of the pump, without delay and in order. Owned by the fixture, before all that
// makes sockets; the pump outlives it.
class MemoryNetwork final : public host::Network {
  public:
    static constexpr std::string_view kHouse = "10.0.0.2";
    static constexpr std::string_view kVisitor = "10.0.0.7";

    explicit MemoryNetwork(host::Pump& pump, std::string_view house = kHouse);

    // The house at another address of the same network, such as that of its broadcasts.
    MemoryNetwork(const MemoryNetwork& network, std::string_view address)
        : house_(address), tcp_(network.tcp_), udp_(network.udp_) {}

    // --- the house ------------------------------------------------------------------------------

    [[nodiscard]] std::unique_ptr<host::TcpSocket> make_tcp_socket(
        host::TcpSocketEvents& events) override;
    [[nodiscard]] std::unique_ptr<host::UdpSocket> make_udp_socket(
        host::UdpSocketEvents& events) override;

    // --- the other machines; what they get lives as long as the network
    // ---------------------------

    // Somebody connects to a port of the house.
    TcpPeer& connect(std::int32_t port, std::string_view from = kVisitor);

    TcpPeerServer& serve(std::string_view address, std::int32_t port);

    UdpPeer& udp(std::string_view address, std::int32_t port);

    // A machine without power: connections to it get neither an answer nor a refusal.
    void silence(std::string_view address) { tcp_->silence(address); }

  private:
    std::string house_;
    std::shared_ptr<TcpWires> tcp_;
    std::shared_ptr<UdpWires> udp_;
    std::deque<TcpPeer> peers_;
    std::deque<TcpPeerServer> servers_;
    std::deque<UdpPeer> udp_peers_;
};

}  // namespace support
