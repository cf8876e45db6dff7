#include "platform/asio/tcp_listener.h"

#include <utility>

namespace platform {

using boost::asio::ip::tcp;

TcpListener::TcpListener(boost::asio::io_context& context,
                         std::shared_ptr<WaitingRequests> requests, host::TcpSocketEvents& events)
    : context_(context), requests_(std::move(requests)), events_(events) {}

void TcpListener::open(const tcp::endpoint& endpoint) {
    const std::string place = "port " + std::to_string(endpoint.port());
    loop_ = std::make_shared<Loop>(context_, [weak = weak_from_this()](Loop::Socket socket) {
        if (const auto self = weak.lock()) {
            self->on_connection(std::move(socket));
        }
    });
    loop_->bind(endpoint, place);
    loop_->listen(place);
}

void TcpListener::close() noexcept {
    if (loop_) {
        loop_->close();
    }
}

std::int32_t TcpListener::port() const {
    return loop_ ? loop_->local_endpoint().port() : 0;
}

void TcpListener::on_connection(Loop::Socket socket) {
    boost::system::error_code ignored;
    latest_peer_ = socket.remote_endpoint(ignored).address().to_string();
    const WaitingRequests::Request request(*requests_, std::move(socket));
    events_.ConnectionRequest(request.id());
}

}  // namespace platform
