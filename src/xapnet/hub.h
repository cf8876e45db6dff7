#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/pump.h"
#include "xapnet/message.h"
#include "xapnet/rate_limited_log.h"

namespace xapnet {

struct Heartbeat;

// Another program of this machine that the hub serves.
struct HubClient {
    std::int32_t port = 0;
    std::string source;  // of its latest heartbeat
};

// The hub of a machine: the one program that hears the xAP port, which hands every datagram on to
// the other programs, as xAP 1.2 describes it. A program registers with a heartbeat that tells its
// port, is served on 127.0.0.1, and is dropped after two heartbeats that do not come, or at its
// "stopped". Part of a node while it is the hub.
class Hub {
  public:
    static constexpr std::size_t kMostClients = 200;
    static constexpr std::chrono::seconds kGrace{5};  // beyond two intervals without a heartbeat

    // Hands a datagram to a port of this machine. Must not pump.
    using Relay = std::function<void(std::string_view datagram, std::int32_t port)>;

    // `own_port` is the one that the hub hears, and never a client's; `own_address` is the address
    // of this machine on the network. Pump and log outlive the hub.
    Hub(host::Pump& pump, RateLimitedLog& log, std::int32_t own_port, std::string own_address,
        Relay relay);

    // A datagram has come from an address. `message` is what it holds, null for what nobody
    // understands, which goes on to the clients all the same.
    void take(std::string_view datagram, std::string_view from, const Message* message);

    // By port, without those whose time is over.
    [[nodiscard]] std::vector<HubClient> clients() const;

    // Datagrams handed on so far, one for each client.
    [[nodiscard]] std::uint64_t relayed() const noexcept { return relayed_; }

  private:
    struct Registration {
        std::string source;
        std::chrono::nanoseconds ends_at;  // on the pump's clock
    };

    [[nodiscard]] bool is_own_machine(std::string_view address) const;
    [[nodiscard]] bool is_over(const Registration& registration) const;
    void register_client(const Heartbeat& heartbeat, const Message& message);
    void drop_silent_clients();

    host::Pump& pump_;
    RateLimitedLog& log_;
    std::int32_t own_port_;
    std::string own_address_;
    Relay relay_;
    std::map<std::int32_t, Registration> clients_;  // by port
    std::uint64_t relayed_ = 0;
};

}  // namespace xapnet
