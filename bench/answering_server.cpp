#include "answering_server.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>
#include <system_error>

namespace bench {
namespace {

constexpr std::string_view kPage =
    "HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n<html><body>OK</body></html>";

[[noreturn]] void fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

AnsweringServer::AnsweringServer(const char* address) {
    listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    address_.sin_family = AF_INET;
    address_.sin_addr.s_addr = ::inet_addr(address);
    socklen_t size = sizeof(address_);
    auto* const plain = reinterpret_cast<sockaddr*>(&address_);
    if (listener_ < 0 || ::bind(listener_, plain, size) != 0 || ::listen(listener_, 16) != 0 ||
        ::getsockname(listener_, plain, &size) != 0) {
        fail("answering server");
    }
    thread_ = std::thread([this] { serve(); });
}

AnsweringServer::~AnsweringServer() {
    ::shutdown(listener_, SHUT_RDWR);  // wakes the accept
    thread_.join();
    ::close(listener_);
}

std::string AnsweringServer::host_and_port() const {
    return std::string(::inet_ntoa(address_.sin_addr)) + ":" +
           std::to_string(ntohs(address_.sin_port));
}

void AnsweringServer::serve() {
    for (int connection = 0; (connection = ::accept(listener_, nullptr, nullptr)) >= 0;) {
        answer(connection);
        ::close(connection);
    }
}

void AnsweringServer::answer(int connection) {
    std::string request;
    std::array<char, 4096> bytes{};
    bool has_line = false;
    while (!request.ends_with("\r\n\r\n")) {
        const ssize_t count = ::recv(connection, bytes.data(), bytes.size(), 0);
        if (count <= 0) {
            return;
        }
        request.append(bytes.data(), static_cast<std::size_t>(count));
        if (!has_line && request.find("\r\n") != std::string::npos) {
            last_request_at_ = std::chrono::steady_clock::now();
            ++requests_;
            has_line = true;
        }
    }
    ::send(connection, kPage.data(), kPage.size(), MSG_NOSIGNAL);
}

}  // namespace bench
