#include "platform/asio/asio_serial_ports.h"

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/serial_port.hpp>
#include <boost/asio/write.hpp>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>

#include "automation/run_time_error.h"
#include "platform/asio/asio_pump_internal.h"
#include "platform/asio/serial_line.h"

namespace platform {

namespace {

namespace asio = boost::asio;
using automation::ErrorNumber;
using automation::RunTimeError;
using boost::system::error_code;
using SerialBase = asio::serial_port_base;

SerialBase::parity parity_option(Parity parity) {
    switch (parity) {
        case Parity::Even:
            return SerialBase::parity(SerialBase::parity::even);
        case Parity::Odd:
            return SerialBase::parity(SerialBase::parity::odd);
        case Parity::None:
            break;
    }
    return SerialBase::parity(SerialBase::parity::none);
}

// One open device, shared with its own waits.
class OpenDevice : public std::enable_shared_from_this<OpenDevice> {
  public:
    OpenDevice(asio::io_context& context, const host::SerialPortEvents& events)
        : port_(context), events_(events) {}

    void open(const std::string& device, const SerialLine& line) {
        error_code error;
        port_.open(device, error);
        const auto set = [&](const auto& option) {
            if (!error) {
                port_.set_option(option, error);
            }
        };
        set(SerialBase::baud_rate(line.bits_a_second));
        set(parity_option(line.parity));
        set(SerialBase::character_size(line.data_bits));
        set(SerialBase::stop_bits(line.stop_bits == 2 ? SerialBase::stop_bits::two
                                                      : SerialBase::stop_bits::one));
        set(SerialBase::flow_control(SerialBase::flow_control::none));
        if (error) {
            close();
            throw RunTimeError(ErrorNumber::DeviceUnavailable, error.message());
        }
        read();
    }

    [[nodiscard]] bool is_open() const { return port_.is_open(); }

    void write(std::string_view bytes) {
        queued_ += bytes;
        if (outgoing_.empty()) {
            write_queued();
        }
    }

    void close() noexcept {
        error_code ignored;
        port_.close(ignored);
    }

  private:
    void read() {
        port_.async_read_some(
            asio::buffer(chunk_),
            [self = shared_from_this()](const error_code& error, std::size_t length) {
                if (!self->port_.is_open()) {
                    return;
                }
                if (error) {
                    self->lose(error);
                    return;
                }
                const std::string bytes(self->chunk_.data(), length);
                self->read();
                self->events_.on_bytes(bytes);
            });
    }

    void write_queued() {
        outgoing_ = std::exchange(queued_, {});
        asio::async_write(port_, asio::buffer(outgoing_),
                          [self = shared_from_this()](const error_code& error, std::size_t) {
                              self->outgoing_.clear();
                              if (!error && !self->queued_.empty()) {
                                  self->write_queued();
                              }
                          });
    }

    void lose(const error_code& error) {
        close();
        events_.on_lost(error.message());
    }

    asio::serial_port port_;
    const host::SerialPortEvents events_;
    std::array<char, 512> chunk_{};
    std::string outgoing_;  // the write in flight
    std::string queued_;    // behind it
};

class AsioSerialPort final : public host::SerialPort {
  public:
    AsioSerialPort(asio::io_context& context, AsioSerialPorts::DeviceOf device_of,
                   host::SerialPortEvents events)
        : context_(context), device_of_(std::move(device_of)), events_(std::move(events)) {}

    AsioSerialPort(const AsioSerialPort&) = delete;
    AsioSerialPort& operator=(const AsioSerialPort&) = delete;

    ~AsioSerialPort() override { close(); }

    void open(std::string_view port, std::string_view line) override {
        const SerialLine settings = parse_serial_line(line);
        const std::string device = device_of_(port).string();
        if (device.empty()) {
            throw RunTimeError(ErrorNumber::DeviceUnavailable,
                               "There is no serial port " + std::string(port));
        }
        close();
        auto opened = std::make_shared<OpenDevice>(context_, events_);
        try {
            opened->open(device, settings);
        } catch (const RunTimeError& error) {
            throw error.with_description("Serial port " + std::string(port) + ", " + device + ": " +
                                         error.description());
        }
        device_ = std::move(opened);
    }

    [[nodiscard]] bool is_open() const override { return device_ && device_->is_open(); }

    void write(std::string_view bytes) override {
        if (!is_open()) {
            throw RunTimeError(ErrorNumber::DeviceIoError);
        }
        device_->write(bytes);
    }

    void close() noexcept override {
        if (device_) {
            std::exchange(device_, {})->close();
        }
    }

  private:
    asio::io_context& context_;
    AsioSerialPorts::DeviceOf device_of_;
    host::SerialPortEvents events_;
    std::shared_ptr<OpenDevice> device_;
};

}  // namespace

AsioSerialPorts::AsioSerialPorts(AsioPump& pump, DeviceOf device_of)
    : pump_(pump), device_of_(std::move(device_of)) {}

std::unique_ptr<host::SerialPort> AsioSerialPorts::make_serial_port(host::SerialPortEvents events) {
    return std::make_unique<AsioSerialPort>(AsioPumpAccess::io_context_of(pump_), device_of_,
                                            std::move(events));
}

}  // namespace platform
