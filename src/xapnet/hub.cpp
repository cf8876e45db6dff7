#include "xapnet/hub.h"

#include <optional>
#include <utility>

#include "xapnet/heartbeat.h"

namespace xapnet {

Hub::Hub(host::Pump& pump, RateLimitedLog& log, std::int32_t own_port, std::string own_address,
         Relay relay)
    : pump_(pump),
      log_(log),
      own_port_(own_port),
      own_address_(std::move(own_address)),
      relay_(std::move(relay)) {}

void Hub::take(std::string_view datagram, std::string_view from, const Message* message) {
    drop_silent_clients();
    if (message != nullptr && is_own_machine(from)) {
        if (const std::optional<Heartbeat> heartbeat = heartbeat_of(*message)) {
            register_client(*heartbeat, *message);
        }
    }
    for (const auto& [port, registration] : clients_) {
        relay_(datagram, port);
        ++relayed_;
    }
}

void Hub::register_client(const Heartbeat& heartbeat, const Message& message) {
    if (heartbeat.port == 0 || heartbeat.port == own_port_) {
        return;
    }
    if (heartbeat.state == HeartbeatState::Stopped) {
        clients_.erase(heartbeat.port);
        return;
    }
    if (clients_.size() >= kMostClients && !clients_.contains(heartbeat.port)) {
        log_.write("The xAP hub serves " + std::to_string(kMostClients) +
                   " programs and takes no more: " + message.source);
        return;
    }
    clients_[heartbeat.port] = {message.source,
                                pump_.steady_now() + 2 * heartbeat.interval + kGrace};
}

void Hub::drop_silent_clients() {
    std::erase_if(clients_, [&](const auto& row) { return is_over(row.second); });
}

std::vector<HubClient> Hub::clients() const {
    std::vector<HubClient> result;
    for (const auto& [port, registration] : clients_) {
        if (!is_over(registration)) {
            result.push_back({port, registration.source});
        }
    }
    return result;
}

bool Hub::is_over(const Registration& registration) const {
    return pump_.steady_now() >= registration.ends_at;
}

bool Hub::is_own_machine(std::string_view address) const {
    return address.starts_with("127.") || address == own_address_;
}

}  // namespace xapnet
