#include "udp/client_link.h"

#include <algorithm>
#include <array>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "core/instance.h"
#include "host/settings.h"
#include "udp/datagram.h"

namespace udp {

namespace {

constexpr std::string_view kDefaultPort = "4550";
constexpr std::string_view kNoClients = "Error: No CID Clients Defined. Unable to send data.";

struct ShortCode {
    std::string_view code;  // as the telephone network gives it
    std::string_view name;
    std::string_view number;
};

constexpr std::array<ShortCode, 2> kShortCodes{{
    {"O", "Unknown Name", "Unknown Number"},
    {"P", "Private Caller", "Private Number"},
}};

// Puts words in the place of the codes for a withheld name or number.
void spell_out(std::string& name, std::string& number) {
    for (const ShortCode& row : kShortCodes) {
        if (automation::equals_ignoring_case(name, row.code)) {
            name = row.name;
            break;
        }
    }
    for (const ShortCode& row : kShortCodes) {
        if (automation::equals_ignoring_case(number, row.code)) {
            number = row.number;
            break;
        }
    }
}

std::int32_t port_of(const std::string& text) {
    return automation::checked_int32(automation::numeric_prefix(text));
}

}  // namespace

ClientLink::ClientLink(core::Instance& instance)
    : instance_(instance), clients_(instance.platform().user_store), log_(instance) {}

void ClientLink::InitUDP() {
    automation::guarded(instance_.log, "InitUDP() ", [&] {
        log_.copy_to_host();
        if (instance_.log.DebugLog()) {
            log_debug("Entered InitIO() function.");
        }
        const std::string title(kStoreTitle);
        instance_.log.VeloraWriteLog(core::kLogType, title + " - Clearing CID Client Database...");
        clients_.clear();
        host::UserStore& store = instance_.platform().user_store;
        remote_port_ = store.GetSetting(kStoreTitle, kStoreOptions, "RemotePort", kDefaultPort);
        const std::string local_port =
            store.GetSetting(kStoreTitle, kStoreOptions, "LocalPort", kDefaultPort);
        store.SaveSetting(kStoreTitle, kStoreOptions, "RemotePort", remote_port_);
        store.SaveSetting(kStoreTitle, kStoreOptions, "LocalPort", local_port);
        instance_.log.VeloraWriteLog(core::kLogType,
                                     title + " - Initializing I/O... (LocalPort=" + local_port +
                                         ", RemotePort=" + remote_port_ + ")");
        socket_ = instance_.platform().network.make_udp_socket(*this);
        socket_->set_remote_host("");
        socket_->set_remote_port(port_of(remote_port_));
        socket_->set_local_port(port_of(local_port));
        socket_->Bind();
    });
}

// --- from the clients ---------------------------------------------------------------------------

void ClientLink::DataArrival(std::int32_t /*bytes_total*/) {
    automation::guarded(instance_.log, "UDP DataArrival ", [&] {
        const bool is_debugging = log_.is_debugging();
        const std::string datagram = socket_->GetData();
        const std::string sender = socket_->RemoteHostIP();
        if (sender.empty()) {
            return;
        }
        const std::string text = take(datagram, sender);
        if (is_debugging) {
            log_debug(text);
        }
    });
}

// Gives what has been asked, for the log.
std::string ClientLink::take(std::string_view datagram, const std::string& sender) {
    if (datagram.empty()) {
        return "Empty Message Received from " + sender;
    }
    switch (static_cast<Request>(datagram.front())) {
        case Request::Subscribe:
            clients_.subscribe(sender);
            return "CID Client Subcribe Request from " + sender;
        case Request::Unsubscribe:
            clients_.unsubscribe(sender);
            return "CID Client Unsubcribe Request from " + sender;
    }
    return "Unknown data received from " + sender;
}

// --- to the clients -----------------------------------------------------------------------------

void ClientLink::send(std::string_view datagram, const std::string& entry) {
    if (socket_ == nullptr) {
        throw automation::RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    socket_->set_remote_host(entry);
    socket_->SendData(datagram);
}

std::string ClientLink::UDPSendCID(std::string& name, std::string& number, std::string_view host) {
    const std::int32_t count = clients_.ClientMax();
    automation::guarded(instance_.log, "UDPSendCID()", [&] {
        if (instance_.log.DebugLog()) {
            log_debug("Entered UDPSendCID function. " + name + " " + number);
        }
        spell_out(name, number);
        const std::string datagram = make_datagram(Message::Caller, name, number);
        for (std::int32_t i = 1; i <= count; ++i) {
            const std::string entry = clients_.entry(i);
            const bool is_meant = host.empty() || host.find(entry) != std::string_view::npos;
            if (is_served(entry) && is_meant) {
                send(datagram, entry);
                log_debug("Sent CID Message to host " + entry);
            }
        }
    });
    return count > 0 ? "Send CID data to all defined clients" : std::string(kNoClients);
}

std::string ClientLink::UDPSendCommand(std::string_view command, std::string_view parameter,
                                       std::string_view host) {
    return automation::guarded(instance_.log, "UDPSendCommand()", [&]() -> std::string {
        if (instance_.log.DebugLog()) {
            log_debug(std::string("Entered UDPSendCommand function. ")
                          .append(command)
                          .append(" ")
                          .append(parameter));
        }
        const std::string datagram = make_datagram(Message::Command, command, parameter);
        const std::int32_t count = clients_.ClientMax();
        if (count <= 0) {
            return std::string(kNoClients);
        }
        if (!host.empty() && !automation::equals_ignoring_case(host, "ALL")) {
            return send_to_one(datagram, command, std::string(host));
        }
        for (std::int32_t i = 1; i <= count; ++i) {
            const std::string entry = clients_.entry(i);
            if (is_served(entry)) {
                send(datagram, entry);
            }
        }
        return "Sent Command data to all defined clients";
    });
}

std::string ClientLink::send_to_one(std::string_view datagram, std::string_view command,
                                    const std::string& host) {
    if (!clients_.is_subscribed(host)) {
        instance_.log.VeloraWriteLog(
            core::kLogType, (host + " is not currently a registered client and unable to send ")
                                .append("command ")
                                .append(command));
        return "Error: Client is not Registered. Unable to send data.";
    }
    send(datagram, host);
    return "Send Command data to all defined clients";
}

bool ClientLink::UDPClientAvailable(std::string_view host) {
    return clients_.is_subscribed(host);
}

void ClientLink::SendCIDSentry(const std::string& name, const std::string& number,
                               const std::vector<std::string>& units) {
    const std::int32_t count = clients_.ClientMax();
    for (std::int32_t i = 1; i <= count; ++i) {
        const std::string entry = clients_.entry(i);
        if (entry.empty() || std::ranges::find(units, entry) != units.end()) {
            continue;
        }
        std::string sent_name = name;
        std::string sent_number = number;
        UDPSendCID(sent_name, sent_number, entry);
    }
}

}  // namespace udp
