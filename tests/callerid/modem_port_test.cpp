#include "callerid/modem_port.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "callerid/echo_window.h"
#include "core/instance.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"

namespace callerid {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class ModemPortTest : public testing::Test {
  protected:
    void start(host::Protection protection = {}) {
        machine_.protection = protection;
        instance_ = std::make_unique<core::Instance>(machine_.platform());
        instance_->attach(host_, &host_);
        instance_->log.attach(&host_);
        instance_->settings.CIDCommPort = "3";
        instance_->settings.CIDPortString = "9600,n,8,1";
        instance_->settings.CIDModemInitString = "AT#CID=1";
        port_ = std::make_unique<ModemPort>(*instance_, echo_,
                                            [this](std::string_view bytes) { received_ += bytes; });
    }

    support::FakeMachine machine_;
    support::MemoryHost host_;
    EchoWindow echo_;
    std::string received_;
    std::unique_ptr<core::Instance> instance_;
    std::unique_ptr<ModemPort> port_;
};

TEST_F(ModemPortTest, OpensOnceAndSaysTheFirstCommand) {
    start();
    port_->open_from_settings();
    port_->open_from_settings();
    EXPECT_THAT(machine_.serial_ports.calls(),
                ElementsAre("open 3 9600,n,8,1", "write AT#CID=1\r\n"));
    EXPECT_THAT(host_.log(), ElementsAre("zynVelora: zynVelora Modem Comm Port 3 Opened"));
    EXPECT_EQ(echo_.CommData(), "\r\n[Sent to Modem:     AT#CID=1<crlf> ]\r\n");
    machine_.serial_ports.receive("RING");
    EXPECT_EQ(received_, "RING");
}

TEST_F(ModemPortTest, ATextThatIsNoNumberMeansNoModem) {
    start();
    instance_->settings.CIDCommPort = "";
    port_->open_from_settings();
    port_->ModemSend("AT");
    EXPECT_THAT(machine_.serial_ports.calls(), IsEmpty());
    EXPECT_THAT(host_.log(), IsEmpty());
    EXPECT_EQ(echo_.CommData(), "");
}

TEST_F(ModemPortTest, TriesTwiceAndAgainAtTheNextLoad) {
    start();
    machine_.serial_ports.unplug();
    port_->open_from_settings();
    EXPECT_FALSE(port_->CommPortOpen());
    EXPECT_THAT(
        host_.log(),
        ElementsAre(StartsWith("zynVelora: Open Comm Port "),
                    "zynVelora: Error Opening zynVelora Modem Comm Port number  3",
                    "zynVelora: Closed Comm Port 3", StartsWith("zynVelora: Open Comm Port "),
                    "zynVelora: Error Opening zynVelora Modem Comm Port number  3",
                    "zynVelora: Closed Comm Port 3"));
    machine_.serial_ports.plug_in();
    port_->open_from_settings();
    EXPECT_TRUE(port_->CommPortOpen());
}

TEST_F(ModemPortTest, ALostDeviceIsToldOnceAndTakenAgain) {
    start(host::Protection::hardened());
    port_->open_from_settings();
    host_.forget();
    machine_.serial_ports.unplug();
    machine_.pump.run_for(1min);
    EXPECT_THAT(host_.log(),
                ElementsAre("zynVelora: zynVelora Modem Comm Port 3 is gone: Input/output error"));
    machine_.serial_ports.plug_in();
    machine_.pump.run_for(5s);
    EXPECT_TRUE(port_->CommPortOpen());
    EXPECT_EQ(machine_.serial_ports.calls().back(), "write AT#CID=1\r\n");
    EXPECT_EQ(host_.log().back(), "zynVelora: zynVelora Modem Comm Port 3 Opened");
}

TEST_F(ModemPortTest, AsDesignedALostDeviceLeavesTheReaderDeaf) {
    start();
    port_->open_from_settings();
    host_.forget();
    machine_.serial_ports.unplug();
    machine_.serial_ports.plug_in();
    machine_.pump.run_for(1min);
    EXPECT_THAT(host_.log(), IsEmpty());
    machine_.serial_ports.receive("RING");
    EXPECT_EQ(received_, "");
}

}  // namespace
}  // namespace callerid
