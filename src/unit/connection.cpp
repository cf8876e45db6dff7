#include "unit/connection.h"

#include <array>
#include <boost/asio.hpp>
#include <exception>
#include <iostream>
#include <utility>

#include "unit/appliance.h"
#include "unit/within.h"

namespace unit {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;

// What is behind the request, such as a body or a flood, is thrown away this long, so that the
// client reads its answer before the connection breaks.
constexpr std::chrono::seconds kLingerLimit{2};

// Stands in the log for what has no request line.
HttpRequest unreadable_request() {
    return {"-", "-", "HTTP/1.0"};
}

asio::awaitable<RequestProgress> read_request(tcp::socket& socket, RequestReader& reader) {
    std::array<char, 4096> buffer{};
    auto progress = RequestProgress::NeedsMore;
    while (progress == RequestProgress::NeedsMore) {
        const auto [error, length] =
            co_await within(kIdleLimit, socket.async_read_some(asio::buffer(buffer), kAsTuple));
        if (error) {
            co_return RequestProgress::NeedsMore;
        }
        progress = reader.feed({buffer.data(), length});
    }
    co_return progress;
}

// Throws away what arrives, until the client closes.
asio::awaitable<std::tuple<boost::system::error_code>> drain(tcp::socket& socket) {
    std::array<char, 4096> buffer{};
    for (;;) {
        const auto [error, length] =
            co_await socket.async_read_some(asio::buffer(buffer), kAsTuple);
        if (error) {
            co_return std::tuple(error);
        }
    }
}

asio::awaitable<void> send(tcp::socket& socket, std::string_view bytes) {
    const auto [error, length] =
        co_await within(kIdleLimit, asio::async_write(socket, asio::buffer(bytes), kAsTuple));
    if (error) {
        throw boost::system::system_error(error);
    }
}

asio::awaitable<void> send_and_close(tcp::socket& socket, const std::string& response) {
    co_await send(socket, response);
    socket.shutdown(tcp::socket::shutdown_send);
    co_await within(kLingerLimit, drain(socket));
}

asio::awaitable<Page> page_for(RequestProgress progress, const HttpRequest& request,
                               Appliance& appliance) {
    if (progress == RequestProgress::Malformed) {
        co_return Page{kStatusBadRequest, "This is no request"};
    }
    if (progress == RequestProgress::TooLarge) {
        co_return Page{kStatusTooLarge, "The request is too large"};
    }
    if (appliance.fault().kind == FaultKind::NotFound) {
        co_return Page{kStatusNotFound, "There is no such page: " + request.target};
    }
    if (request.method != "GET") {
        co_return Page{kStatusNotImplemented, "Only GET is known here"};
    }
    std::string problem;
    try {
        co_return co_await appliance.answer(request);
    } catch (const boost::system::system_error&) {
        throw;
    } catch (const std::exception& error) {
        problem = error.what();
    }
    std::cerr << "unit: " << problem << '\n';
    co_return Page{kStatusServerError, problem};
}

}  // namespace

asio::awaitable<void> serve_connection(tcp::socket socket, Appliance& appliance) {
    if (appliance.fault().kind == FaultKind::Drop) {
        appliance.note_request(unreadable_request(), to_text(appliance.fault()));
        co_return;
    }
    RequestReader reader;
    const RequestProgress progress = co_await read_request(socket, reader);
    if (progress == RequestProgress::NeedsMore) {
        co_return;
    }
    const HttpRequest request =
        progress == RequestProgress::Complete ? reader.request() : unreadable_request();
    const Fault fault = appliance.fault();
    if (fault.kind == FaultKind::Silent) {
        appliance.note_request(request, to_text(fault));
        co_await within(kIdleLimit, drain(socket));
        co_return;
    }
    if (fault.kind == FaultKind::Slow) {
        asio::steady_timer delay(socket.get_executor(), fault.delay);
        co_await delay.async_wait(asio::use_awaitable);
    }
    const Page page = co_await page_for(progress, request, appliance);
    const std::string response = to_response(page, request.version);
    if (fault.kind == FaultKind::Hang) {
        appliance.note_request(request, to_text(fault));
        co_await send(socket, std::string_view{response}.substr(0, response.size() / 2));
        co_await within(kIdleLimit, drain(socket));
        co_return;
    }
    appliance.note_request(request, page.status);
    co_await send_and_close(socket, response);
}

}  // namespace unit
