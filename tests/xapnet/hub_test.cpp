#include "xapnet/hub.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/virtual_pump.h"
#include "xap_house.h"

namespace xapnet {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::string_view kOwnAddress = "10.0.0.2";

class HubTest : public testing::Test {
  protected:
    void take(const std::string& datagram, std::string_view from = kOwnAddress) {
        relayed_.clear();
        const ParsedMessage parsed = parse_message(datagram);
        hub_.take(datagram, from, parsed.message ? &*parsed.message : nullptr);
    }

    // Ports that a datagram goes to now.
    std::vector<std::int32_t> served() {
        take("junk");
        return relayed_;
    }

    support::VirtualPump pump_;
    std::vector<std::string> lines_;
    RateLimitedLog log_{pump_, LogLevel::Debug, [this](LogLevel /*level*/, std::string_view text) {
                            lines_.emplace_back(text);
                        }};
    std::vector<std::int32_t> relayed_;
    std::string relayed_datagram_;
    Hub hub_{pump_, log_, kXapPort, std::string(kOwnAddress),
             [this](std::string_view datagram, std::int32_t port) {
                 relayed_datagram_ = datagram;
                 relayed_.push_back(port);
             }};
};

TEST_F(HubTest, RegistersProgramsOfItsOwnMachineByTheirPort) {
    struct Case {
        std::string datagram;
        std::string_view from;
        bool is_registered;
    };

    for (const Case& c : {
             Case{heartbeat_text("interval=60\nport=4000"), kOwnAddress, true},
             Case{heartbeat_text("PORT=4000"), "127.0.0.1", true},
             Case{heartbeat_text("port=4000"), "127.9.9.9", true},
             Case{heartbeat_text("port=4000"), "10.0.0.9", false},
             Case{heartbeat_text("port=4000"), "10.0.0.22", false},
             Case{heartbeat_text("port=4000", "ill"), kOwnAddress, false},
             Case{heartbeat_text("interval=60"), kOwnAddress, false},
             Case{heartbeat_text("port=3639"), kOwnAddress, false},
             Case{heartbeat_text("port=0"), kOwnAddress, false},
             Case{heartbeat_text("port=65536"), kOwnAddress, false},
             Case{message_text("a.b.c"), kOwnAddress, false},
         }) {
        take(c.datagram, c.from);
        EXPECT_EQ(hub_.clients().size(), c.is_registered ? 1U : 0U) << c.datagram << c.from;
        take(heartbeat_text("port=4000", "stopped"));
    }
}

TEST_F(HubTest, AProgramThatStopsIsServedNoMore) {
    for (const std::string state : {"stopped", "stop"}) {
        take(heartbeat_text("port=4000"));
        take(heartbeat_text("port=4001"));
        EXPECT_THAT(relayed_, ElementsAre(4000, 4001)) << "its own heartbeat goes back to it";
        take(heartbeat_text("port=4000", state), "10.0.0.9");
        EXPECT_THAT(served(), ElementsAre(4000, 4001)) << "said by another machine";
        take(heartbeat_text("port=4000", state));
        EXPECT_THAT(relayed_, ElementsAre(4001));
    }
}

TEST_F(HubTest, AProgramIsDroppedAfterTwoHeartbeatsThatDoNotCome) {
    struct Case {
        std::string interval;
        std::chrono::seconds served_for;
    };

    for (const Case& c : {
             Case{"interval=60\n", 125s},
             Case{"interval=10\n", 25s},
             Case{"interval=3600\n", 7205s},
             Case{"", 125s},
             Case{"interval=0\n", 125s},
             Case{"interval=999999999\n", 125s},
         }) {
        take(heartbeat_text(c.interval + "port=4000"));
        pump_.jump(c.served_for / 2);
        take(heartbeat_text(c.interval + "port=4000"));
        pump_.jump(c.served_for - 1ms);
        EXPECT_THAT(served(), ElementsAre(4000)) << c.interval;
        pump_.jump(1ms);
        EXPECT_THAT(hub_.clients(), IsEmpty()) << c.interval;
        EXPECT_THAT(served(), IsEmpty()) << c.interval;
    }
}

TEST_F(HubTest, AllBytesGoOnAsTheyCame) {
    take(heartbeat_text("port=4000"));
    const std::string bytes = std::string(60'000, '\xFF') + '\0';
    take(bytes, "10.0.0.9");
    EXPECT_EQ(relayed_datagram_, bytes);
    EXPECT_EQ(hub_.relayed(), 2U);
}

TEST_F(HubTest, ServesABoundedNumberOfPrograms) {
    for (int port = 4000; port < 4300; ++port) {
        take(heartbeat_text("port=" + std::to_string(port)));
    }
    EXPECT_THAT(served(), SizeIs(200));
    EXPECT_THAT(lines_, ElementsAre("The xAP hub serves 200 programs and takes no more: a.b.c"));
    take(heartbeat_text("port=4000"));
    take(heartbeat_text("port=4007", "stopped"));
    take(heartbeat_text("port=4250"));
    EXPECT_THAT(served(), SizeIs(200));
    EXPECT_EQ(relayed_.back(), 4250);
    pump_.jump(100s);
    take(heartbeat_text("port=4001"));
    pump_.jump(30s);
    EXPECT_THAT(served(), ElementsAre(4001)) << "one that is there goes on though all are taken";
}

}  // namespace
}  // namespace xapnet
