#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "system/house_process.h"

// The devices of the house, from the settings to the unit on the wall and back.
namespace system_tests {
namespace {

using testing::HasSubstr;
using testing::Not;

void wake_on_motion(House& house) {
    house.set("AwakenOnMotion", "1");
}

TEST(Devices, EachLineOfTheSettingsGetsABlockThatIsWrittenBack) {
    House house({"Kitchen", "Hall", "Bedroom"});
    house.start();
    // "[" is written as "~1".
    EXPECT_THAT(house.settings(), HasSubstr("=\"Kitchen,~11,A1,B1,0,False,\""));
    EXPECT_THAT(house.settings(), HasSubstr("=\"Hall,~111,A2,B2,0,False,\""));
    EXPECT_THAT(house.settings(), HasSubstr("=\"Bedroom,~121,A3,B3,0,False,\""));
    const std::string table = house.told({"devices"});
    EXPECT_THAT(table, HasSubstr("\n[1    Velora Display           kitchen "));
    EXPECT_THAT(table, HasSubstr("\n[30   Velora Reserved          bedroom "));
}

TEST(Devices, AValueReachesTheUnitAndItsStateTheDevice) {
    House house({"Kitchen", "Hall"});
    house.start();
    house.told({"device", "[14", "turn on top led"});
    EXPECT_TRUE(house.shows("Hall", "top_led", "on"));
    const Json device = house.device("[14");
    EXPECT_EQ(device.at("value"), 1);
    EXPECT_EQ(device.at("text"), "Top LED On");
    EXPECT_EQ(device.at("string"),
              "<table><td><img alt='Top LED' src='/images/Velora/TopLEDOn.gif' '>"
              "<img alt=' ' src='/images/Velora/blank3.gif'></td><td valign='middle' "
              "align='left'><font color='white'>Top LED On</font></td></table>");
    house.told({"press", "Blink Top LED @ hall Velora"});
    EXPECT_TRUE(house.shows("Hall", "top_led", "blink"));
    EXPECT_EQ(house.state("Kitchen").at("top_led"), "off");
}

TEST(Devices, WhatIsWrongChangesNothing) {
    House house({"Kitchen"});
    house.start();
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{"device", "[44", "1"},
                                               {"device", "[4", "3"},
                                               {"device", "[4", "-1"},
                                               {"device", "[4", "40000"},
                                               {"device", "[4", ""},
                                               {"device", "[10", "40000"},
                                               {"x10", "Q1", "on"},
                                               {"x10", "A1", "dim"},
                                               {"press", "nothing"},
                                               {"menu", "nothing"}}) {
        const Outcome outcome = house.ask(words);
        EXPECT_EQ(outcome.exit_code, 1) << testing::PrintToString(words);
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, testing::StartsWith("zynvelora: error ")) << outcome.err;
    }
    EXPECT_EQ(house.device("[4").at("value"), 0);
    EXPECT_EQ(house.device("[4").at("last_change"), Json());
    EXPECT_TRUE(house.requests("Kitchen").empty());
}

TEST(Devices, MotionOnTheLineWakesASleepingUnit) {
    House house({"Kitchen", "Hall"});
    wake_on_motion(house);
    house.start();
    house.told({"device", "[12", "Put to Sleep"});
    EXPECT_TRUE(house.shows("Hall", "awake", false));
    house.told({"x10", "B1", "on"});
    house.told({"x10", "B2", "off"});
    EXPECT_FALSE(house.state("Hall").at("awake"));
    house.told({"x10", "B2", "on"});
    EXPECT_TRUE(house.shows("Hall", "awake", true));
    EXPECT_EQ(house.device("[12").at("text"), "Awake");
}

TEST(Devices, ADeletedLinesDevicesVanishAtTheReload) {
    House house({"Kitchen", "Hall", "Bedroom"});
    house.start();
    std::string text = house.settings();
    const auto at = text.rfind('\n', text.find("\"Hall,")) + 1;
    text.erase(at, text.find('\n', at) + 1 - at);
    house.replace_settings(text);
    house.call({"VeloraReloadSettings"});
    const std::string table = house.told({"devices"});
    EXPECT_THAT(table, Not(HasSubstr(" hall ")));
    EXPECT_THAT(table, HasSubstr("\n[1 "));
    EXPECT_THAT(table, HasSubstr("\n[21 "));
    EXPECT_EQ(house.ask({"device", "[14"}).exit_code, 1);
}

TEST(Devices, AMenuEntryReachesAllUnits) {
    House house({"Kitchen"});
    house.start();
    EXPECT_THAT(house.told({"menu"}), HasSubstr("\nDisable Plugin\n"));
    house.told({"menu", "disable plugin"});
    EXPECT_EQ(house.told({"call", "VeloraPluginDisableStatus", "kitchen"}), "True\n");
    house.told({"menu", "Enable Plugin"});
    EXPECT_EQ(house.told({"call", "VeloraPluginDisableStatus", "kitchen"}), "False\n");
}

TEST(Devices, AMusicPlayerGetsItsText) {
    House house({"Kitchen", "Hall"});
    house.start();
    house.call({"VeloraPhjuke", "Hall", "play; all"});
    EXPECT_TRUE(
        eventually([&] { return house.state("Hall").at("jukebox").at("last") == "play; all"; }));
    EXPECT_EQ(house.state("Kitchen").at("jukebox").at("commands"), 0);
}

}  // namespace
}  // namespace system_tests
