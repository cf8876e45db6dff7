#include "unit/web_listener.h"

#include <boost/asio.hpp>
#include <sstream>
#include <stdexcept>

#include "unit/connection.h"
#include "unit/within.h"

namespace unit {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;

constexpr std::size_t kMostTasks = 128;

}  // namespace

WebListener::WebListener(asio::io_context& loop, const tcp::endpoint& address, Appliance& appliance)
    : appliance_(appliance), address_(address), acceptor_(loop), tasks_(loop.get_executor()) {}

void WebListener::open() {
    try {
        acceptor_.open(address_.protocol());
        acceptor_.set_option(tcp::acceptor::reuse_address(true));
        acceptor_.bind(address_);
        acceptor_.listen();
        address_ = acceptor_.local_endpoint();
    } catch (const boost::system::system_error& error) {
        close();
        std::ostringstream text;
        text << "cannot listen on " << address_ << ": " << error.code().message();
        throw std::runtime_error(text.str());
    }
}

void WebListener::start() {
    tasks_.start(accept_connections());
}

void WebListener::close() noexcept {
    boost::system::error_code ignored;
    acceptor_.close(ignored);
    tasks_.cancel_all();
}

asio::awaitable<void> WebListener::accept_connections() {
    for (;;) {
        auto [error, socket] = co_await acceptor_.async_accept(kAsTuple);
        if (error == asio::error::operation_aborted || !acceptor_.is_open()) {
            co_return;
        }
        if (error) {
            asio::steady_timer pause(acceptor_.get_executor(), kAcceptPause);
            co_await pause.async_wait(asio::use_awaitable);
        } else if (tasks_.size() < kMostTasks) {
            tasks_.start(serve_connection(std::move(socket), appliance_));
        }
    }
}

}  // namespace unit
