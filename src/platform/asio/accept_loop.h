#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/system/error_code.hpp>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/asio/socket_errors.h"

namespace platform {

// Listens at one endpoint of a stream protocol and hands each accepted connection to its owner. A
// failure that lasts, such as too many open files, only makes it pause. Shared between its owner
// and its own waits.
template <typename Protocol>
class AcceptLoop : public std::enable_shared_from_this<AcceptLoop<Protocol>> {
  public:
    using Endpoint = typename Protocol::endpoint;
    using Socket = typename Protocol::socket;

    // `on_connection` runs as an event of the pump, and may pump; the next connection is heard
    // meanwhile.
    AcceptLoop(boost::asio::io_context& context, std::function<void(Socket)> on_connection)
        : acceptor_(context), retry_(context), on_connection_(std::move(on_connection)) {}

    // Takes the endpoint, which nobody can reach before `listen`; `place` names it in errors.
    // Throws: RunTimeError 10048 or 57.
    void bind(const Endpoint& endpoint, const std::string& place) {
        boost::system::error_code error;
        acceptor_.open(endpoint.protocol(), error);
        throw_if_failed(error, place);
        acceptor_.set_option(typename Protocol::acceptor::reuse_address(true), error);
        throw_if_failed(error, place);
        acceptor_.bind(endpoint, error);
        throw_if_failed(error, place);
    }

    // Throws: RunTimeError 57.
    void listen(const std::string& place) {
        boost::system::error_code error;
        acceptor_.listen(Protocol::acceptor::max_listen_connections, error);
        throw_if_failed(error, place);
        accept();
    }

    // No connection comes afterwards. A pause that is under way ends by itself.
    void close() noexcept {
        boost::system::error_code ignored;
        acceptor_.close(ignored);
    }

    [[nodiscard]] Endpoint local_endpoint() const {
        boost::system::error_code ignored;
        return acceptor_.local_endpoint(ignored);
    }

  private:
    using Error = boost::system::error_code;

    static constexpr std::chrono::milliseconds kPauseAfterFailure{100};

    void accept() {
        acceptor_.async_accept(
            [self = this->shared_from_this()](const Error& error, Socket socket) {
                if (self->acceptor_.is_open()) {
                    self->on_accept(error, std::move(socket));
                }
            });
    }

    void on_accept(const Error& error, Socket socket) {
        if (error) {
            accept_later();
            return;
        }
        accept();
        on_connection_(std::move(socket));
    }

    void accept_later() {
        retry_.expires_after(kPauseAfterFailure);
        retry_.async_wait([self = this->shared_from_this()](const Error& error) {
            if (!error && self->acceptor_.is_open()) {
                self->accept();
            }
        });
    }

    typename Protocol::acceptor acceptor_;
    boost::asio::steady_timer retry_;
    const std::function<void(Socket)> on_connection_;
};

}  // namespace platform
