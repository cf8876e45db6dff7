#include "udp/client_link.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/instance.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"
#include "udp/datagram.h"

namespace udp {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr std::int32_t kPort = 4550;
const std::string kSubscribe = "\1";
const std::string kUnsubscribe = "\2";

// The link of a house and client programs on other machines.
class ClientLinkTest : public testing::Test {
  protected:
    ClientLinkTest() {
        instance_.attach(host_, &host_);
        instance_.log.attach(&host_);
        link_.InitUDP();
        host_.forget();
    }

    support::UdpPeer& client(std::string_view address, const std::string& request = kSubscribe) {
        support::UdpPeer& peer = machine_.network.udp(address, kPort);
        send(peer, request);
        return peer;
    }

    void send(support::UdpPeer& peer, const std::string& datagram) {
        peer.send(support::MemoryNetwork::kHouse, kPort, datagram);
        machine_.pump.run_for(1ms);
    }

    std::string call(std::string name, std::string number, std::string_view host = "") {
        const std::string result = link_.UDPSendCID(name, number, host);
        machine_.pump.run_for(1ms);
        said_ = name + "|" + number;
        return result;
    }

    std::string command(std::string_view word, std::string_view host) {
        std::string result = link_.UDPSendCommand(word, "on", host);
        machine_.pump.run_for(1ms);
        return result;
    }

    std::vector<std::string> entries() {
        std::vector<std::string> texts;
        for (std::int32_t i = 1; i <= link_.clients().ClientMax(); ++i) {
            texts.push_back(link_.clients().entry(i));
        }
        return texts;
    }

    support::FakeMachine machine_;
    support::MemoryHost host_;
    core::Instance instance_{machine_.platform()};
    ClientLink link_{instance_};
    std::string said_;
};

TEST_F(ClientLinkTest, AClientKeepsItsEntryThroughComingAndGoing) {
    support::UdpPeer& first = client("10.0.0.5");
    send(first, kSubscribe);
    support::UdpPeer& second = client("10.0.0.6");
    EXPECT_THAT(entries(), ElementsAre("10.0.0.5", "10.0.0.6"));
    send(first, kUnsubscribe);
    EXPECT_THAT(entries(), ElementsAre("-10.0.0.5", "10.0.0.6"));
    EXPECT_FALSE(link_.UDPClientAvailable("10.0.0.5"));
    EXPECT_TRUE(link_.UDPClientAvailable("10.0.0.6"));
    send(second, "\7rubbish");
    send(first, kSubscribe + "more");
    EXPECT_THAT(entries(), ElementsAre("10.0.0.5", "10.0.0.6"));
}

TEST_F(ClientLinkTest, EachStartForgetsTheClients) {
    client("10.0.0.5");
    link_.CloseUDP();
    link_.InitUDP();
    EXPECT_THAT(entries(), IsEmpty());
    EXPECT_EQ(machine_.user_store.GetSetting("zynVelora", "Clients", "1", "?"), "");
    EXPECT_THAT(host_.log(),
                ElementsAre("zynVelora: zynVelora - Clearing CID Client Database...",
                            "zynVelora: zynVelora - Initializing I/O... (LocalPort=4550, "
                            "RemotePort=4550)"));
    EXPECT_EQ(machine_.user_store.GetSetting("zynVelora", "Options", "LocalPort", ""), "4550");
}

TEST_F(ClientLinkTest, APortThatIsTakenIsLoggedAndTheHouseGoesOn) {
    ClientLink other(instance_);
    other.InitUDP();
    EXPECT_THAT(host_.log(), Contains(HasSubstr("InitUDP() ")));
    std::string name = "a";
    std::string number = "b";
    EXPECT_EQ(other.UDPSendCID(name, number, ""),
              "Error: No CID Clients Defined. Unable to send data.");
}

TEST_F(ClientLinkTest, ShortCodesOfTheTelephoneNetworkAreSpelledOut) {
    for (const auto& [name, number, said] : {
             std::tuple{"p", "O", "Private Caller|Unknown Number"},
             std::tuple{"O", "p", "Unknown Name|Private Number"},
             std::tuple{"Unknown", "OO", "Unknown|OO"},
         }) {
        call(name, number);
        EXPECT_EQ(said_, said);
    }
}

TEST_F(ClientLinkTest, CallsGoToEntriesThatOccurInTheHost) {
    support::UdpPeer& five = client("10.0.0.5");
    support::UdpPeer& fifty = client("10.0.0.50");
    EXPECT_EQ(call("Anna", "1", "10.0.0.50"), "Send CID data to all defined clients");
    EXPECT_EQ(five.received().size(), 1U) << "10.0.0.5 occurs in 10.0.0.50";
    EXPECT_EQ(fifty.received().size(), 1U);
    call("Anna", "1", "10.0.0.5");
    EXPECT_EQ(five.received().size(), 2U);
    EXPECT_EQ(fifty.received().size(), 1U);
    EXPECT_EQ(five.received().back(), make_datagram(Message::Caller, "Anna", "1"));
    EXPECT_EQ(call("Anna", "1", "elsewhere"), "Send CID data to all defined clients");
}

TEST_F(ClientLinkTest, CommandsGoToAllOrToOneRegisteredClient) {
    EXPECT_EQ(command("Beep", ""), "Error: No CID Clients Defined. Unable to send data.");
    support::UdpPeer& five = client("10.0.0.5");
    support::UdpPeer& six = client("10.0.0.6");
    send(six, kUnsubscribe);
    EXPECT_EQ(command("Beep", "all"), "Sent Command data to all defined clients");
    EXPECT_EQ(command("TopLed", "10.0.0.5"), "Send Command data to all defined clients");
    EXPECT_THAT(five.received(), ElementsAre(make_datagram(Message::Command, "Beep", "on"),
                                             make_datagram(Message::Command, "TopLed", "on")));
    EXPECT_EQ(command("Beep", "10.0.0.6"), "Error: Client is not Registered. Unable to send data.");
    EXPECT_THAT(six.received(), IsEmpty());
    EXPECT_THAT(host_.log(), Contains("zynVelora: 10.0.0.6 is not currently a registered client "
                                      "and unable to send command Beep"));
}

TEST_F(ClientLinkTest, AClearedEntryEndsASendingAtItsPlace) {
    support::UdpPeer& first = client("10.0.0.5");
    client("10.0.0.6");
    support::UdpPeer& last = client("10.0.0.7");
    machine_.user_store.SaveSetting("zynVelora", "Clients", "2", "");
    EXPECT_EQ(call("Anna", "1"), "Send CID data to all defined clients");
    EXPECT_EQ(first.received().size(), 1U);
    EXPECT_THAT(last.received(), IsEmpty());
    EXPECT_THAT(host_.log(), Contains(HasSubstr("UDPSendCID()")));
}

TEST_F(ClientLinkTest, TheSentryServesWhoIsNoUnit) {
    support::UdpPeer& unit = client("10.0.0.21");
    support::UdpPeer& desktop = client("10.0.0.90");
    link_.SendCIDSentry("Anna/home", "555-1234", {"kitchen", "10.0.0.21"});
    machine_.pump.run_for(1ms);
    EXPECT_THAT(unit.received(), IsEmpty());
    EXPECT_THAT(desktop.received(),
                ElementsAre(make_datagram(Message::Caller, "Anna/home", "555-1234")));
}

TEST_F(ClientLinkTest, WhatClientsAskIsLoggedWhileTheFlagIsOn) {
    client("10.0.0.5");
    EXPECT_THAT(host_.log(), IsEmpty());
    link_.log().set_debugging(true);
    client("10.0.0.6");
    client("10.0.0.7", kUnsubscribe);
    client("10.0.0.8", "\3");
    EXPECT_THAT(host_.log(),
                ElementsAre("zynVelora Debug: CID Client Subcribe Request from 10.0.0.6",
                            "zynVelora Debug: CID Client Unsubcribe Request from 10.0.0.7",
                            "zynVelora Debug: Unknown data received from 10.0.0.8"));
    EXPECT_THAT(link_.log().status_box(),
                HasSubstr("~!~zynVelora Debug~!~Unknown data received from 10.0.0.8\r\n"));
    EXPECT_THAT(link_.log().status_box(), Not(HasSubstr("10.0.0.5")));
}

TEST_F(ClientLinkTest, AFloodOfDatagramsLeavesRoomForOtherEvents) {
    support::UdpPeer& peer = machine_.network.udp("10.0.0.66", kPort);
    int ticks = 0;
    const auto timer = machine_.pump.make_timer([&] { ++ticks; });
    timer->set_interval(10ms);
    timer->set_enabled(true);
    for (int step = 0; step < 100; ++step) {
        for (int i = 0; i < 50; ++i) {
            peer.send(support::MemoryNetwork::kHouse, kPort, "\1");
        }
        machine_.pump.run_for(1ms);
    }
    EXPECT_EQ(ticks, 10);
    EXPECT_THAT(entries(), ElementsAre("10.0.0.66"));
}

}  // namespace
}  // namespace udp
