#include "platform/beast/http_server.h"

#include <algorithm>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <set>
#include <utility>

#include "automation/run_time_error.h"
#include "host/http.h"
#include "platform/asio/accept_loop.h"
#include "platform/asio/asio_pump_internal.h"
#include "platform/beast/http_connection.h"

namespace platform {

using boost::asio::ip::tcp;
using boost::system::error_code;

namespace {

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
        : handler_(handler),
          limits_(limits),
          loop_(std::make_shared<Loop>(
              context, [this](tcp::socket socket) { take_up(std::move(socket)); })) {}

    Core(const Core&) = delete;
    Core& operator=(const Core&) = delete;
    ~Core() override = default;

    void open(const std::string& address, std::int32_t port) {
        const tcp::endpoint endpoint(address_of(address), port_number(port));
        const std::string place = address + ":" + std::to_string(port);
        loop_->bind(endpoint, place);
        loop_->listen(place);
    }

    void close() noexcept {
        loop_->close();
        for (const auto& connection : connections_) {
            connection->drop();
        }
        connections_.clear();
    }

    [[nodiscard]] std::int32_t port() const { return loop_->local_endpoint().port(); }

    [[nodiscard]] host::HttpHandler& handler() override { return handler_; }

    void on_closed(const std::shared_ptr<HttpConnection>& connection) override {
        connections_.erase(connection);
    }

  private:
    using Loop = AcceptLoop<tcp>;

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

    host::HttpHandler& handler_;
    HttpLimits limits_;
    std::shared_ptr<Loop> loop_;
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
