#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace system_tests {

// One connection to a web server of this machine. Nothing waits longer than a moment allows.
class WebClient {
  public:
    static constexpr std::chrono::milliseconds kMoment{10'000};

    // `receive_buffer` keeps the system from taking bytes for a client that does not read; 0 leaves
    // it as it is.
    explicit WebClient(const std::string& port, int receive_buffer = 0);
    WebClient(const WebClient&) = delete;
    WebClient& operator=(const WebClient&) = delete;
    WebClient(WebClient&& other) noexcept;
    WebClient& operator=(WebClient&&) = delete;
    ~WebClient();

    [[nodiscard]] bool is_connected() const noexcept { return connected_; }

    // What the server no longer takes is lost.
    void send(std::string_view bytes) const;

    // What comes until the server closes or the time is over.
    std::string rest(std::chrono::milliseconds limit = kMoment);

    // True when `rest` has seen the server close.
    [[nodiscard]] bool is_closed() const noexcept { return closed_; }

  private:
    int socket_;
    bool connected_ = false;
    bool closed_ = false;
};

// The answer to one request for the page, on a connection of its own.
[[nodiscard]] std::string get(const std::string& port, const std::string& target);

}  // namespace system_tests
