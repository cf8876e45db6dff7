#pragma once

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <future>
#include <string>
#include <system_error>
#include <utility>

namespace platform {

// A server on a loopback port of the system's choice that serves one connection: reads a request up
// to its blank line, sends the reply as it stands and closes. It runs on a thread of its own.
class OneReplyServer {
  public:
    enum class Silence : std::uint8_t { KeepOpen };

    explicit OneReplyServer(std::string reply) : OneReplyServer(std::move(reply), true) {}

    // Reads the request and neither answers nor closes.
    explicit OneReplyServer(Silence) : OneReplyServer("", false) {}

    OneReplyServer(const OneReplyServer&) = delete;
    OneReplyServer& operator=(const OneReplyServer&) = delete;

    ~OneReplyServer() {
        ::shutdown(listener_, SHUT_RDWR);  // wakes an accept that still waits
        served_.wait();
        ::close(connection_);
        ::close(listener_);
    }

    [[nodiscard]] std::string url(const std::string& path) const {
        sockaddr_in address{};
        socklen_t size = sizeof(address);
        ::getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
        return "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + path;
    }

    [[nodiscard]] bool has_served() const {
        return served_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    }

    // The request, once it has been served.
    [[nodiscard]] const std::string& request() const {
        served_.wait();
        return request_;
    }

  private:
    OneReplyServer(std::string reply, bool closes)
        : listener_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (::bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0 ||
            ::listen(listener_, 1) != 0) {
            throw std::system_error(errno, std::generic_category(), "loopback server");
        }
        served_ = std::async(std::launch::async,
                             [this, reply = std::move(reply), closes] { serve(reply, closes); });
    }

    void serve(const std::string& reply, bool closes) {
        connection_ = ::accept(listener_, nullptr, nullptr);
        char byte = 0;
        while (!request_.ends_with("\r\n\r\n") && ::recv(connection_, &byte, 1, 0) == 1) {
            request_ += byte;
        }
        std::size_t sent = 0;
        while (sent < reply.size()) {
            const ssize_t count =
                ::send(connection_, reply.data() + sent, reply.size() - sent, MSG_NOSIGNAL);
            if (count <= 0) {
                break;
            }
            sent += static_cast<std::size_t>(count);
        }
        if (closes) {
            ::shutdown(connection_, SHUT_RDWR);
        }
    }

    int listener_;
    int connection_ = -1;
    std::string request_;
    std::future<void> served_;
};

}  // namespace platform
