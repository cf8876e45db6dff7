#include "unit/port_listener.h"

#include <boost/asio.hpp>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "unit/within.h"

namespace unit {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;

constexpr std::size_t kMostTasks = 128;

}  // namespace

PortListener::PortListener(asio::io_context& loop, const tcp::endpoint& address, Serve serve)
    : serve_(std::move(serve)), address_(address), acceptor_(loop), tasks_(loop.get_executor()) {}

void PortListener::open() {
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

void PortListener::start() {
    tasks_.start(accept_connections());
}

void PortListener::close() noexcept {
    boost::system::error_code ignored;
    acceptor_.close(ignored);
    tasks_.cancel_all();
}

asio::awaitable<void> PortListener::accept_connections() {
    for (;;) {
        auto [error, socket] = co_await acceptor_.async_accept(kAsTuple);
        if (error == asio::error::operation_aborted || !acceptor_.is_open()) {
            co_return;
        }
        if (error) {
            asio::steady_timer pause(acceptor_.get_executor(), kAcceptPause);
            co_await pause.async_wait(asio::use_awaitable);
        } else if (tasks_.size() < kMostTasks) {
            tasks_.start(serve_(std::move(socket)));
        }
    }
}

}  // namespace unit
