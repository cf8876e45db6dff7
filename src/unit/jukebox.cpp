#include "unit/jukebox.h"

#include <array>
#include <boost/asio.hpp>
#include <string>

#include "unit/appliance.h"
#include "unit/within.h"

namespace unit {

namespace asio = boost::asio;
using asio::ip::tcp;

namespace {

constexpr std::size_t kLongestText = std::size_t{64} * 1024;  // of a flood the rest is not read

// Ends early when the connection breaks or the client stays silent for too long.
asio::awaitable<boost::system::error_code> read_text(tcp::socket& socket, std::string& text) {
    std::array<char, 4096> buffer{};
    while (text.size() < kLongestText) {
        const auto [error, length] =
            co_await within(kIdleLimit, socket.async_read_some(asio::buffer(buffer), kAsTuple));
        if (error) {
            co_return error;
        }
        text.append(buffer.data(), length);
    }
    co_return asio::error::eof;
}

}  // namespace

asio::awaitable<void> serve_jukebox(tcp::socket socket, Appliance& appliance) {
    if (appliance.fault().kind == FaultKind::Drop) {
        appliance.take_music("-");
        co_return;
    }
    std::string text;
    const boost::system::error_code end = co_await read_text(socket, text);
    if (end != asio::error::eof || text.empty()) {
        co_return;
    }
    if (appliance.fault().kind == FaultKind::Slow) {
        asio::steady_timer delay(socket.get_executor(), appliance.fault().delay);
        co_await delay.async_wait(asio::use_awaitable);
    }
    appliance.take_music(text);
}

}  // namespace unit
