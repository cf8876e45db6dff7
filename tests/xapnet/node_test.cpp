#include "xapnet/node.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/run_time_error.h"
#include "xap_house.h"

namespace xapnet {
namespace {

using namespace std::chrono_literals;
using support::MemoryNetwork;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr OutgoingCall kBeep{"", "c", "b", "k\1v", "", "00"};

class NodeTest : public testing::Test {
  protected:
    // "10:00:01.000 xap-hbeat.alive" for each heartbeat that another machine hears.
    void trace_heartbeats() {
        garden_.on_datagram = [this](support::UdpPeer&, std::string_view datagram) {
            const ParsedMessage parsed = parse_message(datagram);
            heartbeats_.push_back(house_.pump.time_of_day() + " " + parsed.message->message_class +
                                  " " + port_of(*parsed.message));
        };
    }

    static std::string port_of(const Message& heartbeat) {
        return std::to_string(heartbeat_of(heartbeat)->port);
    }

    XapHouse house_;
    support::UdpPeer& garden_ = house_.program(kXapPort, XapHouse::kGarden);
    std::vector<std::string> heartbeats_;
};

TEST_F(NodeTest, TheFirstOfAMachineIsTheHubThatServesTheOthers) {
    TestNode& hub = house_.start("one");
    TestNode& client = house_.start("two");
    EXPECT_EQ(hub->status().role, NodeRole::Hub);
    EXPECT_EQ(hub->status().port, kXapPort);
    EXPECT_EQ(client->status().role, NodeRole::Client);
    ASSERT_THAT(hub->status().clients, SizeIs(1));
    const std::int32_t port = client->status().port;
    EXPECT_EQ(hub->status().clients[0].port, port);
    EXPECT_EQ(hub->status().clients[0].source, "zyn.zynVelora.two");

    house_.broadcast(garden_, message_text("garden.gate.x"));
    EXPECT_EQ(client->send(kBeep), "");
    EXPECT_EQ(hub->send({"", "c", "b", "", "hall.led", "0E"}), "");
    house_.run_for(1ms);
    EXPECT_THAT(hub.take_heard(), ElementsAre("garden.gate.x c", "zyn.zynVelora.two c"));
    EXPECT_THAT(client.take_heard(),
                ElementsAre("garden.gate.x c", "zyn.zynVelora.one:hall.led c"));
    EXPECT_THAT(garden_.received().back(), HasSubstr("\nuid=FF12340E\n"));
    EXPECT_EQ(client->status().sent, 1U);
    EXPECT_EQ(client->status().echoes, 2U) << "heartbeat and message";

    client->stop();
    house_.run_for(1ms);
    EXPECT_THAT(hub->status().clients, IsEmpty());
    house_.broadcast(garden_, message_text("garden.gate.x"));
    EXPECT_THAT(client.take_heard(), IsEmpty());
    EXPECT_EQ(client->send(kBeep), "The xAP node does not run");
    EXPECT_NO_THROW(house_.program(port)) << "its port is free";
    client->start();
    house_.run_for(1ms);
    hub->stop();
    EXPECT_THAT(hub->status().clients, IsEmpty());
    EXPECT_NO_THROW(house_.program(kXapPort));
}

TEST_F(NodeTest, HearsBroadcastsAndItsHubOnAddressesOfTheirOwn) {
    MemoryNetwork broadcast(house_.network, "10.0.0.255");
    MemoryNetwork loopback(house_.network, "127.0.0.1");
    NodeOptions options = house_.options("one");
    options.broadcast_address = "10.0.0.255";
    const NodeNetworks networks{house_.network, broadcast, loopback};
    TestNode hub(house_.pump, networks, options);
    hub->start();
    options.source = "zyn.zynVelora.two";
    TestNode client(house_.pump, networks, options);
    client->start();
    house_.run_for(1ms);
    garden_.send("10.0.0.255", kXapPort, message_text("garden.gate.x"));
    house_.run_for(1ms);
    EXPECT_THAT(hub.take_heard(), ElementsAre("garden.gate.x c"));
    EXPECT_THAT(client.take_heard(), ElementsAre("garden.gate.x c"));
    hub.kill();
    client->stop();

    house_.program(kXapPort, "10.0.0.255");  // somebody has one of the addresses
    EXPECT_NO_THROW(client->start());
    EXPECT_EQ(client->status().role, NodeRole::Client);
    EXPECT_NO_THROW(house_.program(kXapPort)) << "none is kept";
}

TEST_F(NodeTest, GivesSignsOfLifeFromStartToStop) {
    trace_heartbeats();
    NodeOptions options = house_.options();
    options.process_id = "77";
    TestNode& node = house_.node(options);
    node->start();
    node->start();
    house_.run_for(150s);
    node->stop();
    node->stop();
    house_.run_for(150s);
    EXPECT_THAT(
        heartbeats_,
        ElementsAre("10:00:00.000 xap-hbeat.alive 3639", "10:01:00.000 xap-hbeat.alive 3639",
                    "10:02:00.000 xap-hbeat.alive 3639", "10:02:30.000 xap-hbeat.stopped 3639"));
    EXPECT_EQ(garden_.received().front(),
              "xap-hbeat\n{\nv=12\nhop=1\nuid=FF123400\nclass=xap-hbeat.alive\n"
              "source=zyn.zynVelora.house\ninterval=60\nport=3639\npid=77\n}\n");
    EXPECT_EQ(node->status().sent, 0U);
    EXPECT_EQ(node->status().port, 0);
}

TEST_F(NodeTest, AClientTakesThePlaceOfAHubThatIsGone) {
    TestNode& hub = house_.start("one");
    house_.run_for(2s);
    TestNode& client = house_.start("two");
    const std::int32_t port = client->status().port;
    house_.run_for(30s);
    EXPECT_EQ(client->status().port, port) << "tries in vain change nothing";
    trace_heartbeats();
    hub.kill();
    house_.run_for(4s);
    EXPECT_THAT(heartbeats_, IsEmpty()) << "one that is killed says nothing";
    house_.run_for(70s);
    EXPECT_THAT(heartbeats_, ElementsAre("10:00:37.001 xap-hbeat.alive 3639",
                                         "10:01:37.001 xap-hbeat.alive 3639"));
    EXPECT_EQ(client->status().role, NodeRole::Hub);
    support::UdpPeer& program = house_.program(4000);
    house_.broadcast(program, heartbeat_text("port=4000"));
    house_.broadcast(garden_, message_text("garden.gate.x"));
    EXPECT_EQ(program.received().back(), message_text("garden.gate.x"));
    EXPECT_THAT(client.take_heard(), ElementsAre("garden.gate.x c"));
    EXPECT_NO_THROW(house_.program(port)) << "its own port is free again";
    EXPECT_THAT(client.log(),
                ElementsAre("10:00:02.001 Hears xAP through this machine's hub, on port " +
                                std::to_string(port),
                            "10:00:37.001 Is the xAP hub of this machine, on port 3639"));
}

TEST_F(NodeTest, DeliversWhatOthersSay) {
    TestNode& node = house_.start();
    NodeOptions options = house_.options("monitor");
    options.heartbeats = HeartbeatDelivery::Deliver;
    TestNode& monitor = house_.node(options);
    monitor->start();
    house_.run_for(2s);  // a line for the log each second
    (void)monitor.take_heard();
    EXPECT_EQ(node->status().heartbeats, 1U) << "of the monitor, none of its own";

    struct Case {
        std::string datagram;
        bool is_delivered;
    };

    for (const Case& c : {
             Case{message_text("a.b.c"), true},
             Case{message_text("a.b.c", "10"), true},
             Case{message_text("a.b.c", "11"), false},
             Case{message_text("a.b.c", "many"), false},
             Case{message_text("ZYN.zynvelora.HOUSE"), false},
             Case{message_text("zyn.zynVelora.house:led.x"), false},
             Case{message_text("zyn.zynVelora.house2"), true},
             Case{"junk", false},
             Case{"", false},
             Case{heartbeat_text("interval=60"), false},
         }) {
        house_.broadcast(garden_, c.datagram);
        EXPECT_THAT(node.take_heard(), SizeIs(c.is_delivered ? 1 : 0)) << c.datagram;
    }
    EXPECT_EQ(node->status().delivered, 3U);
    EXPECT_EQ(node->status().refused, 4U);
    EXPECT_EQ(node->status().heartbeats, 2U);
    EXPECT_EQ(node->status().echoes, 3U);
    EXPECT_EQ(monitor.take_heard().back(), "a.b.c xap-hbeat.alive");
    EXPECT_THAT(node.debug_log(),
                ElementsAre(HasSubstr("Refused an xAP message, over more than 10 hops, "
                                      "from a.b.c")));
}

TEST_F(NodeTest, AFloodOfJunkChangesNothingAndLogsLittle) {
    TestNode& node = house_.start();
    for (int i = 0; i < 3000; ++i) {
        house_.broadcast(garden_, "junk " + std::to_string(i));
    }
    EXPECT_THAT(node.debug_log(), SizeIs(3));
    EXPECT_THAT(node.debug_log().back(),
                HasSubstr("line 1: there is no header block, from 10.0.0.9 (999 more were left "
                          "out before)"));
    EXPECT_EQ(node->status().refused, 3000U);
    EXPECT_THAT(node.take_heard(), IsEmpty());
    EXPECT_THAT(node.log(), SizeIs(1));
    house_.broadcast(garden_, message_text("a.b.c"));
    EXPECT_THAT(node.take_heard(), SizeIs(1));
}

TEST_F(NodeTest, AMessageThatIsTooLongDoesNotLeave) {
    TestNode& node = house_.start();
    const std::size_t before = garden_.received().size();
    const std::string data = "k\1" + std::string(kLongestSent, 'x');
    EXPECT_THAT(node->send({"", "c", "b", data, "", "00"}), HasSubstr("is longer than 1400"));
    house_.run_for(1ms);
    EXPECT_THAT(garden_.received(), SizeIs(before));
    EXPECT_EQ(node->status().sent, 0U);
}

TEST_F(NodeTest, AllMayChangeWhileAMessageIsTaken) {
    TestNode& hub = house_.start("one");
    TestNode& client = house_.start("two");
    client.on_heard = [&] {
        hub.kill();
        house_.pump.run_until([] { return false; }, 6s);
        EXPECT_EQ(client->status().role, NodeRole::Hub);
        house_.broadcast(garden_, message_text("garden.gate.y"));
        client->stop();
        throw automation::RunTimeError(automation::ErrorNumber::TypeMismatch);
    };
    house_.broadcast(garden_, message_text("garden.gate.x"));
    EXPECT_THAT(client.take_heard(), ElementsAre("garden.gate.x c", "garden.gate.y c"));
    EXPECT_THAT(client.log().back(), HasSubstr("An xAP message was not taken: Type mismatch"));
    client->start();
    house_.broadcast(garden_, message_text("garden.gate.z"));
    EXPECT_THAT(client.take_heard(), ElementsAre("garden.gate.z c"));
}

TEST_F(NodeTest, AnAddressThatCannotBeReachedIsToldAndLogged) {
    NodeOptions options = house_.options();
    options.broadcast_address = "nowhere";
    TestNode& node = house_.node(options);
    node->start();
    EXPECT_EQ(node->send(kBeep), "Unknown host: nowhere");
    EXPECT_THAT(node.log().back(), HasSubstr("The xAP heartbeat was not sent: Unknown host"));
    EXPECT_EQ(node->status().sent, 0U);
}

}  // namespace
}  // namespace xapnet
