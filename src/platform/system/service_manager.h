#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

// The service manager that has started this program, if one has: it hears that the program is up,
// that it still turns, and that it is about to end, by the protocol of systemd's sd_notify(3).
// Owned by the program. Without a service manager all of it does nothing.
class ServiceManager {
  public:
    // `socket` is the value of NOTIFY_SOCKET: the path of a datagram socket, or an abstract name
    // behind "@"; a null pointer without a service manager.
    explicit ServiceManager(const char* socket) : socket_(socket == nullptr ? "" : socket) {}

    void is_ready() const noexcept { tell("READY=1"); }

    void is_alive() const noexcept { tell("WATCHDOG=1"); }

    void is_stopping() const noexcept { tell("STOPPING=1"); }

    // How often `is_alive` is wanted: half the time after which the manager takes the program for
    // hung. Takes the values of WATCHDOG_USEC and WATCHDOG_PID; none when no watchdog is on, or it
    // is not this process's.
    [[nodiscard]] static std::optional<std::chrono::milliseconds> alive_interval(
        const char* microseconds, const char* process_id);

  private:
    void tell(std::string_view state) const noexcept;

    std::string socket_;
};

}  // namespace platform
