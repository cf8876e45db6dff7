#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "appliance/udp_link.h"
#include "host/sockets.h"
#include "udp/client_list.h"
#include "udp/server_log.h"

namespace core {
class Instance;
}

namespace udp {

// The datagram link to client programs on units and desktops. A client subscribes and unsubscribes
// with one datagram and gets callers and commands as datagrams; there is no acknowledgement. Owned
// by the plug-in instance; open between start-up and shut-down.
class ClientLink final : public appliance::UdpLink, private host::UdpSocketEvents {
  public:
    explicit ClientLink(core::Instance& instance);

    // Forgets all clients, who have to subscribe anew, and binds the port of the per-user store.
    // An error, such as a port that is taken, is logged.
    void InitUDP();

    void CloseUDP() { socket_.reset(); }

    [[nodiscard]] bool UDPClientAvailable(std::string_view host) override;

    // To `host`, which must be registered; to all for "all" or "".
    std::string UDPSendCommand(std::string_view command, std::string_view parameter,
                               std::string_view host) override;

    // To the clients whose address occurs in `host`; to all for "".
    std::string UDPSendCID(std::string& name, std::string& number, std::string_view host) override;

    // To the clients that are not among `units`, the names and addresses of the fleet.
    void SendCIDSentry(const std::string& name, const std::string& number,
                       const std::vector<std::string>& units);

    [[nodiscard]] const ClientList& clients() const noexcept { return clients_; }

    [[nodiscard]] StatusLog& log() noexcept { return log_; }

  private:
    // A datagram has come in.
    void DataArrival(std::int32_t bytes_total) override;

    [[nodiscard]] std::string take(std::string_view datagram, const std::string& sender);
    void send(std::string_view datagram, const std::string& entry);
    std::string send_to_one(std::string_view datagram, std::string_view command,
                            const std::string& host);

    void log_debug(std::string_view text) { log_.ServerLog(text, StatusLog::Level::Debug); }

    core::Instance& instance_;
    ClientList clients_;
    StatusLog log_;
    std::string remote_port_;
    std::unique_ptr<host::UdpSocket> socket_;
};

}  // namespace udp
