#include "platform/beast/http_server.h"

#include <algorithm>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <set>
#include <utility>

#include "automation/run_time_error.h"
#include "host/http.h"
#include "platform/asio/asio_pump_internal.h"
#include "platform/asio/socket_errors.h"
#include "platform/beast/http_connection.h"

namespace platform {

using boost::asio::ip::tcp;
using boost::system::error_code;

namespace {

// Pause after a failure that lasts, such as too many open files.
constexpr std::chrono::milliseconds kRetryPause{100};

boost::asio::ip::address address_of(const std::string& text) {
    error_code error;
    auto address = boost::asio::ip::make_address(text, error);
    if (error) {
        throw automation::RunTimeError(automation::ErrorNumber::InvalidProcedureCall,
                                       "Invalid address: " + text);
    }
    return address;
}

}  // namespace

class HttpServer::Core : public HttpConnection::Owner, public std::enable_shared_from_this<Core> {
  public:
    Core(boost::asio::io_context& context, host::HttpHandler& handler, const HttpLimits& limits)
        : handler_(handler), limits_(limits), acceptor_(context), retry_(context) {}

    Core(const Core&) = delete;
    Core& operator=(const Core&) = delete;
    ~Core() override = default;

    void open(const std::string& address, std::int32_t port) {
        const tcp::endpoint endpoint(address_of(address), port_number(port));
        const std::string place = address + ":" + std::to_string(port);
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

    void close() noexcept {
        error_code ignored;
        acceptor_.close(ignored);
        retry_.cancel();
        for (const auto& connection : connections_) {
            connection->drop();
        }
        connections_.clear();
    }

    [[nodiscard]] std::int32_t port() const {
        error_code ignored;
        return acceptor_.local_endpoint(ignored).port();
    }

    [[nodiscard]] host::HttpHandler& handler() override { return handler_; }

    void on_closed(const std::shared_ptr<HttpConnection>& connection) override {
        connections_.erase(connection);
    }

  private:
    void accept() {
        acceptor_.async_accept(
            [self = shared_from_this()](const error_code& error, tcp::socket socket) {
                if (!self->acceptor_.is_open()) {
                    return;
                }
                if (error) {
                    self->retry_later();
                } else {
                    self->accept();
                    self->take_up(std::move(socket));
                }
            });
    }

    void take_up(tcp::socket socket) {
        if (connections_.size() >= limits_.connections && !make_room()) {
            return;
        }
        const auto connection =
            std::make_shared<HttpConnection>(std::move(socket), limits_, weak_from_this());
        connections_.insert(connection);
        connection->start();
    }

    bool make_room() {
        std::shared_ptr<HttpConnection> idlest;
        for (const auto& connection : connections_) {
            const auto since = connection->idle_since();
            if (since && (idlest == nullptr || *since < *idlest->idle_since())) {
                idlest = connection;
            }
        }
        if (idlest == nullptr) {
            return false;
        }
        idlest->drop();
        connections_.erase(idlest);
        return true;
    }

    void retry_later() {
        retry_.expires_after(kRetryPause);
        retry_.async_wait([self = shared_from_this()](const error_code& error) {
            if (!error && self->acceptor_.is_open()) {
                self->accept();
            }
        });
    }

    host::HttpHandler& handler_;
    HttpLimits limits_;
    tcp::acceptor acceptor_;
    boost::asio::steady_timer retry_;
    std::set<std::shared_ptr<HttpConnection>> connections_;
};

HttpServer::HttpServer(AsioPump& pump, host::HttpHandler& handler, const std::string& address,
                       std::int32_t port, HttpLimits limits)
    : core_(std::make_shared<Core>(AsioPumpAccess::io_context_of(pump), handler, limits)) {
    core_->open(address, port);
}

HttpServer::~HttpServer() {
    core_->close();
}

std::int32_t HttpServer::port() const {
    return core_->port();
}

}  // namespace platform
