#include "app/xap_transport.h"

#include <unistd.h>

#include <utility>

#include "platform/asio/asio_pump.h"

namespace app {
namespace {

constexpr std::string_view kEverywhere = "0.0.0.0";

xapnet::NodeOptions node_options(const XapSettings& settings, const std::string& device,
                                 xapnet::HeartbeatDelivery heartbeats) {
    xapnet::NodeOptions options;
    options.source = settings.source(device);
    options.unit_id = unit_id_of(options.source);
    options.interface_address = settings.interface_address;
    options.broadcast_address = settings.broadcast_address;
    options.port = settings.port;
    options.process_id = std::to_string(::getpid());
    options.heartbeat_interval = settings.heartbeat_interval;
    options.heartbeats = heartbeats;
    return options;
}

}  // namespace

XapTransport::XapTransport(platform::AsioPump& pump, const XapSettings& settings,
                           const std::string& device, xapnet::HeartbeatDelivery heartbeats,
                           OnMessage on_message, xapnet::LogFunction log)
    : settings_(settings),
      on_message_(std::move(on_message)),
      log_(std::move(log)),
      own_(pump, settings.interface_address),
      broadcast_(settings.interface_address == kEverywhere
                     ? std::nullopt
                     : std::optional<platform::AsioNetwork>(std::in_place, pump,
                                                            settings.broadcast_address)),
      loopback_(settings.interface_address == kEverywhere ||
                        settings.interface_address == platform::AsioNetwork::kLoopback
                    ? std::nullopt
                    : std::optional<platform::AsioNetwork>(std::in_place, pump)),
      node_(pump, networks(), node_options(settings, device, heartbeats), *this, log_) {}

xapnet::NodeNetworks XapTransport::networks() {
    return {.own = own_,
            .broadcast = broadcast_ ? *broadcast_ : own_,
            .loopback = loopback_ ? *loopback_ : own_};
}

void XapTransport::send(const xapnet::OutgoingCall& call) {
    if (const std::string error = node_.send(call); !error.empty()) {
        log_(xapnet::LogLevel::Info, "A message of class " + std::string(call.message_class) +
                                         " has not been sent: " + error);
    }
}

std::string XapTransport::summary() {
    const xapnet::NodeStatus status = node_.status();
    const std::string place = settings_.interface_address + ":" + std::to_string(status.port);
    return status.role == xapnet::NodeRole::Hub
               ? "xAP hub at " + place
               : "xAP at " + place + ", by the hub at port " + std::to_string(settings_.port);
}

}  // namespace app
