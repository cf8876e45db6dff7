#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace host {

// A serial line. Destroying it closes it. Bytes are texts of one byte each.
class SerialPort {
  public:
    virtual ~SerialPort() = default;

    // `port` is the number of a port, 1 the first; `line` is "9600,n,8,1": bits a second, parity
    // (n, e or o), data bits (5 to 8), stop bits (1 or 2).
    // Throws: RunTimeError 68 with port, device and reason; 5 for a line that is none.
    virtual void open(std::string_view port, std::string_view line) = 0;
    [[nodiscard]] virtual bool is_open() const = 0;

    // Queues the bytes. Throws: RunTimeError 57 unless open.
    virtual void write(std::string_view bytes) = 0;
    virtual void close() noexcept = 0;
};

// Where the events of a serial line go. Both run as events of the pump.
struct SerialPortEvents {
    std::function<void(std::string_view bytes)> on_bytes;  // for each piece of input

    // The device is gone; the port is closed.
    std::function<void(std::string_view reason)> on_lost;
};

class SerialPorts {
  public:
    virtual ~SerialPorts() = default;

    [[nodiscard]] virtual std::unique_ptr<SerialPort> make_serial_port(SerialPortEvents events) = 0;
};

}  // namespace host
