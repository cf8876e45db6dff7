#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/xap_settings.h"
#include "platform/asio/asio_network.h"
#include "xapnet/node.h"

namespace platform {
class AsioPump;
}

namespace app {

// A program's node on the xAP network of this machine's sockets. Owned by the program; the pump
// outlives it.
class XapTransport final : private xapnet::NodeListener {
  public:
    using OnMessage = std::function<void(const host::XapMessage& message)>;

    // `on_message` gets each message of others, `log` lines for people. `device` is the middle part
    // of the own address "zyn.<device>.<instance>". Throws: RunTimeError 5 for an address that is
    // none.
    XapTransport(platform::AsioPump& pump, const XapSettings& settings, const std::string& device,
                 xapnet::HeartbeatDelivery heartbeats, OnMessage on_message,
                 xapnet::LogFunction log);

    // Throws: RunTimeError when no port can be bound.
    void start() { node_.start(); }

    void stop() noexcept { node_.stop(); }

    // A message that cannot go out is a line in the log.
    void send(const xapnet::OutgoingCall& call);

    // "xAP hub at 127.0.0.1:3639" or "xAP at 127.0.0.1:40112, by the hub at port 3639"
    [[nodiscard]] std::string summary();

  private:
    void on_message(const host::XapMessage& message) override { on_message_(message); }

    [[nodiscard]] xapnet::NodeNetworks networks();

    XapSettings settings_;
    OnMessage on_message_;
    xapnet::LogFunction log_;
    platform::AsioNetwork own_;
    std::optional<platform::AsioNetwork> broadcast_;  // none where the own one hears all
    std::optional<platform::AsioNetwork> loopback_;
    xapnet::Node node_;
};

}  // namespace app
