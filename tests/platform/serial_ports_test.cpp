#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "automation/run_time_error.h"
#include "platform/asio/asio_pump.h"
#include "platform/asio/asio_serial_ports.h"
#include "platform/asio/serial_line.h"
#include "platform/system/pseudo_terminal.h"

namespace platform {
namespace {

using namespace std::chrono_literals;

class SerialPortsTest : public testing::Test {
  protected:
    AsioPump pump_;
    PseudoTerminal modem_;
    std::string received_;
    std::string lost_;
    AsioSerialPorts ports_{pump_, [this](std::string_view port) {
                               return port == "1" ? modem_.device() : std::filesystem::path();
                           }};
    std::unique_ptr<host::SerialPort> port_ =
        ports_.make_serial_port({.on_bytes = [this](std::string_view bytes) { received_ += bytes; },
                                 .on_lost = [this](std::string_view reason) { lost_ = reason; }});
};

TEST_F(SerialPortsTest, BytesPassBothWaysAsTheyAre) {
    port_->open("1", "9600,n,8,1");
    EXPECT_TRUE(port_->is_open());
    modem_.send("RING\r\nNMBR = 1\r\n");
    EXPECT_TRUE(pump_.run_until([&] { return received_.size() == 16; }, 5s)) << received_;
    EXPECT_EQ(received_, "RING\r\nNMBR = 1\r\n");
    port_->write("AT#CID=1\r\n");
    pump_.run_until([] { return false; }, 50ms);
    EXPECT_EQ(modem_.receive(5s), "AT#CID=1\r\n");
}

TEST_F(SerialPortsTest, ADeviceThatGoesAwayIsTold) {
    port_->open("1", "9600,n,8,1");
    modem_.hang_up();
    EXPECT_TRUE(pump_.run_until([&] { return !lost_.empty(); }, 5s));
    EXPECT_FALSE(port_->is_open());
    EXPECT_THROW(port_->write("AT"), automation::RunTimeError);
}

TEST_F(SerialPortsTest, AClosedPortTellsNothing) {
    port_->open("1", "9600,n,8,1");
    port_->close();
    modem_.hang_up();
    EXPECT_FALSE(pump_.run_until([&] { return !lost_.empty(); }, 50ms));
}

TEST_F(SerialPortsTest, WhatCannotBeOpenedIsNamed) {
    const auto reason = [&](std::string_view port, std::string_view line) -> std::string {
        try {
            port_->open(port, line);
        } catch (const automation::RunTimeError& error) {
            return error.description();
        }
        return "";
    };
    EXPECT_EQ(reason("7", "9600,n,8,1"), "There is no serial port 7");
    EXPECT_EQ(reason("1", "9600,n,8"),
              "The serial line '9600,n,8' is not like 9600,n,8,1: there are four fields");
    modem_.hang_up();
    EXPECT_THAT(reason("1", "9600,n,8,1"), testing::StartsWith("Serial port 1, /dev/"));
}

TEST(SerialLine, IsReadAndEveryFieldChecked) {
    const SerialLine line = parse_serial_line(" 19200, E ,7,2");
    EXPECT_EQ(line.bits_a_second, 19200U);
    EXPECT_EQ(line.parity, Parity::Even);
    EXPECT_EQ(line.data_bits, 7U);
    EXPECT_EQ(line.stop_bits, 2U);
    for (const char* text : {"", "9600", "0,n,8,1", "x,n,8,1", "9600,x,8,1", "9600,n,9,1",
                             "9600,n,8,3", "9600.5,n,8,1", "9600,n,8,1,0"}) {
        EXPECT_THROW(static_cast<void>(parse_serial_line(text)), automation::RunTimeError) << text;
    }
}

}  // namespace
}  // namespace platform
