#include "platform/asio/tcp_connection.h"

#include <algorithm>
#include <boost/asio/buffer.hpp>
#include <boost/asio/connect.hpp>
#include <boost/asio/write.hpp>
#include <exception>
#include <utility>

#include "platform/asio/socket_errors.h"

namespace platform {

namespace asio = boost::asio;
using boost::asio::ip::tcp;
using boost::system::error_code;
using host::SocketState;

TcpConnection::TcpConnection(asio::io_context& context, host::TcpSocketEvents& events)
    : socket_(context), resolver_(context), end_(context), events_(&events) {}

// --- beginning ----------------------------------------------------------------------------------

void TcpConnection::start(tcp::socket accepted) {
    socket_ = std::move(accepted);
    take_up();
}

void TcpConnection::connect(std::string_view host, std::uint16_t port) {
    state_ = SocketState::Connecting;
    resolver_.async_resolve(
        host, std::to_string(port),
        [self = shared_from_this()](const error_code& error, const Endpoints& endpoints) {
            if (self->state_ != SocketState::Connecting) {
                return;
            }
            if (error) {
                self->fail(error);
            } else {
                self->connect_to(endpoints);
            }
        });
}

void TcpConnection::connect_to(const Endpoints& endpoints) {
    asio::async_connect(socket_, endpoints,
                        [self = shared_from_this()](const error_code& error, const tcp::endpoint&) {
                            if (self->state_ == SocketState::Connecting) {
                                self->on_connect(error);
                            }
                        });
}

void TcpConnection::on_connect(const error_code& error) {
    if (error) {
        fail(error);
        return;
    }
    take_up();
    events_->Connect();
}

void TcpConnection::take_up() {
    state_ = SocketState::Connected;
    error_code ignored;
    socket_.set_option(tcp::no_delay(true), ignored);
    peer_ = socket_.remote_endpoint(ignored).address().to_string();
    read();
}

std::int32_t TcpConnection::local_port() const {
    error_code ignored;
    return socket_.local_endpoint(ignored).port();
}

// --- reading ------------------------------------------------------------------------------------

void TcpConnection::read() {
    if (reading_ || peer_has_closed_ || !socket_.is_open() || arrived_.size() >= kWaitingBytes) {
        return;
    }
    reading_ = true;
    const std::size_t room = std::min(chunk_.size(), kWaitingBytes - arrived_.size());
    socket_.async_read_some(
        asio::buffer(chunk_.data(), room),
        [self = shared_from_this()](const error_code& error, std::size_t length) {
            self->reading_ = false;
            if (self->socket_.is_open()) {
                self->on_read(error, length);
            }
        });
}

void TcpConnection::on_read(const error_code& error, std::size_t length) {
    if (error) {
        on_end_of_reading(error);
        return;
    }
    if (events_ == nullptr) {  // read on only so that the peer gets to what we still send
        read();
        return;
    }
    arrived_.append(chunk_.data(), length);
    read();
    events_->DataArrival(static_cast<std::int32_t>(arrived_.size()));
}

void TcpConnection::on_end_of_reading(const error_code& error) {
    if (error != asio::error::eof) {
        fail(error);
        return;
    }
    peer_has_closed_ = true;
    if (events_ != nullptr) {
        state_ = SocketState::Closing;
        events_->Close();
    } else if (!writing_) {
        close();
    }
}

std::string TcpConnection::take(std::size_t max_length) {
    std::string taken = arrived_.substr(0, max_length);
    arrived_.erase(0, taken.size());
    read();
    return taken;
}

// --- writing ------------------------------------------------------------------------------------

void TcpConnection::send(std::string_view bytes) {
    queued_ += bytes;
    if (!writing_) {
        write();
    }
}

void TcpConnection::write() {
    writing_ = true;
    outgoing_ = std::exchange(queued_, {});
    asio::async_write(socket_, asio::buffer(outgoing_),
                      [self = shared_from_this()](const error_code& error, std::size_t) {
                          self->writing_ = false;
                          if (self->socket_.is_open()) {
                              self->on_write(error);
                          }
                      });
}

void TcpConnection::on_write(const error_code& error) {
    if (error) {
        fail(error);
    } else if (!queued_.empty()) {
        write();
    } else if (events_ != nullptr) {
        events_->SendComplete();
    } else {
        finish_sending();
    }
}

// --- end ----------------------------------------------------------------------------------------

void TcpConnection::leave() noexcept {
    const bool is_idle = !socket_.is_open() || state_ == SocketState::Connecting;
    events_ = nullptr;
    state_ = SocketState::Closed;
    arrived_.clear();
    resolver_.cancel();
    if (is_idle) {
        close();
        return;
    }
    try {
        read();
        if (writing_) {
            end_within(kSendingTime);
        } else {
            finish_sending();
        }
    } catch (const std::exception&) {
        close();  // at the peer's cost: nothing is left to wait with
    }
}

void TcpConnection::end_within(std::chrono::seconds limit) {
    end_.expires_after(limit);
    end_.async_wait([self = shared_from_this()](const error_code& error) {
        if (!error) {
            self->close();
        }
    });
}

// Closing at once, with bytes of the peer unread, would reset the connection, and the peer could
// lose what it has not read yet (RFC 1122, 4.2.2.13).
void TcpConnection::finish_sending() {
    error_code error;
    socket_.shutdown(tcp::socket::shutdown_send, error);
    if (error || peer_has_closed_) {
        close();
    } else {
        end_within(kLingerTime);
    }
}

void TcpConnection::fail(const error_code& error) {
    close();
    if (events_ != nullptr) {
        state_ = SocketState::Error;
        events_->Error(socket_error_number(error), error.message());
    }
}

void TcpConnection::close() noexcept {
    error_code ignored;
    socket_.close(ignored);
    end_.cancel(ignored);
}

}  // namespace platform
