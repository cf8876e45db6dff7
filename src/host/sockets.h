#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace host {

// States of a TCP socket with their numbers in logs.
enum class SocketState : std::uint8_t {
    Closed = 0,
    Listening = 2,
    Connecting = 6,
    Connected = 7,
    Closing = 8,
    Error = 9,
};

// A waiting connection, as told by `ConnectionRequest`.
using ConnectionRequestId = std::int32_t;

// Receives the events of one TCP socket, each as an event of the pump; none after `Close` or the
// socket's end. A handler may close the socket, but not destroy it.
class TcpSocketEvents {
  public:
    virtual ~TcpSocketEvents() = default;

    virtual void ConnectionRequest(ConnectionRequestId /*request*/) {}  // at a listener

    virtual void Connect() {}  // own connection stands

    virtual void DataArrival(std::int32_t /*bytes_total*/) {}

    virtual void SendComplete() {}  // all that was sent has gone to the network

    virtual void Close() {}  // the peer has closed; the state is Closing

    virtual void Error(std::int32_t /*number*/, std::string_view /*description*/) {}
};

// One TCP socket of the pump: a listener, an accepted connection or an own connection. Owned by
// whoever made it. Bytes are texts of one byte each. Errors arrive as state Error and event, but
// for those that a member says it throws.
class TcpSocket {
  public:
    TcpSocket() = default;
    TcpSocket(const TcpSocket&) = delete;
    TcpSocket& operator=(const TcpSocket&) = delete;
    virtual ~TcpSocket() = default;

    [[nodiscard]] virtual std::int32_t LocalPort() const = 0;  // 0 before it is set or bound
    virtual void set_local_port(std::int32_t port) = 0;

    // Throws: RunTimeError 10048 with the port's number when it is taken, 57 otherwise.
    virtual void Listen() = 0;

    // Takes over a connection that waits at a listener of the same network. A request is refused
    // when nobody has accepted it by the end of its event. Throws: RunTimeError 5 for a stale one.
    virtual void Accept(ConnectionRequestId request) = 0;

    virtual void Connect(std::string_view remote_host, std::int32_t remote_port) = 0;

    // Takes at most `max_length` of the bytes that have arrived.
    [[nodiscard]] virtual std::string GetData(std::int32_t max_length) = 0;

    // Queues the bytes. Throws: RunTimeError 57 unless connected.
    virtual void SendData(std::string_view bytes) = 0;

    // Ends the connection or stops listening. Bytes already queued still go out, for a bounded
    // time, in the background. State Closed from now on; the object can be used anew.
    virtual void Close() noexcept = 0;

    [[nodiscard]] virtual SocketState State() const = 0;

    // Address of the peer; at a listener that of the latest connection request.
    [[nodiscard]] virtual std::string RemoteHostIP() const = 0;
};

// Receives the datagrams of one UDP socket.
class UdpSocketEvents {
  public:
    virtual ~UdpSocketEvents() = default;

    virtual void DataArrival(std::int32_t /*bytes_total*/) {}
};

// One UDP socket of the pump.
class UdpSocket {
  public:
    UdpSocket() = default;
    UdpSocket(const UdpSocket&) = delete;
    UdpSocket& operator=(const UdpSocket&) = delete;
    virtual ~UdpSocket() = default;

    virtual void set_remote_host(std::string_view host) = 0;
    virtual void set_remote_port(std::int32_t port) = 0;
    virtual void set_local_port(std::int32_t port) = 0;
    [[nodiscard]] virtual std::int32_t LocalPort() const = 0;

    // Throws: RunTimeError 10048 with the port's number when it is taken.
    virtual void Bind() = 0;

    // Throws: RunTimeError 57 for an empty or unknown remote host.
    virtual void SendData(std::string_view bytes) = 0;

    // The oldest datagram that has arrived; `RemoteHostIP` is then its sender's address.
    [[nodiscard]] virtual std::string GetData() = 0;
    [[nodiscard]] virtual std::string RemoteHostIP() const = 0;

    virtual void Close() noexcept = 0;
};

// Makes sockets. The events object must outlive the socket.
class Network {
  public:
    virtual ~Network() = default;
    [[nodiscard]] virtual std::unique_ptr<TcpSocket> make_tcp_socket(TcpSocketEvents& events) = 0;
    [[nodiscard]] virtual std::unique_ptr<UdpSocket> make_udp_socket(UdpSocketEvents& events) = 0;
};

}  // namespace host
