#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/house.h"

namespace appliance {
namespace {

using namespace std::chrono_literals;
using support::House;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Sleep, ActionsSetStateAndShowIt) {
    const struct {
        const char* before;
        const char* action;
        const char* sleep;
        bool is_awake;
        const char* awake_device;
        const char* backlight_device;
    } rows[] = {
        {"awake", "sleep", "sleep", false, "Sleeping", "Backlight Off"},
        {"sleep", "AWAKE", "awake", true, "Awake", "Backlight On"},
        {"sleep", "always awake", "always awake", true, "Always Awake", "Backlight On"},
        {"sleep", "power cycle", "power cycle", true, "Power Cycle", "Backlight On"},
        {"awake", "toggle", "sleep", false, "Sleeping", "Backlight On"},
        {"sleep", "toggle", "awake", true, "Awake", "Backlight On"},
        {"always awake", "toggle", "sleep", false, "Sleeping", "Backlight On"},
        {"always awake", "doze", "always awake", true, "Always Awake", "Backlight Off"},
        {"sleep", "", "sleep", false, "Sleeping", "Backlight Off"},
    };

    for (const auto& row : rows) {
        House house({"Hall"});
        Velora& unit = house.velora("hall");
        unit.set_Sleep(row.before);
        unit.set_Sleep(row.action);
        EXPECT_EQ(unit.Sleep(), row.sleep) << row.before << "+" << row.action;
        EXPECT_EQ(unit.SleepStatus(), row.is_awake) << row.before << "+" << row.action;
        EXPECT_EQ(house.shown("[2"), row.awake_device) << row.before << "+" << row.action;
        EXPECT_EQ(house.shown("[3"), row.backlight_device) << row.before << "+" << row.action;
    }
}

TEST(Sleep, UnknownActionSendsNothing) {
    House house({"Hall"});
    EXPECT_NE(house.velora("hall").SetSleep("doze", ""), "");
    EXPECT_THAT(house.trace(), IsEmpty());
    EXPECT_EQ(house.velora("hall").queue().state().QueueEmpty, true);
}

TEST(Sleep, OfAPowerCycleIsDoneByTheSwitch) {
    House house;
    house.add_unit("Hall", {.power = "A1"});
    house.open();
    house.velora("hall").set_Sleep("power cycle");
    EXPECT_THAT(house.trace_without_time(), ElementsAre("X10 A1 off"));
    EXPECT_TRUE(house.velora("hall").PowerCycleInProgress());
}

TEST(SleepAnswer, SetsStateAndShowsAChange) {
    const struct {
        const char* before;
        const char* body;
        const char* sleep;
        bool is_awake;
        const char* awake_device;  // "" unchanged
        const char* backlight_device;
    } rows[] = {
        {"awake", "1", "awake", true, "", ""},
        {"awake", "  1 ", "awake", true, "", ""},
        {"awake", "0", "sleep", false, "Sleeping", "Backlight Off"},
        {"sleep", "1", "awake", true, "Awake", "Backlight On"},
        {"sleep", "0", "sleep", false, "", ""},
        {"always awake", "1", "always awake", true, "", ""},
        {"always awake", "0", "sleep", false, "Sleeping", "Backlight Off"},
        {"awake", "", "sleep", false, "Sleeping", "Backlight Off"},
        {"awake", "11", "sleep", false, "Sleeping", "Backlight Off"},
        {"awake", "404 Not Found", "sleep", false, "Sleeping", "Backlight Off"},
        {"awake", "Action cancelled", "sleep", false, "Sleeping", "Backlight Off"},
    };

    for (const auto& row : rows) {
        House house({"Hall"});
        Velora& unit = house.velora("hall");
        unit.set_Sleep(row.before);
        house.run_for(1s);
        house.host().SetDeviceString("[2", "");
        house.host().SetDeviceString("[3", "");
        house.unit("hall").shows("screen.shtml?p", row.body);
        unit.RefreshSleepStatus("");
        house.run_for(1s);
        EXPECT_EQ(unit.Sleep(), row.sleep) << row.body;
        EXPECT_EQ(unit.SleepStatus(), row.is_awake) << row.body;
        EXPECT_EQ(house.shown("[2"), row.awake_device) << row.body;
        EXPECT_EQ(house.shown("[3"), row.backlight_device) << row.body;
    }
}

TEST(SleepAnswer, IsASignOfLifeUnlessItWasCancelled) {
    const struct {
        const char* body;
        std::int16_t count;
    } rows[] = {{"1", 0},
                {"0", 0},
                {"", 0},
                {"Action cancelled", 1},
                {"Action cancelled by the user", 1},
                {"action cancelled", 0},
                {" Action cancelled", 0}};

    for (const auto& row : rows) {
        House house;
        house.add_unit("Hall", {.power = "A1"});
        house.open();
        house.settings().noResponseAction = true;
        house.unit("hall").goes_silent();
        house.velora("hall").SetTopLED("on", "");
        house.run_for(5s);
        ASSERT_EQ(house.velora("hall").queue().state().TimeoutCount, 1);
        house.unit("hall").answers();
        house.velora("hall").SetTopLED("off", "");  // any other page is none
        house.run_for(1s);
        ASSERT_EQ(house.velora("hall").queue().state().TimeoutCount, 1);
        house.unit("hall").shows("screen.shtml?p", row.body);
        house.velora("hall").RefreshSleepStatus("");
        house.run_for(1s);
        EXPECT_EQ(house.velora("hall").queue().state().TimeoutCount, row.count) << row.body;
    }
}

TEST(SleepAnswer, IsReadOnlyForItsOwnCommand) {
    House house({"Hall"});
    house.unit("hall").shows("led.shtml?t1", "0");
    house.velora("hall").SetTopLED("on", "");
    house.run_for(1s);
    EXPECT_EQ(house.velora("hall").Sleep(), "awake");
}

TEST(Awake, AsksTheUnitAndWaitsForItsAnswer) {
    const struct {
        const char* body;
        bool is_awake;
        const char* awake_device;
    } rows[] = {{"1", true, "Awake"}, {"0", false, "Sleeping"}};

    for (const auto& row : rows) {
        House house({"Hall"});
        house.unit("hall").answers(1s);
        house.unit("hall").shows("screen.shtml?p", row.body);
        EXPECT_EQ(house.velora("hall").Awake(), row.is_awake);
        EXPECT_EQ(house.machine().pump.time_of_day(), "10:00:01.100");
        EXPECT_EQ(house.shown("[2"), row.awake_device);
        EXPECT_EQ(house.velora("hall").Asleep(), !row.is_awake);
    }
}

TEST(Awake, IsTrueOfASilentUnitAfterFiveSeconds) {
    House house({"Hall"});
    house.unit("hall").goes_silent();
    EXPECT_TRUE(house.velora("hall").Awake());
    EXPECT_EQ(house.machine().pump.time_of_day(), "10:00:05.000");
    EXPECT_EQ(house.shown("[2"), "");
}

TEST(Awake, OnTopOfAnotherWaitOfTheUnitIsAnErrorAndReadsFalse) {
    House house({"Hall"});
    Velora& unit = house.velora("hall");
    house.unit("hall").answers(500ms);
    house.unit("hall").shows("screen.shtml?p", "1");
    bool inner = true;
    house.machine().pump.call_later(100ms, [&] { inner = unit.Awake(); });
    EXPECT_TRUE(unit.Awake());
    EXPECT_FALSE(inner);
    EXPECT_THAT(house.log(), ElementsAre(testing::MatchesRegex(
                                 "zynVelora hall: Velora AwakeStatus  Line [0-9]+ This function is "
                                 "not reentrant.*")));
}

TEST(SleepDebugLines, TellTagAndAnswer) {
    House house({"Hall"});
    house.unit("hall").shows("screen.shtml?p", " 1 ");
    house.instance().log.set_debug_log(true);
    house.velora("hall").RefreshSleepStatus("my tag");
    house.run_for(1s);
    EXPECT_THAT(house.log(), testing::Contains("zynVelora Debug hall: sleep tag=my tag"));
    EXPECT_THAT(house.log(), testing::Contains("zynVelora Debug hall: Sleep Result Body  1 "));
}

}  // namespace
}  // namespace appliance
