#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "host/pump.h"
#include "host/sockets.h"
#include "support/memory_tcp.h"

namespace support {

class MemoryUdpSocket;

// What the UDP sockets of all machines share: who is bound where.
struct UdpWires {
    host::Pump& pump;
    std::map<Place, MemoryUdpSocket*> bound;
    std::int32_t next_port = kFirstFreePort;
};

// A UDP socket of one machine. A datagram to 255.255.255.255 reaches that port of every machine.
// An address that nobody is bound to swallows its datagrams; a host by name is unknown, but for
// "localhost".
class MemoryUdpSocket final : public host::UdpSocket {
  public:
    MemoryUdpSocket(std::shared_ptr<UdpWires> wires, std::string_view address,
                    host::UdpSocketEvents& events)
        : wires_(std::move(wires)), address_(address), events_(events) {}

    ~MemoryUdpSocket() override { Close(); }

    void set_remote_host(std::string_view host) override { remote_.first = host; }

    void set_remote_port(std::int32_t port) override { remote_.second = port; }

    void set_local_port(std::int32_t port) override { local_port_ = port; }

    [[nodiscard]] std::int32_t LocalPort() const override;
    void Bind() override;
    void SendData(std::string_view bytes) override;
    [[nodiscard]] std::string GetData() override;

    [[nodiscard]] std::string RemoteHostIP() const override { return sender_; }

    void Close() noexcept override;

  private:
    struct Datagram {
        std::string bytes;
        std::string sender;
    };

    void receive(const Datagram& datagram);

    std::shared_ptr<UdpWires> wires_;
    std::string address_;
    host::UdpSocketEvents& events_;
    Place remote_;
    std::int32_t local_port_ = 0;
    std::int32_t bound_port_ = 0;  // 0 when not bound
    std::deque<Datagram> arrived_;
    std::string sender_;  // of the datagram taken last
};

}  // namespace support
