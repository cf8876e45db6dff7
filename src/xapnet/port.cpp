#include "xapnet/port.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "automation/run_time_error.h"

namespace xapnet {

Port::Port(host::Network& network, DatagramTaker take)
    : network_(network), take_(std::move(take)), socket_(network.make_udp_socket(*this)) {}

void Port::bind(std::int32_t port) {
    socket_->set_local_port(port);
    socket_->Bind();
}

void Port::send(std::string_view datagram, std::string_view address, std::int32_t port) {
    socket_->set_remote_host(address);
    socket_->set_remote_port(port);
    socket_->SendData(datagram);
}

void Port::DataArrival(std::int32_t /*bytes_total*/) {
    const std::string datagram = socket_->GetData();
    take_(datagram, socket_->RemoteHostIP());
}

PortSet::PortSet(std::initializer_list<host::Network*> networks, const DatagramTaker& take) {
    for (host::Network* network : networks) {
        const auto is_there = [&](const auto& port) { return port->is_of(*network); };
        if (std::ranges::none_of(ports_, is_there)) {
            ports_.push_back(std::make_unique<Port>(*network, take));
        }
    }
}

bool PortSet::bind(std::int32_t port) {
    try {
        for (const auto& each : ports_) {
            each->bind(port);
        }
        return true;
    } catch (const automation::RunTimeError& error) {
        close();
        if (!error.is(automation::ErrorNumber::AddressInUse)) {
            throw;
        }
        return false;
    }
}

Port& PortSet::on(const host::Network& network) noexcept {
    const auto found =
        std::ranges::find_if(ports_, [&](const auto& port) { return port->is_of(network); });
    assert(found != ports_.end());
    return **found;
}

void PortSet::close() noexcept {
    for (const auto& port : ports_) {
        port->close();
    }
}

}  // namespace xapnet
