#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/pump.h"
#include "host/sockets.h"

namespace support {

// A port of a machine.
using Place = std::pair<std::string, std::int32_t>;

inline constexpr std::int32_t kFirstFreePort = 49152;

// One end of a connection, shared with the events that are on their way. It lives on by itself
// when its socket has left, until the bytes that are queued have gone.
class TcpEnd : public std::enable_shared_from_this<TcpEnd> {
  public:
    TcpEnd(host::Pump& pump, Place place) : pump_(pump), place_(std::move(place)) {}

    // Both outlive the connection.
    static void join(TcpEnd& one, TcpEnd& other);

    // What has arrived before comes as events from now on.
    void take_up(host::TcpSocketEvents& events);

    [[nodiscard]] std::string take(std::size_t max_length);
    void send(std::string_view bytes);

    // No event comes afterwards.
    void leave() noexcept;

    // The connection breaks: state Error, and an event when somebody holds this end.
    void fail(std::int32_t number, std::string_view description);

    // Leaves without a farewell: the peer's end fails.
    void reset();

    // While it holds back, an end reads nothing, so that its peer's sends do not complete.
    void set_holds_back(bool holds_back);

    [[nodiscard]] bool has_left() const noexcept { return has_left_; }

    [[nodiscard]] host::SocketState state() const noexcept { return state_; }

    [[nodiscard]] const Place& place() const noexcept { return place_; }

    [[nodiscard]] std::string peer_address() const;

    [[nodiscard]] std::shared_ptr<TcpEnd> peer() const { return peer_.lock(); }

  private:
    template <typename Event>
    void post(Event event);

    void transfer_soon();
    void transfer();
    void on_arrival(const std::string& packet);
    void on_peer_closed();

    host::Pump& pump_;
    Place place_;
    std::weak_ptr<TcpEnd> peer_;
    host::TcpSocketEvents* events_ = nullptr;  // none before `take_up` and after `leave`
    host::SocketState state_ = host::SocketState::Connecting;
    std::deque<std::string> queued_;  // one packet for each `send`
    std::string arrived_;
    bool holds_back_ = false;
    bool has_left_ = false;
    bool peer_has_closed_ = false;
};

class MemoryTcpSocket;

// What the TCP sockets of all machines share.
class TcpWires : public std::enable_shared_from_this<TcpWires> {
  public:
    explicit TcpWires(host::Pump& pump) : pump_(pump) {}

    // The caller's end of a connection that is tried from now on.
    [[nodiscard]] std::shared_ptr<TcpEnd> call(std::string_view from, const Place& to,
                                               host::TcpSocketEvents& events);

    // The callee's end, while its request's event runs.
    [[nodiscard]] std::shared_ptr<TcpEnd> take_request(host::ConnectionRequestId request);

    // Connections to this machine get neither an answer nor a refusal.
    void silence(std::string_view address) { silent_.emplace(address); }

    [[nodiscard]] std::int32_t free_port() noexcept { return next_port_++; }

    std::map<Place, MemoryTcpSocket*> listeners;

  private:
    [[nodiscard]] std::shared_ptr<TcpEnd> make_end(const Place& place);
    void knock(const std::shared_ptr<TcpEnd>& caller, const Place& at,
               host::TcpSocketEvents& events);
    void ring(const std::shared_ptr<TcpEnd>& callee);

    host::Pump& pump_;
    std::set<std::string> silent_;
    std::vector<std::shared_ptr<TcpEnd>> ends_;  // all that ever were
    std::map<host::ConnectionRequestId, std::shared_ptr<TcpEnd>> requests_;
    host::ConnectionRequestId latest_request_ = 0;
    std::int32_t next_port_ = kFirstFreePort;
};

// A TCP socket of one machine.
class MemoryTcpSocket final : public host::TcpSocket {
  public:
    MemoryTcpSocket(std::shared_ptr<TcpWires> wires, std::string_view address,
                    host::TcpSocketEvents& events)
        : wires_(std::move(wires)), address_(address), events_(events) {}

    ~MemoryTcpSocket() override { Close(); }

    [[nodiscard]] std::int32_t LocalPort() const override;

    void set_local_port(std::int32_t port) override { local_port_ = port; }

    void Listen() override;
    void Accept(host::ConnectionRequestId request) override;
    void Connect(std::string_view remote_host, std::int32_t remote_port) override;
    [[nodiscard]] std::string GetData(std::int32_t max_length) override;
    void SendData(std::string_view bytes) override;
    void Close() noexcept override;
    [[nodiscard]] host::SocketState State() const override;
    [[nodiscard]] std::string RemoteHostIP() const override;

    // A connection waits here: runs the event.
    void ring(host::ConnectionRequestId request, std::string_view caller);

    // Requires: a connection.
    [[nodiscard]] TcpEnd& end() const { return *end_; }

  private:
    void require_closed() const;

    std::shared_ptr<TcpWires> wires_;
    std::string address_;
    host::TcpSocketEvents& events_;
    std::int32_t local_port_ = 0;
    std::int32_t listening_port_ = 0;  // 0 when not listening
    std::string last_peer_;
    std::shared_ptr<TcpEnd> end_;
};

}  // namespace support
