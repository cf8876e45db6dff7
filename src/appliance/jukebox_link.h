#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "host/pump.h"
#include "host/sockets.h"

namespace core {
class Instance;
}

namespace appliance {

// The line to phJuke, the music player on a unit: one TCP socket for the whole house, by which one
// text at a time goes out beside the command queues. The hidden event object makes it and ends
// it; who waits in it shares it, so that the end of the event object only ends the wait. All that
// connects or sends pumps. From within a pumped event, a second command takes the socket away from
// the first. Errors are logged.
class JukeboxLink final : private host::TcpSocketEvents {
  public:
    using Tick = std::function<void()>;

    // `on_connect_tick` and `on_send_tick` are the event object's, which lead back to here.
    JukeboxLink(core::Instance& instance, Tick on_connect_tick, Tick on_send_tick);

    // True when the player at this host and port, a number as text, has taken the connection;
    // false after 24 seconds without.
    bool ConnectPhJuke(const std::string& host, const std::string& port);

    // One try at the host and port that were given last: true at once while connected, false after
    // six attempts in 12 seconds.
    bool OpenphJukePort();

    // Sends the text as it stands and waits until it has gone, 2 seconds at most. The connection is
    // closed then.
    void SendPhJuke(const std::string& text);

    void ClosePhJukePort() noexcept;

    void ConnectTimer_Timer();
    void SendTimer_Timer();

    [[nodiscard]] host::Timer& ConnectTimer() { return *connect_timer_; }

    [[nodiscard]] host::Timer& SendTimer() { return *send_timer_; }

    // Ends the waits that run; nothing connects afterwards.
    void shut() noexcept;

  private:
    void Connect() override;
    void SendComplete() override;
    void Error(std::int32_t number, std::string_view description) override;

    void connect();
    [[nodiscard]] bool is_connected() const;
    bool wait_while(const host::Timer& timer, const std::function<bool()>& done);

    core::Instance& instance_;
    std::unique_ptr<host::Timer> connect_timer_;
    std::unique_ptr<host::Timer> send_timer_;
    std::string remote_host_;
    std::int32_t remote_port_ = 0;
    std::int16_t connect_attempts_ = 0;
    bool is_shut_ = false;
    std::unique_ptr<host::TcpSocket> phJukeWinsock_;
};

}  // namespace appliance
