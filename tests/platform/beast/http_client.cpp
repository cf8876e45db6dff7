#include "platform/beast/http_client.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>

namespace platform {
namespace {

using namespace std::chrono_literals;

constexpr auto kMoment = 10s;
constexpr auto kGlance = 2ms;

}  // namespace

HttpClient::HttpClient(AsioPump& pump, std::int32_t port, int receive_buffer)
    : pump_(pump), socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    if (receive_buffer > 0) {
        ::setsockopt(socket_, SOL_SOCKET, SO_RCVBUF, &receive_buffer, sizeof receive_buffer);
    }
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = ::inet_addr("127.0.0.1");
    place.sin_port = htons(static_cast<std::uint16_t>(port));
    if (::connect(socket_, reinterpret_cast<sockaddr*>(&place), sizeof place) != 0) {
        throw std::runtime_error("nobody listens");
    }
    ::fcntl(socket_, F_SETFL, O_NONBLOCK);
}

HttpClient::~HttpClient() {
    ::close(socket_);
}

void HttpClient::send(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto sent = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        } else if (errno == EAGAIN) {
            pump_.run_until([] { return false; }, kGlance);
        } else {
            return;
        }
    }
}

void HttpClient::read_ready(std::string& text) {
    std::array<char, 65536> buffer{};
    for (;;) {
        const auto count = ::recv(socket_, buffer.data(), buffer.size(), 0);
        if (count <= 0) {
            closed_ = closed_ || count == 0 || errno != EAGAIN;
            return;
        }
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

std::string HttpClient::read_until(std::string_view end) {
    std::string text;
    const auto deadline = pump_.steady_now() + kMoment;
    while (!closed_ && pump_.steady_now() < deadline) {
        pump_.run_until([] { return false; }, kGlance);
        read_ready(text);
        if (!end.empty() && text.ends_with(end)) {
            break;
        }
    }
    return text;
}

std::string HttpClient::rest() {
    return read_until("");
}

}  // namespace platform
