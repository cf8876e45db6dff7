#include "unit/client_program.h"

#include <boost/asio.hpp>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "unit/appliance.h"
#include "unit/client_message.h"
#include "unit/within.h"

namespace unit {
namespace {

namespace asio = boost::asio;
using asio::ip::udp;

constexpr std::chrono::minutes kSubscribeAgain{1};
constexpr std::size_t kLargestDatagram = 65536;

}  // namespace

ClientProgram::ClientProgram(asio::io_context& loop, const Address& own, const Address& daemon,
                             Appliance& appliance)
    : own_(own),
      daemon_(daemon),
      appliance_(appliance),
      socket_(loop),
      minute_(loop),
      tasks_(loop.get_executor()) {}

void ClientProgram::open() {
    try {
        socket_.open(own_.protocol());
        socket_.bind(own_);
        socket_.non_blocking(true);
    } catch (const boost::system::system_error& error) {
        close();
        std::ostringstream text;
        text << "cannot listen on " << own_ << " (UDP): " << error.code().message();
        throw std::runtime_error(text.str());
    }
}

void ClientProgram::start() {
    subscribe();
    tasks_.start(hear());
    tasks_.start(subscribe_again());
}

void ClientProgram::close() noexcept {
    is_subscribed_ = false;
    boost::system::error_code ignored;
    socket_.close(ignored);
    tasks_.cancel_all();
}

void ClientProgram::subscribe() {
    if (!socket_.is_open()) {
        return;
    }
    is_subscribed_ = true;
    send(kSubscribeDatagram);
    appliance_.set_subscribed(true);
}

void ClientProgram::unsubscribe() {
    if (!socket_.is_open()) {
        return;
    }
    is_subscribed_ = false;
    send(kUnsubscribeDatagram);
    appliance_.set_subscribed(false);
}

void ClientProgram::send(std::string_view datagram) noexcept {
    boost::system::error_code ignored;
    socket_.send_to(asio::buffer(datagram), daemon_, 0, ignored);
}

asio::awaitable<void> ClientProgram::subscribe_again() {
    for (;;) {
        minute_.expires_after(kSubscribeAgain);
        const auto [error] = co_await minute_.async_wait(kAsTuple);
        if (error) {
            co_return;
        }
        if (is_subscribed_) {
            send(kSubscribeDatagram);
        }
    }
}

// A datagram that could not be delivered comes back as an error of the next read.
asio::awaitable<void> ClientProgram::hear() {
    std::vector<char> buffer(kLargestDatagram);
    for (;;) {
        Address sender;
        const auto [error, length] =
            co_await socket_.async_receive_from(asio::buffer(buffer), sender, kAsTuple);
        if (error == asio::error::operation_aborted || !socket_.is_open()) {
            co_return;
        }
        if (error) {
            continue;
        }
        if (const auto message = parse_client_message({buffer.data(), length})) {
            appliance_.take_client_message(*message);
        }
    }
}

}  // namespace unit
