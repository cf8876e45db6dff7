#pragma once

#include <filesystem>
#include <functional>
#include <string_view>

#include "host/serial_port.h"

namespace platform {

class AsioPump;

// The serial lines of this machine: any terminal device, in raw mode without handshaking. Owned by
// the program.
class AsioSerialPorts final : public host::SerialPorts {
  public:
    // The device of a port, such as /dev/ttyS0 for "1"; "" for one that there is not.
    using DeviceOf = std::function<std::filesystem::path(std::string_view port)>;

    // The pump outlives all ports.
    AsioSerialPorts(AsioPump& pump, DeviceOf device_of);

    [[nodiscard]] std::unique_ptr<host::SerialPort> make_serial_port(
        host::SerialPortEvents events) override;

  private:
    AsioPump& pump_;
    DeviceOf device_of_;
};

}  // namespace platform
