#include "unit/resource_fetch.h"

#include <array>
#include <boost/asio.hpp>
#include <utility>

#include "unit/response_reader.h"
#include "unit/web_address.h"
#include "unit/within.h"

namespace unit {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;

constexpr std::chrono::seconds kConnectLimit{10};
constexpr std::size_t kLargestBody = std::size_t{64} * 1024 * 1024;

std::string request_text(const WebAddress& address, const std::string& unit_name) {
    std::string host = address.host;
    if (address.port != 80) {
        host += ":" + std::to_string(address.port);
    }
    return "GET " + address.target + " HTTP/1.0\r\n" +                             //
           "Host: " + host + "\r\n" +                                              //
           "User-Agent: Mozilla/4.0 (compatible; Velora " + unit_name + ")\r\n" +  //
           "Accept: */*\r\n" +                                                     //
           "Connection: close\r\n\r\n";
}

// An address in figures needs no resolver, whose look-up could not be cut short.
asio::awaitable<tcp::endpoint> resolved(const WebAddress& address) {
    boost::system::error_code not_numeric;
    const auto numeric = asio::ip::make_address(address.host, not_numeric);
    if (!not_numeric) {
        co_return tcp::endpoint(numeric, address.port);
    }
    tcp::resolver resolver(co_await asio::this_coro::executor);
    const auto found = co_await resolver.async_resolve(address.host, std::to_string(address.port),
                                                       asio::use_awaitable);
    co_return found.begin()->endpoint();
}

void throw_on(const boost::system::error_code& error) {
    if (error) {
        throw boost::system::system_error(error);
    }
}

void bind_to(tcp::socket& socket, const asio::ip::address& local, const tcp::endpoint& server) {
    socket.open(server.protocol());
    if (!local.is_unspecified() && local.is_v4() == server.address().is_v4()) {
        socket.bind(tcp::endpoint(local, 0));
    }
}

asio::awaitable<void> read_response(tcp::socket& socket, ResponseReader& reader) {
    std::array<char, 16384> buffer{};
    auto progress = ResponseProgress::NeedsMore;
    while (progress == ResponseProgress::NeedsMore) {
        const auto [error, length] =
            co_await within(kIdleLimit, socket.async_read_some(asio::buffer(buffer), kAsTuple));
        if (error == asio::error::eof) {
            progress = reader.end_of_stream();
        } else {
            throw_on(error);
            progress = reader.feed({buffer.data(), length});
        }
    }
}

asio::awaitable<void> exchange(const WebAddress& address, const FetchIdentity& identity,
                               ResponseReader& reader) {
    const tcp::endpoint server = co_await resolved(address);
    tcp::socket socket(co_await asio::this_coro::executor);
    bind_to(socket, identity.local_address, server);
    const auto [connect_error] =
        co_await within(kConnectLimit, socket.async_connect(server, kAsTuple));
    throw_on(connect_error);
    const std::string request = request_text(address, identity.unit_name);
    const auto [write_error, written] =
        co_await within(kIdleLimit, asio::async_write(socket, asio::buffer(request), kAsTuple));
    throw_on(write_error);
    co_await read_response(socket, reader);
}

}  // namespace

asio::awaitable<FetchedResource> fetch_resource(std::string url, FetchIdentity identity) {
    FetchedResource resource;
    const auto address = parse_web_address(url);
    if (!address) {
        resource.problem = "not a web address: " + url;
        co_return resource;
    }
    ResponseReader reader(kLargestBody);
    try {
        co_await exchange(*address, identity, reader);
        resource.problem = reader.problem();
    } catch (const boost::system::system_error& error) {
        if (error.code() == asio::error::operation_aborted) {
            throw;
        }
        resource.problem = error.code().message();
    }
    resource.status_line = reader.status_line();
    resource.status = reader.status();
    resource.body = reader.body();
    co_return resource;
}

}  // namespace unit
