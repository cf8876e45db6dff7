#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/asio/asio_pump.h"

namespace platform {

// A client of a server that runs on the same pump.
class HttpClient {
  public:
    // `receive_buffer` keeps the system from taking bytes for a client that does not read; 0 leaves
    // it as it is.
    HttpClient(AsioPump& pump, std::int32_t port, int receive_buffer = 0);
    HttpClient(const HttpClient&) = delete;
    HttpClient& operator=(const HttpClient&) = delete;
    ~HttpClient();

    // What the server no longer takes is lost.
    void send(std::string_view bytes);

    // Reads until `end` is the end of all that has come, or the server has closed, or a moment is
    // over. Gives what has come since the last call.
    std::string read_until(std::string_view end);

    // Reads until the server closes; gives what has come.
    std::string rest();

    [[nodiscard]] bool is_closed() const noexcept { return closed_; }

  private:
    void read_ready(std::string& text);

    AsioPump& pump_;
    int socket_;
    bool closed_ = false;
};

}  // namespace platform
