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

    // `port` is a number, 1 the first, or a device's path; `line` is "9600,n,8,1".
    // Throws: RunTimeError 68 with port and reason.
    virtual void open(std::string_view port, std::string_view line) = 0;
    [[nodiscard]] virtual bool is_open() const = 0;
    virtual void write(std::string_view bytes) = 0;
    virtual void close() noexcept = 0;
};

class SerialPorts {
  public:
    virtual ~SerialPorts() = default;

    // `on_bytes` runs as an event for each piece of input.
    [[nodiscard]] virtual std::unique_ptr<SerialPort> make_serial_port(
        std::function<void(std::string_view bytes)> on_bytes) = 0;
};

}  // namespace host
