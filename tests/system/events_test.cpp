#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "system/house_process.h"

// The house's events from a terminal: what they hear, what they do, and how long they last.
namespace system_tests {
namespace {

using testing::Contains;
using testing::HasSubstr;

TEST(Events, AnEventHearsTheLineAndSetsDevicesUntilItIsDisabled) {
    House house({"Kitchen"});
    house.start();
    house.told({"event", "add", "dark", "--when", "x10 C5 on", "--do", "set [4 = Blink Top LED",
                "--do", "press Turn On Mail LED @ kitchen Velora"});
    house.told({"x10", "C5", "off"});
    house.told({"x10", "C5", "on"});
    EXPECT_TRUE(house.shows("Kitchen", "top_led", "blink"));
    EXPECT_TRUE(house.shows("Kitchen", "mail_led", "on"));

    house.told({"event", "disable", "Dark"});
    house.told({"device", "[4", "0"});
    EXPECT_TRUE(house.shows("Kitchen", "top_led", "off"));
    house.told({"x10", "C5", "on"});
    house.daemon().stop();
    house.start_daemon();
    const Json event = Json::parse(house.told({"events", "--json"})).at(0);
    EXPECT_EQ(event.at("runs"), 1);
    EXPECT_EQ(event.at("enabled"), false);
    house.told({"event", "run", "dark"});
    EXPECT_TRUE(house.shows("Kitchen", "top_led", "blink"));
    house.told({"event", "remove", "dark"});
    EXPECT_EQ(house.told({"events"}), "no events\n");
}

TEST(Events, AnActionOfThePluginGoesToItsUnit) {
    House house({"Kitchen"});
    house.start();
    house.told({"event", "add", "dusk", "--when", "at 17:30", "--do",
                "action Velora\\2\\2[1-kitchen\\2Turn On Top LED"});
    house.told({"event", "run", "dusk"});
    EXPECT_TRUE(house.shows("Kitchen", "top_led", "on"));
}

TEST(Events, WhatIsWrongMakesNoEvent) {
    House house({"Kitchen"});
    house.start();
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"event", "add", "a", "--when", "at 25:00", "--do", "press x"},
             {"event", "add", "a", "--when", "now", "--do", "press x"},
             {"event", "add", "a", "--when", "at 17:30", "--do", "dance"},
             {"event", "add", "a", "--when", "at 17:30", "--do", "press x", "--do", "set [4"},
             {"event", "add", "", "--when", "at 17:30", "--do", "press x"},
             {"event", "run", "a"},
             {"event", "remove", "a"}}) {
        const Outcome outcome = house.ask(words);
        EXPECT_EQ(outcome.exit_code, 1) << testing::PrintToString(words);
        EXPECT_THAT(outcome.err, HasSubstr("zynvelora: error ")) << testing::PrintToString(words);
    }
    EXPECT_EQ(house.ask({"event", "add", "a", "--when", "at 17:30"}).exit_code, 2);
    EXPECT_EQ(house.told({"events"}), "no events\n");
}

TEST(Events, AnActionThatFailsIsALineInTheLogAndTheNextOneFollows) {
    House house({"Kitchen"});
    house.start();
    house.told({"event", "add", "dusk", "--when", "at 17:30", "--do", "set [44 = 1", "--do",
                "set [4 = 1"});
    house.told({"event", "run", "dusk"});
    EXPECT_TRUE(house.shows("Kitchen", "top_led", "on"));
    EXPECT_THAT(house.log("Event"), Contains(HasSubstr("there is no device '[44'")));
}

}  // namespace
}  // namespace system_tests
