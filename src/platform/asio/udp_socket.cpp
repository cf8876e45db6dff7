#include "platform/asio/udp_socket.h"

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/ip/udp.hpp>
#include <deque>
#include <utility>

#include "automation/run_time_error.h"
#include "platform/asio/socket_errors.h"

namespace platform {

namespace asio = boost::asio;
using automation::ErrorNumber;
using automation::RunTimeError;
using boost::asio::ip::udp;
using boost::system::error_code;

namespace {

constexpr std::size_t kLongestDatagram = 65'536;
constexpr std::size_t kWaitingDatagrams = 256;

struct Datagram {
    std::string bytes;
    std::string sender;
};

}  // namespace

class AsioUdpSocket::Port : public std::enable_shared_from_this<Port> {
  public:
    Port(asio::io_context& context, host::UdpSocketEvents& events)
        : socket_(context), resolver_(context), events_(events) {}

    void open(const udp::endpoint& endpoint) {
        const std::string place = "port " + std::to_string(endpoint.port());
        error_code error;
        socket_.open(endpoint.protocol(), error);
        throw_if_failed(error, place);
        socket_.set_option(udp::socket::broadcast(true), error);
        throw_if_failed(error, place);
        socket_.non_blocking(true, error);
        throw_if_failed(error, place);
        socket_.bind(endpoint, error);
        throw_if_failed(error, place);
        receive();
    }

    void close() noexcept {
        error_code ignored;
        socket_.close(ignored);
        resolver_.cancel();
    }

    [[nodiscard]] std::int32_t local_port() const {
        error_code ignored;
        return socket_.local_endpoint(ignored).port();
    }

    void send(std::string_view bytes, const udp::endpoint& receiver) {
        const error_code error = try_to_send(bytes, receiver);
        if (error && error != asio::error::would_block) {
            throw_if_failed(error, receiver.address().to_string());
        }
    }

    void send_by_name(std::string bytes, const std::string& host, std::uint16_t port) {
        if (std::exchange(unknown_host_, {}) == host) {
            throw RunTimeError(ErrorNumber::DeviceIoError, "Unknown host: " + host);
        }
        const udp protocol = socket_.local_endpoint().protocol();
        resolver_.async_resolve(
            protocol, host, std::to_string(port),
            [self = shared_from_this(), host, bytes = std::move(bytes)](
                const error_code& error, const udp::resolver::results_type& found) {
                if (error || found.empty()) {
                    self->unknown_host_ = host;
                } else {
                    self->try_to_send(bytes, *found.begin());
                }
            });
    }

    [[nodiscard]] Datagram take() {
        if (arrived_.empty()) {
            return {};
        }
        Datagram datagram = std::move(arrived_.front());
        arrived_.pop_front();
        return datagram;
    }

  private:
    error_code try_to_send(std::string_view bytes, const udp::endpoint& receiver) {
        error_code error;
        socket_.send_to(asio::buffer(bytes), receiver, 0, error);
        return error;
    }

    void receive() {
        socket_.async_receive_from(
            asio::buffer(buffer_), sender_,
            [self = shared_from_this()](const error_code& error, std::size_t length) {
                if (self->socket_.is_open()) {
                    self->on_receive(error, length);
                }
            });
    }

    void on_receive(const error_code& error, std::size_t length) {
        const bool is_taken = !error && arrived_.size() < kWaitingDatagrams;
        if (is_taken) {
            arrived_.push_back(
                {std::string(buffer_.data(), length), sender_.address().to_string()});
        }
        receive();
        if (is_taken) {
            events_.DataArrival(static_cast<std::int32_t>(length));
        }
    }

    udp::socket socket_;
    udp::resolver resolver_;
    host::UdpSocketEvents& events_;
    std::array<char, kLongestDatagram> buffer_{};
    udp::endpoint sender_;  // of the datagram in `buffer_`
    std::deque<Datagram> arrived_;
    std::string unknown_host_;  // by the latest lookup
};

AsioUdpSocket::AsioUdpSocket(asio::io_context& context, asio::ip::address listen_address,
                             host::UdpSocketEvents& events)
    : context_(context), listen_address_(std::move(listen_address)), events_(events) {}

AsioUdpSocket::~AsioUdpSocket() {
    Close();
}

void AsioUdpSocket::set_remote_host(std::string_view host) {
    remote_host_ = host;
}

void AsioUdpSocket::set_remote_port(std::int32_t port) {
    remote_port_ = port;
}

void AsioUdpSocket::set_local_port(std::int32_t port) {
    local_port_ = port;
}

std::int32_t AsioUdpSocket::LocalPort() const {
    return port_ ? port_->local_port() : local_port_;
}

void AsioUdpSocket::Bind() {
    Close();
    const auto port = std::make_shared<Port>(context_, events_);
    port->open({listen_address_, port_number(local_port_)});
    port_ = port;
}

void AsioUdpSocket::SendData(std::string_view bytes) {
    if (remote_host_.empty()) {
        throw RunTimeError(ErrorNumber::DeviceIoError);
    }
    if (!port_) {
        Bind();
    }
    const std::uint16_t remote_port = port_number(remote_port_);
    error_code error;
    const auto address = asio::ip::make_address(remote_host_, error);
    if (error) {
        port_->send_by_name(std::string(bytes), remote_host_, remote_port);
    } else {
        port_->send(bytes, {address, remote_port});
    }
}

std::string AsioUdpSocket::GetData() {
    Datagram datagram = port_ ? port_->take() : Datagram{};
    sender_ = std::move(datagram.sender);
    return std::move(datagram.bytes);
}

std::string AsioUdpSocket::RemoteHostIP() const {
    return sender_;
}

void AsioUdpSocket::Close() noexcept {
    if (port_) {
        std::exchange(port_, {})->close();
    }
}

}  // namespace platform
