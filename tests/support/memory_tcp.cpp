#include "support/memory_tcp.h"

#include <limits>

#include "automation/run_time_error.h"

namespace support {

using automation::ErrorNumber;
using automation::RunTimeError;
using host::SocketState;

namespace {

constexpr std::int32_t kReset = 10054;
constexpr std::int32_t kRefused = 10061;

void require_port(std::int32_t port) {
    if (port < 0 || port > std::numeric_limits<std::uint16_t>::max()) {
        throw RunTimeError(ErrorNumber::DeviceIoError, "Not a port: " + std::to_string(port));
    }
}

bool is_this_machine(std::string_view host) {
    return host == "localhost" || host.starts_with("127.");
}

}  // namespace

// --- one end ------------------------------------------------------------------------------------

template <typename Event>
void TcpEnd::post(Event event) {
    pump_.post([self = shared_from_this(), event = std::move(event)] { event(*self); });
}

void TcpEnd::join(TcpEnd& one, TcpEnd& other) {
    one.peer_ = other.weak_from_this();
    other.peer_ = one.weak_from_this();
}

void TcpEnd::take_up(host::TcpSocketEvents& events) {
    events_ = &events;
    state_ = SocketState::Connected;
    if (!arrived_.empty()) {
        post([](TcpEnd& self) { self.on_arrival(""); });
    }
    if (peer_has_closed_) {
        post([](TcpEnd& self) { self.on_peer_closed(); });
    }
}

std::string TcpEnd::peer_address() const {
    const auto peer = peer_.lock();
    return peer ? peer->place_.first : "";
}

std::string TcpEnd::take(std::size_t max_length) {
    std::string taken = arrived_.substr(0, max_length);
    arrived_.erase(0, taken.size());
    return taken;
}

void TcpEnd::send(std::string_view bytes) {
    queued_.emplace_back(bytes);
    if (queued_.size() == 1) {
        transfer_soon();
    }
}

void TcpEnd::transfer_soon() {
    post([](TcpEnd& self) { self.transfer(); });
}

void TcpEnd::transfer() {
    const auto peer = peer_.lock();
    if (queued_.empty() || !peer || peer->holds_back_) {
        return;
    }
    for (std::string& packet : queued_) {
        peer->post([packet = std::move(packet)](TcpEnd& end) { end.on_arrival(packet); });
    }
    queued_.clear();
    if (has_left_) {
        peer->post([](TcpEnd& end) { end.on_peer_closed(); });
    } else if (events_ != nullptr) {
        events_->SendComplete();
    }
}

void TcpEnd::on_arrival(const std::string& packet) {
    if (has_left_ || state_ == SocketState::Error) {
        return;
    }
    arrived_ += packet;
    if (events_ != nullptr && !arrived_.empty()) {
        events_->DataArrival(static_cast<std::int32_t>(arrived_.size()));
    }
}

void TcpEnd::on_peer_closed() {
    peer_has_closed_ = true;
    if (events_ != nullptr && state_ == SocketState::Connected) {
        state_ = SocketState::Closing;
        events_->Close();
    }
}

void TcpEnd::leave() noexcept {
    if (has_left_) {
        return;
    }
    has_left_ = true;
    events_ = nullptr;
    arrived_.clear();
    const auto peer = peer_.lock();
    if (peer && queued_.empty() && state_ != SocketState::Error) {
        peer->post([](TcpEnd& end) { end.on_peer_closed(); });
    }
    state_ = SocketState::Closed;
}

void TcpEnd::fail(std::int32_t number, std::string_view description) {
    if (has_left_) {
        return;
    }
    state_ = SocketState::Error;
    queued_.clear();
    arrived_.clear();
    if (events_ != nullptr) {
        events_->Error(number, description);
    }
}

void TcpEnd::reset() {
    queued_.clear();
    state_ = SocketState::Error;
    leave();
    if (const auto peer = peer_.lock()) {
        peer->post([](TcpEnd& end) { end.fail(kReset, "Connection reset by peer"); });
    }
}

void TcpEnd::set_holds_back(bool holds_back) {
    holds_back_ = holds_back;
    if (const auto peer = peer_.lock(); peer && !holds_back) {
        peer->transfer_soon();
    }
}

// --- between the machines -----------------------------------------------------------------------

std::shared_ptr<TcpEnd> TcpWires::make_end(const Place& place) {
    return ends_.emplace_back(std::make_shared<TcpEnd>(pump_, place));
}

std::shared_ptr<TcpEnd> TcpWires::call(std::string_view from, const Place& to,
                                       host::TcpSocketEvents& events) {
    const auto caller = make_end({std::string(from), free_port()});
    pump_.post([self = shared_from_this(), caller, to, &events] {
        if (!caller->has_left() && !self->silent_.contains(to.first)) {
            self->knock(caller, to, events);
        }
    });
    return caller;
}

// The caller's connection stands before anybody has accepted it.
void TcpWires::knock(const std::shared_ptr<TcpEnd>& caller, const Place& at,
                     host::TcpSocketEvents& events) {
    const bool is_heard = listeners.contains(at);
    caller->take_up(events);
    if (!is_heard) {
        caller->fail(kRefused, "Connection refused");
        return;
    }
    const auto callee = make_end(at);
    TcpEnd::join(*caller, *callee);
    pump_.post([self = shared_from_this(), callee] { self->ring(callee); });
    events.Connect();
}

void TcpWires::ring(const std::shared_ptr<TcpEnd>& callee) {
    const auto listener = listeners.find(callee->place());
    if (listener != listeners.end()) {
        const host::ConnectionRequestId request = ++latest_request_;
        requests_.emplace(request, callee);
        listener->second->ring(request, callee->peer_address());
        if (!take_request(request)) {
            return;
        }
    }
    callee->leave();
}

std::shared_ptr<TcpEnd> TcpWires::take_request(host::ConnectionRequestId request) {
    const auto found = requests_.extract(request);
    return found ? found.mapped() : nullptr;
}

// --- the socket ---------------------------------------------------------------------------------

std::int32_t MemoryTcpSocket::LocalPort() const {
    if (listening_port_ != 0) {
        return listening_port_;
    }
    return end_ ? end_->place().second : local_port_;
}

void MemoryTcpSocket::Listen() {
    require_closed();
    require_port(local_port_);
    const std::int32_t port = local_port_ == 0 ? wires_->free_port() : local_port_;
    if (!wires_->listeners.try_emplace({address_, port}, this).second) {
        throw RunTimeError(ErrorNumber::AddressInUse,
                           "Address in use: port " + std::to_string(port));
    }
    listening_port_ = port;
}

void MemoryTcpSocket::ring(host::ConnectionRequestId request, std::string_view caller) {
    last_peer_ = caller;
    events_.ConnectionRequest(request);
}

void MemoryTcpSocket::Accept(host::ConnectionRequestId request) {
    require_closed();
    const auto end = wires_->take_request(request);
    if (!end) {
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    }
    end_ = end;
    end_->take_up(events_);
}

void MemoryTcpSocket::Connect(std::string_view remote_host, std::int32_t remote_port) {
    require_closed();
    require_port(remote_port);
    const std::string host(is_this_machine(remote_host) ? address_ : remote_host);
    end_ = wires_->call(address_, {host, remote_port}, events_);
}

std::string MemoryTcpSocket::GetData(std::int32_t max_length) {
    return end_ && max_length > 0 ? end_->take(static_cast<std::size_t>(max_length)) : "";
}

void MemoryTcpSocket::SendData(std::string_view bytes) {
    if (State() != SocketState::Connected) {
        throw RunTimeError(ErrorNumber::DeviceIoError);
    }
    end_->send(bytes);
}

void MemoryTcpSocket::Close() noexcept {
    last_peer_ = RemoteHostIP();
    if (listening_port_ != 0) {
        wires_->listeners.erase({address_, std::exchange(listening_port_, 0)});
    }
    if (end_) {
        std::exchange(end_, nullptr)->leave();
    }
}

SocketState MemoryTcpSocket::State() const {
    if (listening_port_ != 0) {
        return SocketState::Listening;
    }
    return end_ ? end_->state() : SocketState::Closed;
}

std::string MemoryTcpSocket::RemoteHostIP() const {
    return end_ ? end_->peer_address() : last_peer_;
}

void MemoryTcpSocket::require_closed() const {
    if (State() != SocketState::Closed) {
        throw RunTimeError(ErrorNumber::DeviceIoError, "The socket is in use");
    }
}

}  // namespace support
