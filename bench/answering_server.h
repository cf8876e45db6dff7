#pragma once

#include <netinet/in.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

namespace bench {

// The web server of a unit that answers every request at once, on blocking sockets and a thread of
// its own, so that it costs the measured thread nothing. Ends with the object.
class AnsweringServer {
  public:
    using Moment = std::chrono::steady_clock::time_point;

    // Listens at `address`, on a port of the system's choice. Throws: std::system_error.
    explicit AnsweringServer(const char* address);
    AnsweringServer(const AnsweringServer&) = delete;
    AnsweringServer& operator=(const AnsweringServer&) = delete;
    ~AnsweringServer();

    [[nodiscard]] const sockaddr_in& address() const noexcept { return address_; }

    [[nodiscard]] std::string host_and_port() const;

    // When the request line of the latest request had arrived.
    [[nodiscard]] Moment last_request_at() const noexcept { return last_request_at_.load(); }

    [[nodiscard]] int requests() const noexcept { return requests_.load(); }

  private:
    void serve();
    void answer(int connection);

    sockaddr_in address_{};
    int listener_ = -1;
    std::atomic<Moment> last_request_at_{};
    std::atomic<int> requests_ = 0;
    std::thread thread_;
};

}  // namespace bench
