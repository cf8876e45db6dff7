#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "system/house_process.h"

// Units that do not answer, and what the house does about it. A command waits five seconds for its
// answer, which no setting changes.
namespace system_tests {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr auto kSoon = 3s;  // well before the end of a command's time

// The states of power through which the unit goes until it is on again.
std::vector<std::string> power_states(const House& house, const std::string& unit,
                                      std::chrono::milliseconds limit = kPatience) {
    std::vector<std::string> states;
    static_cast<void>(eventually(
        [&] {
            const std::string now = house.state(unit).at("power");
            if (states.empty() || states.back() != now) {
                states.push_back(now);
            }
            return states.size() > 1 && now == "on";
        },
        limit));
    return states;
}

// The power line's messages behind the two of the start, which switches both units' modules on.
std::vector<std::string> switched(House& house) {
    std::vector<std::string> lines = house.log("X10");
    lines.erase(lines.begin(), lines.begin() + 2);
    return lines;
}

TEST(SilentUnit, APowerCycleCutsThePowerBootsTheUnitAndKeepsTheWaitingCommand) {
    House house({"Kitchen", "Hall"});
    house.start();
    house.call({"VeloraTopLed", "Kitchen", "blink"});
    EXPECT_TRUE(house.shows("Kitchen", "top_led", "blink"));

    house.call({"VeloraCyclePower", "Kitchen"});
    EXPECT_TRUE(house.shows("Kitchen", "power", "off", kSoon));
    EXPECT_EQ(house.state("Kitchen").at("top_led"), "off");
    house.call({"VeloraMailLed", "Kitchen", "on"});
    EXPECT_THAT(house.status("Kitchen").at("flags"),
                AllOf(Contains("PowerCycleInProgress"), Contains("PowerWait")));
    EXPECT_THAT(power_states(house, "Kitchen"), ElementsAre("off", "booting", "on"));
    EXPECT_TRUE(house.shows("Kitchen", "mail_led", "on"));
    EXPECT_THAT(switched(house), ElementsAre("A1 off", "A1 on"));
}

TEST(SilentUnit, SixTimeoutsInARowCycleThePowerAndTheUnitAnswersAgain) {
    House house({"Kitchen", "Hall"});
    house.set("CommandRetries", "2");
    house.start();
    house.tell("Kitchen", "silent");
    house.call({"VeloraTopLed", "Kitchen", "on"});
    house.call({"VeloraMailLed", "Kitchen", "on"});
    house.call({"VeloraVolume", "Kitchen", "70"});
    EXPECT_TRUE(eventually([&] { return house.status("Kitchen").at("timeouts") == 1; }));
    house.call({"VeloraTopLed", "", "blink"});
    EXPECT_TRUE(house.shows("Hall", "top_led", "blink", kSoon));

    EXPECT_THAT(power_states(house, "Kitchen", 45s), ElementsAre("on", "off", "booting", "on"));
    house.tell("Kitchen", "normal");
    EXPECT_THAT(switched(house), ElementsAre("A1 off", "A1 on"));
    EXPECT_EQ(house.status("Kitchen").at("timeouts"), 6);

    house.call({"VeloraBacklight", "Kitchen", "off"});
    EXPECT_TRUE(house.shows("Kitchen", "backlight", false));
    EXPECT_TRUE(eventually([&] { return house.status("Kitchen").at("power_cycles") == 0; }));
    EXPECT_EQ(house.state("Kitchen").at("top_led"), "off") << "the cycle forgets what waited";
}

TEST(SilentUnit, AUnitThatDiesWithinAFetchGetsItsNextCommandWhenItIsBack) {
    House house({"Kitchen", "Hall", "Bedroom"});
    house.set("noResponseAction", "0");  // a count of time-outs takes the next command with it
    house.start();
    house.tell("Kitchen", "slow 60000");  // dies before it has answered
    house.tell("Hall", "hang");           // dies within its answer
    house.call({"VeloraTopLed", "", "on"});
    EXPECT_TRUE(house.shows("Hall", "top_led", "on"));
    for (const char* unit : {"Kitchen", "Hall"}) {
        house.call({"VeloraMailLed", unit, "blink"});
        EXPECT_EQ(house.status(unit).at("command"), "led.shtml?t1");
        EXPECT_THAT(house.status(unit).at("flags"), Not(Contains("QueueEmpty")));
        house.unit(unit).kill();
        house.start_unit(unit);
    }
    house.call({"VeloraMailLed", "Bedroom", "blink"});
    EXPECT_TRUE(house.shows("Bedroom", "mail_led", "blink", kSoon));
    for (const char* unit : {"Kitchen", "Hall"}) {
        EXPECT_TRUE(house.shows(unit, "mail_led", "blink")) << unit;
        EXPECT_TRUE(eventually([&] { return house.status(unit).at("queue") == "Queue: 0) "; }));
    }
    EXPECT_THAT(house.requests("Bedroom"), ElementsAre("led.shtml?t1", "led.shtml?m2"));
}

}  // namespace
}  // namespace system_tests
