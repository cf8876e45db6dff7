#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "host/pump.h"
#include "host/serial_port.h"

namespace core {
class Instance;
}

namespace callerid {

class EchoWindow;

// The serial line of the caller-ID modem, "Com1". Part of the caller-ID subsystem. It is opened by
// the first load of the settings that names a port, and stays open.
class ModemPort {
  public:
    // `on_bytes` runs as an event for each piece of input.
    ModemPort(core::Instance& instance, EchoWindow& echo,
              std::function<void(std::string_view bytes)> on_bytes);

    // Opens the port of the settings and sends the modem its first command, unless it is open. A
    // port that is no number means no modem.
    void open_from_settings();

    // In two attempts, each of which is logged.
    bool InitCommPort(const std::string& port);

    // True also for a port that was open already.
    bool OpenCommPort(const std::string& port, const std::string& line);

    void CloseCommPort(const std::string& port);

    // As it stands; nothing without a port. Logs its errors.
    void ModemSend(const std::string& text);

    [[nodiscard]] bool CommPortOpen() const noexcept { return comm_port_open_; }

    // At start-up and shut-down.
    void release();

  private:
    void send_init_string();
    void on_lost(std::string_view reason);
    void try_again();
    void open(const std::string& port, const std::string& line);

    core::Instance& instance_;
    EchoWindow& echo_;
    std::function<void(std::string_view)> on_bytes_;
    std::unique_ptr<host::SerialPort> com1_;
    std::unique_ptr<host::Timer> retry_;  // while a lost device is waited for
    std::string port_;                    // that was opened last
    bool comm_port_open_ = false;
};

}  // namespace callerid
