#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include "system/house_process.h"
#include "system/web_client.h"

// How a daemon ends, and how the next one begins.
namespace system_tests {
namespace {

using namespace std::chrono_literals;
using testing::SizeIs;

constexpr auto kStopTime = 2s;

// The first unit's wait is taken from its queue and turns the pump within its command; the second
// one's stands on top of it.
TEST(Stop, ASignalEndsWaitsWithinWaits) {
    for (const int signal : {SIGTERM, SIGINT}) {
        House house({"Kitchen", "Hall", "Bedroom"});
        house.start();
        for (const char* unit : {"Kitchen", "Hall"}) {
            house.tell(unit, "slow 2500");  // so that the wait is queued
            house.call({"VeloraTopLed", unit, "on"});
            house.call({"VeloraWaitsecs", unit, "60"});
            EXPECT_TRUE(eventually([&] {
                return house.status(unit).at("command") == "waitsecs 60";
            })) << house.status(unit);
        }
        house.call({"VeloraWaitsecs", "Bedroom", "60"});
        house.daemon().send_signal(signal);
        EXPECT_EQ(house.daemon().wait(kStopTime), 0);
        EXPECT_FALSE(std::filesystem::exists(house.home() / "control.sock"));
        EXPECT_FALSE(WebClient(house.server_port()).is_connected());
    }
}

TEST(Stop, AfterAKillTheNextStartFindsTheHomeAsItWas) {
    House house({"Kitchen"});
    house.start();
    house.call({"VeloraSpeak", "Kitchen", "Hello"});
    const std::vector<std::string> before = house.log("X10");
    house.daemon().kill();
    EXPECT_TRUE(std::filesystem::exists(house.home() / "control.sock"));
    house.start_daemon();
    EXPECT_THAT(house.log("X10"), SizeIs(before.size() + 1));
    house.call({"VeloraTopLed", "Kitchen", "on"});
    EXPECT_TRUE(house.shows("Kitchen", "top_led", "on"));
}

}  // namespace
}  // namespace system_tests
