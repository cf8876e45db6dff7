#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/pump.h"
#include "host/sockets.h"
#include "host/xap_message.h"
#include "xapnet/heartbeat.h"
#include "xapnet/hub.h"
#include "xapnet/message.h"
#include "xapnet/outgoing.h"
#include "xapnet/port.h"
#include "xapnet/rate_limited_log.h"

namespace xapnet {

inline constexpr std::int32_t kXapPort = 3639;
inline constexpr std::int32_t kMostHops = 10;  // of a message that is still delivered

// Where a node opens its sockets. A socket of the interface's own address hears no broadcast, and a
// hub serves its clients on the loopback address; so there are three. Networks that are bound to
// the same address have to be the same object, which then has one socket; bound to all addresses
// ("0.0.0.0"), one object does the work of three, and hears broadcasts to any address. All outlive
// the node.
struct NodeNetworks {
    host::Network& own;        // bound to the interface's address
    host::Network& broadcast;  // bound to its broadcast address
    host::Network& loopback;   // bound to 127.0.0.1
};

enum class HeartbeatDelivery : std::uint8_t { CountOnly, Deliver };

struct NodeOptions {
    std::string source;             // "vendor.device.instance", without ':'
    std::uint16_t unit_id = 0;      // the device's part of the UIDs
    std::string interface_address;  // of this machine, such as "192.168.1.5"
    std::string broadcast_address;  // such as "192.168.1.255"
    std::int32_t port = kXapPort;   // of the whole network
    std::string process_id;         // told in heartbeats unless ""
    std::chrono::seconds heartbeat_interval = kUsualInterval;  // held between 1 s and 1 h
    std::chrono::seconds reclaim_interval{5};  // between two tries of a client to become the hub
    HeartbeatDelivery heartbeats = HeartbeatDelivery::CountOnly;
};

// Receives what a node delivers. Outlives the node.
class NodeListener {
  public:
    virtual ~NodeListener() = default;

    // A message of another program, also one that is meant for others. May pump, send, and stop the
    // node, but not destroy it; other messages may arrive meanwhile. A RunTimeError is logged.
    virtual void on_message(const host::XapMessage& message) = 0;
};

enum class NodeRole : std::uint8_t { Stopped, Hub, Client };

// A node at one moment, for people. Counts go over the node's life.
struct NodeStatus {
    NodeRole role = NodeRole::Stopped;
    std::int32_t port = 0;           // that it hears, 0 when it is stopped
    std::vector<HubClient> clients;  // of the hub
    std::uint64_t delivered = 0;     // messages of others
    std::uint64_t sent = 0;          // messages, without heartbeats
    std::uint64_t refused = 0;       // malformed, or on their way for too long
    std::uint64_t heartbeats = 0;    // of others
    std::uint64_t echoes = 0;        // own messages that came back
    std::uint64_t relayed = 0;       // by the present hub
};

// One program's place on an xAP 1.2 network: hears messages, sends them, and gives signs of life.
// The first on a machine to bind the port is its hub and serves the others; the others hear through
// the hub, and take its place within the reclaim interval when it is gone. Clients that such a new
// hub does not know are served from their next heartbeat on.
// Owned by the program. Its end without `stop` sends nothing, as if the program had been killed.
class Node {
  public:
    // Pump, networks and listener outlive the node.
    Node(host::Pump& pump, const NodeNetworks& networks, NodeOptions options,
         NodeListener& listener, const LogFunction& log);
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    // Takes a role and sends the first heartbeat; does nothing in a node that runs. Throws:
    // RunTimeError when neither the network's port nor a free one can be bound.
    void start();

    // Tells the network, and hears nothing from now on.
    void stop() noexcept;

    // Broadcasts a message, see `compose`. Returns "" when it has left, else why not.
    [[nodiscard]] std::string send(const OutgoingCall& call);

    [[nodiscard]] NodeStatus status();

  private:
    void become(NodeRole role);
    [[nodiscard]] bool become_hub();
    void reclaim();
    void beat(HeartbeatState state);
    void broadcast(std::string_view datagram);
    void relay(std::string_view datagram, std::int32_t port);

    void take(const std::string& datagram, const std::string& from);
    void deliver(Message message);
    void refuse(const std::string& reason);

    [[nodiscard]] std::int32_t own_port();

    host::Pump& pump_;
    NodeNetworks networks_;
    NodeOptions options_;
    Sender sender_;
    NodeListener& listener_;
    LogFunction log_;
    RateLimitedLog refusals_;
    RateLimitedLog errors_;
    NodeStatus counts_;  // role and counts alone
    PortSet hub_ports_;
    PortSet client_ports_;
    std::optional<Hub> hub_;  // while the node is the hub
    std::unique_ptr<host::Timer> heartbeat_timer_;
    std::unique_ptr<host::Timer> reclaim_timer_;
};

}  // namespace xapnet
