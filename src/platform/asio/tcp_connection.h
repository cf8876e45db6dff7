#pragma once

#include <array>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/sockets.h"

namespace platform {

// One TCP connection, shared between the socket that made it and its own transfers. After `leave`
// it lives on by itself until the queued bytes are sent.
class TcpConnection : public std::enable_shared_from_this<TcpConnection> {
  public:
    static constexpr std::size_t kWaitingBytes =
        std::size_t{64} * 1024;                              // above that, the peer has to wait
    static constexpr std::chrono::seconds kSendingTime{30};  // of queued bytes, after `leave`
    static constexpr std::chrono::seconds kLingerTime{2};    // for the peer to close, behind them

    TcpConnection(boost::asio::io_context& context, host::TcpSocketEvents& events);

    void start(boost::asio::ip::tcp::socket accepted);
    void connect(std::string_view host, std::uint16_t port);

    [[nodiscard]] std::string take(std::size_t max_length);

    // Requires: state Connected.
    void send(std::string_view bytes);

    // No event comes afterwards.
    void leave() noexcept;

    [[nodiscard]] host::SocketState state() const noexcept { return state_; }

    [[nodiscard]] std::int32_t local_port() const;

    [[nodiscard]] const std::string& peer() const noexcept { return peer_; }

  private:
    using Endpoints = boost::asio::ip::tcp::resolver::results_type;

    void connect_to(const Endpoints& endpoints);
    void on_connect(const boost::system::error_code& error);
    void take_up();

    void read();
    void on_read(const boost::system::error_code& error, std::size_t length);
    void on_end_of_reading(const boost::system::error_code& error);

    void write();
    void on_write(const boost::system::error_code& error);

    void end_within(std::chrono::seconds limit);
    void finish_sending();
    void fail(const boost::system::error_code& error);
    void close() noexcept;

    boost::asio::ip::tcp::socket socket_;
    boost::asio::ip::tcp::resolver resolver_;
    boost::asio::steady_timer end_;  // runs after `leave`
    host::TcpSocketEvents* events_;  // none after `leave`
    host::SocketState state_ = host::SocketState::Closed;
    std::string peer_;

    std::array<char, std::size_t{16} * 1024> chunk_{};  // target of the read in flight
    std::string arrived_;
    bool reading_ = false;
    bool peer_has_closed_ = false;

    std::string outgoing_;  // the write in flight
    std::string queued_;    // behind it
    bool writing_ = false;
};

}  // namespace platform
