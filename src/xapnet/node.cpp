#include "xapnet/node.h"

#include <algorithm>
#include <utility>

#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "xapnet/address.h"
#include "xapnet/received_message.h"
#include "xapnet/wire_text.h"

namespace xapnet {

namespace {

constexpr std::string_view kLoopbackAddress = "127.0.0.1";
constexpr std::int32_t kAnyPort = 0;

}  // namespace

Node::Node(host::Pump& pump, const NodeNetworks& networks, NodeOptions options,
           NodeListener& listener, const LogFunction& log)
    : pump_(pump),
      networks_(networks),
      options_(std::move(options)),
      sender_{options_.source, options_.unit_id},
      listener_(listener),
      log_(log),
      refusals_(pump, LogLevel::Debug, log),
      errors_(pump, LogLevel::Info, log),
      hub_ports_({&networks.own, &networks.broadcast, &networks.loopback},
                 [this](const auto& datagram, const auto& from) { take(datagram, from); }),
      client_ports_({&networks.own, &networks.loopback},
                    [this](const auto& datagram, const auto& from) { take(datagram, from); }),
      heartbeat_timer_(pump.make_timer([this] { beat(HeartbeatState::Alive); })),
      reclaim_timer_(pump.make_timer([this] { reclaim(); })) {
    options_.heartbeat_interval =
        std::clamp(options_.heartbeat_interval, kShortestInterval, kLongestInterval);
    heartbeat_timer_->set_interval(options_.heartbeat_interval);
    reclaim_timer_->set_interval(options_.reclaim_interval);
}

// --- roles --------------------------------------------------------------------------------------

void Node::start() {
    if (counts_.role != NodeRole::Stopped || become_hub()) {
        return;
    }
    if (!client_ports_.bind(kAnyPort)) {
        throw automation::RunTimeError(automation::ErrorNumber::AddressInUse);
    }
    become(NodeRole::Client);
}

bool Node::become_hub() {
    if (!hub_ports_.bind(options_.port)) {
        return false;
    }
    client_ports_.close();
    hub_.emplace(pump_, refusals_, options_.port, options_.interface_address,
                 [this](std::string_view datagram, std::int32_t port) { relay(datagram, port); });
    become(NodeRole::Hub);
    return true;
}

// The port tells others nothing until they hear of it, so the first heartbeat leaves at once.
void Node::become(NodeRole role) {
    counts_.role = role;
    log_(LogLevel::Info,
         (role == NodeRole::Hub ? "Is the xAP hub of this machine, on port "
                                : "Hears xAP through this machine's hub, on port ") +
             std::to_string(own_port()));
    beat(HeartbeatState::Alive);
    heartbeat_timer_->set_enabled(true);
    reclaim_timer_->set_enabled(role == NodeRole::Client);
}

void Node::reclaim() {
    automation::guarded(errors_, "The xAP port is not to be had: ", [&] { (void)become_hub(); });
}

void Node::stop() noexcept {
    if (counts_.role == NodeRole::Stopped) {
        return;
    }
    beat(HeartbeatState::Stopped);
    counts_.role = NodeRole::Stopped;
    heartbeat_timer_->set_enabled(false);
    reclaim_timer_->set_enabled(false);
    hub_.reset();
    hub_ports_.close();
    client_ports_.close();
}

std::int32_t Node::own_port() {
    switch (counts_.role) {
        case NodeRole::Hub:
            return options_.port;
        case NodeRole::Client:
            return client_ports_.on(networks_.loopback).number();
        case NodeRole::Stopped:
            break;
    }
    return 0;
}

// --- to the network -----------------------------------------------------------------------------

void Node::broadcast(std::string_view datagram) {
    PortSet& ports = counts_.role == NodeRole::Hub ? hub_ports_ : client_ports_;
    ports.on(networks_.own).send(datagram, options_.broadcast_address, options_.port);
}

void Node::beat(HeartbeatState state) {
    automation::guarded(errors_, "The xAP heartbeat was not sent: ", [&] {
        broadcast(heartbeat_datagram(
            sender_, {state, options_.heartbeat_interval, own_port(), options_.process_id}));
    });
}

std::string Node::send(const OutgoingCall& call) {
    if (counts_.role == NodeRole::Stopped) {
        return "The xAP node does not run";
    }
    const Composed composed = compose(sender_, call);
    if (!composed.error.empty()) {
        return composed.error;
    }
    try {
        broadcast(composed.datagram);
    } catch (const automation::RunTimeError& error) {
        return error.description();
    }
    ++counts_.sent;
    return "";
}

// One client that cannot be reached must not keep a datagram from the next.
void Node::relay(std::string_view datagram, std::int32_t port) {
    automation::guarded(refusals_, "An xAP datagram was not relayed: ", [&] {
        hub_ports_.on(networks_.loopback).send(datagram, kLoopbackAddress, port);
    });
}

// --- from the network ---------------------------------------------------------------------------

void Node::take(const std::string& datagram, const std::string& from) {
    ParsedMessage parsed = parse_message(text_from_wire(datagram));
    if (hub_) {
        hub_->take(datagram, from, parsed.message ? &*parsed.message : nullptr);
    }
    if (parsed.message) {
        deliver(std::move(*parsed.message));
    } else {
        refuse(parsed.error + ", from " + from);
    }
}

// Nothing follows the listener's call, during which all may change.
void Node::deliver(Message message) {
    if (is_same_device(message.source, sender_.source)) {
        ++counts_.echoes;
        return;
    }
    if (message.hop > kMostHops) {
        refuse("over more than " + std::to_string(kMostHops) + " hops, from " + message.source);
        return;
    }
    const bool is_heartbeat = message.kind == MessageKind::Heartbeat;
    ++(is_heartbeat ? counts_.heartbeats : counts_.delivered);
    if (is_heartbeat && options_.heartbeats == HeartbeatDelivery::CountOnly) {
        return;
    }
    automation::guarded(errors_, "An xAP message was not taken: ", [&] {
        listener_.on_message(ReceivedMessage(std::move(message)));
    });
}

void Node::refuse(const std::string& reason) {
    ++counts_.refused;
    refusals_.write("Refused an xAP message, " + reason);
}

NodeStatus Node::status() {
    NodeStatus status = counts_;
    status.port = own_port();
    if (hub_) {
        status.clients = hub_->clients();
        status.relayed = hub_->relayed();
    }
    return status;
}

}  // namespace xapnet
