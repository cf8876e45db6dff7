#include "platform/asio/tcp_socket.h"

#include <utility>

#include "automation/run_time_error.h"
#include "platform/asio/socket_errors.h"

namespace platform {

using automation::ErrorNumber;
using automation::RunTimeError;
using host::SocketState;

AsioTcpSocket::AsioTcpSocket(boost::asio::io_context& context,
                             boost::asio::ip::address listen_address,
                             std::shared_ptr<WaitingRequests> requests,
                             host::TcpSocketEvents& events)
    : context_(context),
      listen_address_(std::move(listen_address)),
      requests_(std::move(requests)),
      events_(events) {}

AsioTcpSocket::~AsioTcpSocket() {
    Close();
}

std::int32_t AsioTcpSocket::LocalPort() const {
    if (listener_) {
        return listener_->port();
    }
    return connection_ ? connection_->local_port() : local_port_;
}

void AsioTcpSocket::set_local_port(std::int32_t port) {
    local_port_ = port;
}

void AsioTcpSocket::Listen() {
    require_closed();
    const auto listener = std::make_shared<TcpListener>(context_, requests_, events_);
    listener->open({listen_address_, port_number(local_port_)});
    listener_ = listener;
}

void AsioTcpSocket::Accept(host::ConnectionRequestId request) {
    require_closed();
    auto socket = requests_->take(request);
    if (!socket) {
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    }
    connection_ = std::make_shared<TcpConnection>(context_, events_);
    connection_->start(*std::move(socket));
}

void AsioTcpSocket::Connect(std::string_view remote_host, std::int32_t remote_port) {
    require_closed();
    const std::uint16_t port = port_number(remote_port);
    connection_ = std::make_shared<TcpConnection>(context_, events_);
    connection_->connect(remote_host, port);
}

std::string AsioTcpSocket::GetData(std::int32_t max_length) {
    if (!connection_ || max_length <= 0) {
        return {};
    }
    return connection_->take(static_cast<std::size_t>(max_length));
}

void AsioTcpSocket::SendData(std::string_view bytes) {
    if (State() != SocketState::Connected) {
        throw RunTimeError(ErrorNumber::DeviceIoError);
    }
    connection_->send(bytes);
}

void AsioTcpSocket::Close() noexcept {
    last_peer_ = RemoteHostIP();
    if (listener_) {
        std::exchange(listener_, {})->close();
    }
    if (connection_) {
        std::exchange(connection_, {})->leave();
    }
}

SocketState AsioTcpSocket::State() const {
    if (listener_) {
        return SocketState::Listening;
    }
    return connection_ ? connection_->state() : SocketState::Closed;
}

std::string AsioTcpSocket::RemoteHostIP() const {
    if (listener_) {
        return listener_->latest_peer();
    }
    return connection_ ? connection_->peer() : last_peer_;
}

void AsioTcpSocket::require_closed() const {
    if (State() != SocketState::Closed) {
        throw RunTimeError(ErrorNumber::DeviceIoError, "The socket is in use");
    }
}

}  // namespace platform
