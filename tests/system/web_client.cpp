#include "system/web_client.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace system_tests {

WebClient::WebClient(const std::string& port, int receive_buffer)
    : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    const int yes = 1;
    ::setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    if (receive_buffer > 0) {
        ::setsockopt(socket_, SOL_SOCKET, SO_RCVBUF, &receive_buffer, sizeof receive_buffer);
    }
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    place.sin_port = htons(static_cast<std::uint16_t>(std::stoi(port)));
    connected_ = ::connect(socket_, reinterpret_cast<const sockaddr*>(&place), sizeof place) == 0;
}

WebClient::WebClient(WebClient&& other) noexcept
    : socket_(std::exchange(other.socket_, -1)),
      connected_(other.connected_),
      closed_(other.closed_) {}

WebClient::~WebClient() {
    if (socket_ >= 0) {
        ::close(socket_);
    }
}

void WebClient::send(std::string_view bytes) const {
    static_cast<void>(::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL));
}

std::string WebClient::rest(std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    std::string received;
    std::array<char, 65536> buffer{};
    while (!closed_) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        pollfd readable{.fd = socket_, .events = POLLIN, .revents = 0};
        if (left.count() < 0 || ::poll(&readable, 1, static_cast<int>(left.count())) < 1) {
            break;
        }
        const ssize_t length = ::recv(socket_, buffer.data(), buffer.size(), 0);
        closed_ = length <= 0;
        received.append(buffer.data(), closed_ ? 0 : static_cast<std::size_t>(length));
    }
    return received;
}

std::string get(const std::string& port, const std::string& target) {
    WebClient client(port);
    client.send("GET " + target + " HTTP/1.0\r\n\r\n");
    return client.rest();
}

}  // namespace system_tests
