#include "support/memory_network.h"

#include <limits>

namespace support {

namespace {

constexpr std::int32_t kAll = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kRefused = 10061;

}  // namespace

// --- TCP ----------------------------------------------------------------------------------------

TcpPeer::TcpPeer(const std::shared_ptr<TcpWires>& wires, std::string_view address)
    : socket_(wires, address, *this) {}

void TcpPeer::connect(std::string_view host, std::int32_t port) {
    socket_.Connect(host, port);
}

void TcpPeer::accept(host::ConnectionRequestId request) {
    socket_.Accept(request);
}

void TcpPeer::send(std::string_view packet) {
    socket_.SendData(packet);
}

void TcpPeer::close() {
    closed_ = true;
    socket_.Close();
}

void TcpPeer::reset() {
    closed_ = true;
    socket_.end().reset();
    socket_.Close();
}

void TcpPeer::DataArrival(std::int32_t /*bytes_total*/) {
    const std::string packet = socket_.GetData(kAll);
    received_ += packet;
    if (on_packet) {
        on_packet(*this, packet);
    }
}

void TcpPeer::Close() {
    close();
}

void TcpPeer::Error(std::int32_t number, std::string_view /*description*/) {
    refused_ = number == kRefused;
    close();
}

TcpPeerServer::TcpPeerServer(const std::shared_ptr<TcpWires>& wires, std::string_view address,
                             std::int32_t port)
    : wires_(wires), address_(address), listener_(wires, address, *this) {
    listener_.set_local_port(port);
    listener_.Listen();
}

void TcpPeerServer::ConnectionRequest(host::ConnectionRequestId request) {
    TcpPeer& peer = peers_.emplace_back(wires_, address_);
    peer.on_packet = [this](TcpPeer& self, std::string_view packet) {
        packets_.emplace_back(packet);
        if (on_packet) {
            on_packet(self, packet);
        }
    };
    peer.accept(request);
    if (on_connection) {
        on_connection(peer);
    }
}

// --- UDP ----------------------------------------------------------------------------------------

UdpPeer::UdpPeer(const std::shared_ptr<UdpWires>& wires, std::string_view address,
                 std::int32_t port)
    : socket_(wires, address, *this) {
    socket_.set_local_port(port);
    socket_.Bind();
}

void UdpPeer::send(std::string_view host, std::int32_t port, std::string_view datagram) {
    socket_.set_remote_host(host);
    socket_.set_remote_port(port);
    socket_.SendData(datagram);
}

void UdpPeer::DataArrival(std::int32_t /*bytes_total*/) {
    const std::string datagram = socket_.GetData();
    received_.push_back(datagram);
    if (on_datagram) {
        on_datagram(*this, datagram);
    }
}

// --- the whole ----------------------------------------------------------------------------------

MemoryNetwork::MemoryNetwork(host::Pump& pump, std::string_view house)
    : house_(house),
      tcp_(std::make_shared<TcpWires>(pump)),
      udp_(std::make_shared<UdpWires>(UdpWires{pump, {}, kFirstFreePort})) {}

std::unique_ptr<host::TcpSocket> MemoryNetwork::make_tcp_socket(host::TcpSocketEvents& events) {
    return std::make_unique<MemoryTcpSocket>(tcp_, house_, events);
}

std::unique_ptr<host::UdpSocket> MemoryNetwork::make_udp_socket(host::UdpSocketEvents& events) {
    return std::make_unique<MemoryUdpSocket>(udp_, house_, events);
}

TcpPeer& MemoryNetwork::connect(std::int32_t port, std::string_view from) {
    TcpPeer& peer = peers_.emplace_back(tcp_, from);
    peer.connect(house_, port);
    return peer;
}

TcpPeerServer& MemoryNetwork::serve(std::string_view address, std::int32_t port) {
    return servers_.emplace_back(tcp_, address, port);
}

UdpPeer& MemoryNetwork::udp(std::string_view address, std::int32_t port) {
    return udp_peers_.emplace_back(udp_, address, port);
}

}  // namespace support
