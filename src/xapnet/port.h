#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/sockets.h"

namespace xapnet {

// Takes a datagram and the address that it came from. May pump, and close ports.
using DatagramTaker = std::function<void(const std::string& datagram, const std::string& from)>;

// One UDP port of a node: takes one datagram with each event of its socket. Part of a set.
class Port final : private host::UdpSocketEvents {
  public:
    Port(host::Network& network, DatagramTaker take);

    [[nodiscard]] bool is_of(const host::Network& network) const noexcept {
        return &network_ == &network;
    }

    // `port` 0 is any free one. Throws: RunTimeError 10048 when it is taken.
    void bind(std::int32_t port);

    [[nodiscard]] std::int32_t number() const { return socket_->LocalPort(); }

    // Throws: RunTimeError 57 when it cannot be sent.
    void send(std::string_view datagram, std::string_view address, std::int32_t port);

    void close() noexcept { socket_->Close(); }

  private:
    void DataArrival(std::int32_t bytes_total) override;

    host::Network& network_;
    DatagramTaker take_;
    std::unique_ptr<host::UdpSocket> socket_;
};

// A port of the same number on several networks, one for each; a network that is named twice has
// one. Owned by the node. Ports are closed, and never destroyed, while they take a datagram.
class PortSet {
  public:
    PortSet(std::initializer_list<host::Network*> networks, const DatagramTaker& take);

    // Binds all, or none when one is taken: false. Throws: RunTimeError for any other reason, with
    // none bound.
    [[nodiscard]] bool bind(std::int32_t port);

    // Requires: the set was made with this network.
    [[nodiscard]] Port& on(const host::Network& network) noexcept;

    void close() noexcept;

  private:
    std::vector<std::unique_ptr<Port>> ports_;
};

}  // namespace xapnet
