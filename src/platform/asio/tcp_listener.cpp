#include "platform/asio/tcp_listener.h"

#include <chrono>
#include <utility>

#include "platform/asio/socket_errors.h"

namespace platform {

using boost::asio::ip::tcp;
using boost::system::error_code;

namespace {

// Pause after a failure that lasts, such as too many open files.
constexpr std::chrono::milliseconds kRetryPause{100};

}  // namespace

TcpListener::TcpListener(boost::asio::io_context& context,
                         std::shared_ptr<WaitingRequests> requests, host::TcpSocketEvents& events)
    : acceptor_(context), retry_(context), requests_(std::move(requests)), events_(events) {}

void TcpListener::open(const tcp::endpoint& endpoint) {
    const std::string place = "port " + std::to_string(endpoint.port());
    error_code error;
    acceptor_.open(endpoint.protocol(), error);
    throw_if_failed(error, place);
    acceptor_.set_option(tcp::acceptor::reuse_address(true), error);
    throw_if_failed(error, place);
    acceptor_.bind(endpoint, error);
    throw_if_failed(error, place);
    acceptor_.listen(tcp::acceptor::max_listen_connections, error);
    throw_if_failed(error, place);
    accept();
}

void TcpListener::close() noexcept {
    error_code ignored;
    acceptor_.close(ignored);
    retry_.cancel();
}

std::int32_t TcpListener::port() const {
    error_code ignored;
    return acceptor_.local_endpoint(ignored).port();
}

void TcpListener::accept() {
    acceptor_.async_accept(
        [self = shared_from_this()](const error_code& error, tcp::socket socket) {
            if (self->acceptor_.is_open()) {
                self->on_accept(error, std::move(socket));
            }
        });
}

// The next request is heard even when the present one's event waits.
void TcpListener::on_accept(const error_code& error, tcp::socket socket) {
    if (error) {
        retry_later();
        return;
    }
    accept();
    error_code ignored;
    latest_peer_ = socket.remote_endpoint(ignored).address().to_string();
    const WaitingRequests::Request request(*requests_, std::move(socket));
    events_.ConnectionRequest(request.id());
}

void TcpListener::retry_later() {
    retry_.expires_after(kRetryPause);
    retry_.async_wait([self = shared_from_this()](const error_code& error) {
        if (!error && self->acceptor_.is_open()) {
            self->accept();
        }
    });
}

}  // namespace platform
