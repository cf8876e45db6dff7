#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/house.h"

// A unit's life, its addresses and devices, and the pages that it is sent.
namespace appliance {
namespace {

using namespace std::chrono_literals;
using devices::SubDevice;
using support::House;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(NewUnit, HasTheStateOfAUnitThatWasJustSwitchedOn) {
    House house({"Hall"});
    const Velora& unit = house.velora("hall");
    EXPECT_EQ(unit.Sleep(), "awake");
    EXPECT_TRUE(unit.SleepStatus());
    EXPECT_EQ(unit.Backlight(), "Backlight On");
    EXPECT_EQ(unit.TopLED(), "off");
    EXPECT_EQ(unit.MailLED(), "off");
    EXPECT_EQ(unit.Sounds(), 0);
    EXPECT_EQ(unit.SoundsVolume(), 50);
    EXPECT_EQ(unit.Volume(), -1);
    EXPECT_TRUE(unit.BrowserFullScreen());
    EXPECT_FALSE(unit.Slideshow());
    EXPECT_EQ(unit.SlideshowTime(), house.machine().pump.now() - 1h);
    EXPECT_TRUE(unit.queue().has_command_timer());
}

TEST(NewUnit, TellsItsMakingWhileDebugIsOn) {
    House house;
    house.instance().log.set_debug_log(true);
    house.add_unit("Hall");
    house.fleet().DefineVeloras();
    std::vector<std::string> lines;
    for (const std::string& line : house.log()) {
        if (line.find("Initialize") != std::string::npos || line.find("Get") != std::string::npos) {
            lines.push_back(line);
        }
    }
    EXPECT_THAT(lines,
                ElementsAre("zynVelora Debug: Initialize Velora Class Objects - Timer",
                            "zynVelora Debug: GetTimer(0)", "zynVelora Debug: GetIETimer(0)",
                            "zynVelora Debug: Initialize Velora Class Objects - IE",
                            "zynVelora Debug: Initialize Velora Class Objects -Dispatch",
                            "zynVelora Debug: Initialize Velora Class with  Timers of Type Timer, "
                            "Timer"));
}

TEST(NewUnit, WithoutAPageFetchObjectIsLoggedAndFailsAtEachFetch) {
    House house;
    house.add_unit("Hall");
    house.machine().units.set_unavailable(true);
    house.fleet().DefineVeloras();
    EXPECT_THAT(house.log(), ElementsAre(StartsWith("zynVelora Velora: Velora Initialize  Line ")));
    house.velora("hall").SetTopLED("on", "");
    EXPECT_THAT(house.log().back(), StartsWith("zynVelora hall: Velora SendTheCommand  Line "));
}

TEST(DeviceCodes, FollowTheBaseWhenItHasANumber) {
    House house({"Hall"});
    Velora& unit = house.velora("hall");

    const struct {
        const char* base;
        const char* display;
        const char* queue;
    } rows[] = {{"[1", "[1", "[10"},   {"B", "[1", "[10"},   {"Bx1", "[1", "[10"},
                {"]41", "]41", "]50"}, {"[7 ", "[7", "[16"}, {"", "", ""},
                {"[x", "", ""}};

    for (const auto& row : rows) {
        unit.set_DeviceCodeBase(row.base);
        EXPECT_EQ(unit.DeviceCodeBase(), row.base);
        EXPECT_EQ(unit.device_code(SubDevice::Display), row.display) << row.base;
        EXPECT_EQ(unit.device_code(SubDevice::Reserved), row.queue) << row.base;
    }
}

TEST(MotionOffMinutes, EndAt99999) {
    House house({"Hall"});
    Velora& unit = house.velora("hall");
    for (const auto& [set, read] : {std::pair{0, 0}, {99999, 99999}, {100000, 99999}, {-1, -1}}) {
        unit.set_MotionOffMinutes(set);
        EXPECT_EQ(unit.MotionOffMinutes(), read);
    }
}

TEST(Slideshow, IsShownOnlyByUnitsWithAGroup) {
    House house({"Hall"});
    Velora& unit = house.velora("hall");
    unit.set_Slideshow(true);
    unit.set_EnableSlideshow(2);
    EXPECT_FALSE(unit.Slideshow());
    EXPECT_EQ(unit.SlideGroup(), 2);
    unit.set_Slideshow(true);
    EXPECT_TRUE(unit.Slideshow());
    unit.set_EnableSlideshow(0);
    EXPECT_FALSE(unit.Slideshow());
    unit.set_Slideshow(false);  // changes nothing
    unit.set_EnableSlideshow(1);
    EXPECT_TRUE(unit.Slideshow());
}

TEST(PushedPage, WakesTheUnitAndShowsItselfAndTheButtons) {
    House house({"Hall"});
    Velora& unit = house.velora("hall");
    house.unit("hall").goes_silent();
    unit.PushPage("news.htm", "");
    EXPECT_THAT(house.trace_without_time(), ElementsAre("hall GET /screen.shtml?1"));
    EXPECT_THAT(unit.queue().waiting_commands(),
                ElementsAre("gotoURL.shtml?M=GOTO_URL&S=http://10.0.0.2:8080/news.htm"));
    EXPECT_EQ(house.host().DeviceString("[1"), "news.htm");
    EXPECT_EQ(house.shown("[6"), "Browser Nav Buttons Showing");
    EXPECT_EQ(unit.Display(), "news.htm");
    EXPECT_FALSE(unit.BrowserFullScreen());
    EXPECT_THAT(house.announced(), ElementsAre("[2", "[3", "[6", "[1"));
}

TEST(PushedPage, LeavesAUnitThatIsAlwaysAwakeAsItIs) {
    House house({"Hall"});
    Velora& unit = house.velora("hall");
    unit.set_Sleep("always awake");
    house.run_for(1s);
    house.clear_trace();
    unit.PushIISPage("example.com/a?b", "");
    EXPECT_THAT(house.trace_without_time(),
                ElementsAre("hall GET /gotoURL.shtml?M=GOTO_URL&S=http://example.com/a?b"));
    EXPECT_EQ(unit.queue().state().CurrentTimeout, 20000);
    EXPECT_EQ(unit.Display(), "example.com/a?b");
}

TEST(PushedPage, EndsTheSlideshowUnlessItIsTheSlideshowOrForeign) {
    const struct {
        std::function<void(Velora&)> push;
        bool shows;
    } rows[] = {
        {[](Velora& u) { u.PushPage("news.htm", ""); }, false},
        {[](Velora& u) { u.PushPage("veloraslideshow.asp", ""); }, false},
        {[](Velora& u) { u.PushPage("VeloraSlideshow.asp", ""); }, true},
        {[](Velora& u) { u.PushIISPage("example.com", ""); }, true},
    };

    for (const auto& row : rows) {
        House house;
        house.add_unit("Hall", {.slideshow = 1});
        house.open();
        house.velora("hall").set_Slideshow(true);
        row.push(house.velora("hall"));
        EXPECT_EQ(house.velora("hall").Slideshow(), row.shows);
    }
}

TEST(FullScreenPage, HidesTheButtonsAfterThePause) {
    House house({"Hall"});
    house.velora("hall").SendPushFullscreen("news.htm", "");
    house.run_for(20s);
    EXPECT_THAT(house.trace(), ElementsAre("10:00:00.000 hall GET /screen.shtml?1",
                                           "10:00:00.050 hall GET /gotoURL.shtml?M=GOTO_URL&S="
                                           "http://10.0.0.2:8080/news.htm",
                                           "10:00:05.100 hall GET /cgi-bin/firef4"));
    EXPECT_TRUE(house.velora("hall").BrowserFullScreen());
}

TEST(ShowSlideshow, NeedsAGroupAndAnEnabledUnit) {
    House without({"Hall"});
    EXPECT_EQ(without.velora("hall").ShowSlideshow(""), "");
    EXPECT_THAT(without.trace(), IsEmpty());

    House house;
    house.add_unit("Hall", {.slideshow = 1});
    house.open();
    EXPECT_NE(house.velora("hall").ShowSlideshow(""), "");
    EXPECT_TRUE(house.velora("hall").Slideshow());
    EXPECT_EQ(house.velora("hall").Display(), "VeloraSlideshow.asp");

    house.velora("hall").set_Slideshow(false);
    house.velora("hall").set_DisablePlugin(true);
    EXPECT_EQ(house.velora("hall").ShowSlideshow(""), "");
    EXPECT_THAT(house.log(), ElementsAre(testing::MatchesRegex(
                                 "zynVelora hall: Velora ShowSlideshow  Line [0-9]+ Type "
                                 "mismatch")));
    EXPECT_TRUE(house.velora("hall").Slideshow());  // as far as the routine had got
}

TEST(Sync, HandsTheHostsValuesDownToAUnitWithPower) {
    const struct {
        const char* power;
        const char* command;
        bool acts;
    } rows[] = {{"", "", true}, {"A1", "", false}, {"A1", "off", false}, {"A1", "on", true}};

    for (const auto& row : rows) {
        House house;
        house.add_unit("Hall", {.power = row.power});
        house.open();
        if (*row.command != '\0') {
            house.host().ExecX10("A1", row.command);
        }
        for (const auto& [code, value] : {std::pair{"[2", 2},
                                          {"[4", 1},
                                          {"[5", 2},
                                          {"[6", 0},
                                          {"[7", 5},
                                          {"[8", 3},
                                          {"[9", 4}}) {
            house.host().SetDeviceValue(code, value);
        }
        house.velora("hall").SyncWithHomeseer();
        if (row.acts) {
            EXPECT_THAT(house.device_commands(),
                        ElementsAre("[,2,19,2", "[,4,19,1", "[,5,19,2", "[,8,19,3", "[,9,19,4"));
            EXPECT_EQ(house.velora("hall").Sounds(), 5);
        } else {
            EXPECT_THAT(house.device_commands(), IsEmpty());
        }
        EXPECT_EQ(house.velora("hall").BrowserFullScreen(), !row.acts);
    }
}

}  // namespace
}  // namespace appliance
