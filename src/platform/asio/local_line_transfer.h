#pragma once

#include <array>
#include <boost/asio/local/stream_protocol.hpp>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/asio/local_line_server.h"

namespace platform {

// The transfers of one line connection, owned by its server and shared with the waits.
class LocalLineTransfer : public std::enable_shared_from_this<LocalLineTransfer> {
  public:
    using Socket = boost::asio::local::stream_protocol::socket;

    // Outlives each transfer that it has not dropped.
    class Owner {
      public:
        virtual ~Owner() = default;
        virtual void on_line(const std::shared_ptr<LocalLineTransfer>& transfer,
                             const std::string& line) = 0;
        virtual void on_closed(const std::shared_ptr<LocalLineTransfer>& transfer) = 0;
    };

    LocalLineTransfer(Socket socket, Owner& owner);

    void start() { read(); }

    [[nodiscard]] bool is_open() const noexcept { return phase_ == Phase::Open; }

    void send_line(std::string_view line);
    void close_when_sent();

    // Ends the connection without an event.
    void drop() noexcept;

  private:
    enum class Phase { Open, Sending, Closed };

    void read();
    void on_read(std::size_t length);
    void write();
    void on_write(const boost::system::error_code& error);
    void post(std::function<void(LocalLineTransfer&)> event);
    void end();

    Socket socket_;
    Owner& owner_;
    Phase phase_ = Phase::Open;
    std::array<char, std::size_t{16} * 1024> chunk_{};
    std::string unfinished_line_;
    std::string outgoing_;  // the write in flight
    std::string queued_;    // behind it
    bool writing_ = false;
};

}  // namespace platform
