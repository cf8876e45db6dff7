#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/memory_network.h"
#include "support/virtual_pump.h"
#include "xapnet/node.h"

namespace xapnet {

// A node with all that it tells of: "source class" of each message, and its log.
class TestNode final : public NodeListener {
  public:
    TestNode(support::VirtualPump& pump, const NodeNetworks& networks, NodeOptions options)
        : pump_(pump),
          node_(std::make_unique<Node>(
              pump, networks, std::move(options), *this,
              [this](LogLevel level, std::string_view text) { add_line(level, text); })) {}

    Node& operator*() { return *node_; }

    Node* operator->() { return node_.get(); }

    // Its program is killed.
    void kill() { node_.reset(); }

    [[nodiscard]] std::vector<std::string> take_heard() { return std::exchange(heard_, {}); }

    // Debug lines alone: "10:00:00.000 text".
    [[nodiscard]] const std::vector<std::string>& debug_log() const { return debug_log_; }

    [[nodiscard]] const std::vector<std::string>& log() const { return log_; }

    // Runs once, while the next message is taken.
    std::function<void()> on_heard;

    void on_message(const host::XapMessage& message) override {
        heard_.push_back(message.MsgSource() + " " + message.MsgClass());
        if (const auto event = std::exchange(on_heard, nullptr)) {
            event();
        }
    }

  private:
    void add_line(LogLevel level, std::string_view text) {
        (level == LogLevel::Debug ? debug_log_ : log_)
            .push_back(pump_.time_of_day() + " " + std::string(text));
    }

    support::VirtualPump& pump_;
    std::vector<std::string> heard_;
    std::vector<std::string> debug_log_;
    std::vector<std::string> log_;
    std::unique_ptr<Node> node_;
};

// A house's network: programs of one machine, each a node or a bare socket, and other machines.
class XapHouse {
  public:
    static constexpr std::string_view kEverybody = "255.255.255.255";
    static constexpr std::string_view kGarden = "10.0.0.9";  // another machine

    NodeOptions options(const std::string& instance = "house") {
        NodeOptions options;
        options.source = "zyn.zynVelora." + instance;
        options.unit_id = 0x1234;
        options.interface_address = support::MemoryNetwork::kHouse;
        options.broadcast_address = kEverybody;
        return options;
    }

    TestNode& node(const NodeOptions& options) {
        nodes_.push_back(
            std::make_unique<TestNode>(pump, NodeNetworks{network, network, network}, options));
        return *nodes_.back();
    }

    // A node that runs.
    TestNode& start(const std::string& instance = "house") {
        TestNode& started = node(options(instance));
        started->start();
        run_for(std::chrono::milliseconds(1));
        return started;
    }

    // A program that is no node, at this port; to be heard by others it has to say so.
    support::UdpPeer& program(std::int32_t port,
                              std::string_view machine = support::MemoryNetwork::kHouse) {
        return network.udp(machine, port);
    }

    void broadcast(support::UdpPeer& from, std::string_view datagram) {
        from.send(kEverybody, kXapPort, datagram);
        run_for(std::chrono::milliseconds(1));
    }

    void run_for(std::chrono::milliseconds duration) { pump.run_for(duration); }

    support::VirtualPump pump;
    support::MemoryNetwork network{pump};

  private:
    std::vector<std::unique_ptr<TestNode>> nodes_;
};

inline std::string message_text(const std::string& source, const std::string& hop = "1") {
    return "xap-header\n{\nv=12\nhop=" + hop + "\nuid=FF000100\nclass=c\nsource=" + source +
           "\n}\nb\n{\n}\n";
}

inline std::string heartbeat_text(const std::string& further, const std::string& state = "alive") {
    return "xap-hbeat\n{\nv=12\nhop=1\nuid=FF000100\nclass=xap-hbeat." + state +
           "\nsource=a.b.c\n" + further + "\n}\n";
}

}  // namespace xapnet
