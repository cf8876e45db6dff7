#include "support/memory_udp.h"

#include <limits>

#include "automation/run_time_error.h"

namespace support {

using automation::ErrorNumber;
using automation::RunTimeError;

namespace {

constexpr std::string_view kEveryMachine = "255.255.255.255";

bool is_known(std::string_view host) {
    return host == "localhost" ||
           (!host.empty() && host.find_first_not_of("0123456789.") == std::string_view::npos);
}

}  // namespace

std::int32_t MemoryUdpSocket::LocalPort() const {
    return bound_port_ != 0 ? bound_port_ : local_port_;
}

void MemoryUdpSocket::Bind() {
    Close();
    const std::int32_t port = local_port_ == 0 ? wires_->next_port++ : local_port_;
    if (!wires_->bound.try_emplace({address_, port}, this).second) {
        throw RunTimeError(ErrorNumber::AddressInUse,
                           "Address in use: port " + std::to_string(port));
    }
    bound_port_ = port;
}

void MemoryUdpSocket::SendData(std::string_view bytes) {
    if (!is_known(remote_.first) || remote_.second < 0 ||
        remote_.second > std::numeric_limits<std::uint16_t>::max()) {
        throw RunTimeError(ErrorNumber::DeviceIoError, "Unknown host: " + remote_.first);
    }
    if (bound_port_ == 0) {
        Bind();
    }
    const bool stays_here = remote_.first == "localhost" || remote_.first.starts_with("127.");
    const Place target(stays_here ? address_ : remote_.first, remote_.second);
    for (const auto& [place, socket] : wires_->bound) {
        if (place == target || (target.first == kEveryMachine && place.second == target.second)) {
            wires_->pump.post(
                [wires = wires_, place = place, datagram = Datagram{std::string(bytes), address_}] {
                    // Sockets come and go while a datagram is on its way.
                    if (const auto found = wires->bound.find(place); found != wires->bound.end()) {
                        found->second->receive(datagram);
                    }
                });
        }
    }
}

void MemoryUdpSocket::receive(const Datagram& datagram) {
    arrived_.push_back(datagram);
    events_.DataArrival(static_cast<std::int32_t>(datagram.bytes.size()));
}

std::string MemoryUdpSocket::GetData() {
    if (arrived_.empty()) {
        sender_.clear();
        return {};
    }
    Datagram datagram = std::move(arrived_.front());
    arrived_.pop_front();
    sender_ = std::move(datagram.sender);
    return std::move(datagram.bytes);
}

void MemoryUdpSocket::Close() noexcept {
    if (bound_port_ != 0) {
        wires_->bound.erase({address_, std::exchange(bound_port_, 0)});
    }
    arrived_.clear();
}

}  // namespace support
