#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/house.h"

// What each operation of a unit says to it, and what it shows in the house.
namespace appliance {
namespace {

using support::House;
using testing::ElementsAre;
using testing::IsEmpty;

struct Words {
    const char* operation;
    std::function<std::string(Velora&)> call;
    const char* page;      // what the unit is asked for
    const char* datagram;  // the same where a client runs; "" for the page again
    std::int32_t timeout_ms;
};

const Words kWords[] = {
    {"top LED on", [](Velora& u) { return u.SetTopLED("on", ""); }, "led.shtml?t1", "TopLed on",
     5000},
    {"top LED off", [](Velora& u) { return u.SetTopLED("off", ""); }, "led.shtml?t0", "TopLed off",
     5000},
    {"top LED blink", [](Velora& u) { return u.SetTopLED("blink", ""); }, "led.shtml?t2",
     "TopLed blink", 5000},
    {"top LED blinking", [](Velora& u) { return u.SetTopLED("Blinking fast", ""); }, "led.shtml?t2",
     "TopLed blink", 5000},
    {"top LED blink off", [](Velora& u) { return u.SetTopLED("off, no BLINK", ""); },
     "led.shtml?t2", "TopLed blink", 5000},
    {"top LED switched off", [](Velora& u) { return u.SetTopLED("Switched OFF", ""); },
     "led.shtml?t0", "TopLed off", 5000},
    {"top LED unknown", [](Velora& u) { return u.SetTopLED("green", ""); }, "led.shtml?t1",
     "TopLed on", 5000},
    {"mail LED on", [](Velora& u) { return u.SetMailLED("", ""); }, "led.shtml?m1", "MailLed on",
     5000},
    {"mail LED blink", [](Velora& u) { return u.SetMailLED("blink", ""); }, "led.shtml?m2",
     "MailLed blink", 5000},
    {"backlight on", [](Velora& u) { return u.SetBacklight("ON", ""); }, "scrOn.shtml", "", 5000},
    {"backlight off", [](Velora& u) { return u.SetBacklight("off", ""); }, "scrOff.shtml", "",
     5000},
    {"backlight unknown", [](Velora& u) { return u.SetBacklight("on ", ""); }, "scrOff.shtml", "",
     5000},
    {"sound", [](Velora& u) { return u.SetSounds(18, ""); }, "beep.shtml?0 18", "Beep 18", 5000},
    {"sounds volume", [](Velora& u) { return u.SetSoundsVolume(35, ""); }, "beep.shtml?4 35", "",
     5000},
    {"volume", [](Velora& u) { return u.SetVolume(85, ""); }, "volume.shtml?85", "", 5000},
    {"browser", [](Velora& u) { return u.ToggleBrowserFullScreen(""); }, "cgi-bin/firef4", "",
     5000},
    {"sleep", [](Velora& u) { return u.SetSleep("sleep", ""); }, "screen.shtml?0", "Screen off",
     5000},
    {"awake", [](Velora& u) { return u.SetSleep("awake", ""); }, "screen.shtml?1", "Screen on",
     5000},
    {"always awake", [](Velora& u) { return u.SetSleep("Always AWAKE", ""); }, "screen.shtml?1",
     "Screen on", 5000},
    {"toggle sleep", [](Velora& u) { return u.SetSleep("toggle", ""); }, "screen.shtml?t", "",
     5000},
    {"sleep status", [](Velora& u) { return u.RefreshSleepStatus(""); }, "screen.shtml?p", "",
     5000},
};

TEST(CommandWords, AreAPageOrWhereAClientRunsADatagram) {
    for (const Words& row : kWords) {
        House house({"Hall"});
        Velora& unit = house.velora("hall");
        EXPECT_NE(row.call(unit), "") << row.operation;
        EXPECT_EQ(house.trace_without_time(), std::vector{"hall GET /" + std::string(row.page)})
            << row.operation;
        EXPECT_EQ(unit.queue().state().CurrentTimeout, row.timeout_ms) << row.operation;

        House with_client({"Hall"});
        with_client.runs_client("hall");
        row.call(with_client.velora("hall"));
        const std::string sent = *row.datagram == '\0'
                                     ? "hall GET /" + std::string(row.page)
                                     : "UDP " + std::string(row.datagram) + " to 192.168.0.20";
        EXPECT_EQ(with_client.trace_without_time(), std::vector{sent}) << row.operation;
    }
}

TEST(CommandWords, NeedBothTheClientAndTheSetting) {
    House house({"Hall", "Den"});
    house.runs_client("hall");
    house.velora("den").SetTopLED("on", "");  // no client there
    house.settings().UseVeloraServer = false;
    house.velora("hall").SetTopLED("on", "");
    EXPECT_THAT(house.trace_without_time(),
                ElementsAre("den GET /led.shtml?t1", "hall GET /led.shtml?t1"));
}

TEST(CommandWords, GoByDatagramWithoutAClientToo) {
    House house({"Hall"});
    Velora& unit = house.velora("hall");
    unit.Execute("calc.exe", "");
    unit.SendUDPCommand("Show", "text", "");
    unit.SendUDPCID("Smith", "555", "");
    EXPECT_THAT(house.trace_without_time(),
                ElementsAre("UDP Execute calc.exe to 192.168.0.20", "UDP Show text to 192.168.0.20",
                            "UDP caller Smith/555 to 192.168.0.20"));
}

TEST(CommandWords, ReturnTheTagOfTheQueue) {
    House house({"Hall"});
    Velora& unit = house.velora("hall");
    for (const Words& row : kWords) {
        const std::string tag = row.call(unit);
        EXPECT_TRUE(unit.CommandBusy(tag)) << row.operation;
    }
    unit.set_DisablePlugin(true);
    for (const Words& row : kWords) {
        EXPECT_EQ(row.call(unit), "") << row.operation;
    }
}

TEST(DisabledUnit, StillShowsWhatWasAsked) {
    House house({"Hall"});
    Velora& unit = house.velora("hall");
    unit.set_DisablePlugin(true);
    unit.SetVolume(20, "");
    unit.SetSleep("sleep", "");
    EXPECT_EQ(unit.Volume(), 20);
    EXPECT_EQ(unit.Sleep(), "sleep");
    EXPECT_EQ(house.shown("[9"), "20%");
    EXPECT_EQ(house.shown("[2"), "Sleeping");
    EXPECT_THAT(house.trace(), IsEmpty());
}

TEST(Shown, IsTheStateAtOnceBeforeTheUnitHasActed) {
    const struct {
        std::function<void(Velora&)> call;
        const char* code;
        const char* shown;
        const char* picture;
    } rows[] = {
        {[](Velora& u) { u.SetTopLED("blink", ""); }, "[4", "Top LED Blinking", "TopLEDBlink.gif"},
        {[](Velora& u) { u.SetTopLED("blinking", ""); }, "[4", "Top LED Off", "TopLEDOff.gif"},
        {[](Velora& u) { u.SetMailLED("ON", ""); }, "[5", "Mail LED On", "MailLEDOn.gif"},
        {[](Velora& u) { u.SetBacklight("on", ""); }, "[3", "Backlight On", "BacklightOn.gif"},
        {[](Velora& u) { u.SetBacklight("off", ""); }, "[3", "Backlight Off", "BacklightOff.gif"},
        {[](Velora& u) { u.SetSounds(0, ""); }, "[7", "Played Cancel Sound", "sound.gif"},
        {[](Velora& u) { u.SetSounds(19, ""); }, "[7", "Sounds Volume at 0%", "level_1.gif"},
        {[](Velora& u) { u.SetSoundsVolume(14, ""); }, "[8", "14%", "level_1.gif"},
        {[](Velora& u) { u.SetVolume(85, ""); }, "[9", "85%", "level_10.gif"},
        {[](Velora& u) { u.ToggleBrowserFullScreen(""); }, "[6", "Browser Nav Buttons Showing",
         "BrowserNav.gif"},
    };

    for (const auto& row : rows) {
        House house({"Hall"});
        house.unit("hall").goes_silent();
        row.call(house.velora("hall"));
        EXPECT_EQ(house.shown(row.code), row.shown);
        EXPECT_THAT(house.host().DeviceString(row.code),
                    testing::HasSubstr("/images/Velora/" + std::string(row.picture)));
        EXPECT_THAT(house.announced(), testing::Contains(row.code));
    }
}

TEST(Sound, OutsideTheTableIsAnErrorAndNotSent) {
    House house({"Hall"});
    EXPECT_EQ(house.velora("hall").SetSounds(29, ""), "");
    EXPECT_THAT(house.log(),
                ElementsAre(testing::StartsWith("zynVelora hall: Velora Sounds  Line ")));
    EXPECT_THAT(house.trace(), IsEmpty());
    EXPECT_EQ(house.velora("hall").Sounds(), 29);
}

TEST(Backlight, OfASleepingUnitStaysAsItIs) {
    House house({"Hall"});
    Velora& unit = house.velora("hall");
    unit.SetSleep("sleep", "");
    house.clear_trace();
    EXPECT_EQ(unit.SetBacklight("off", ""), "");
    EXPECT_EQ(unit.Backlight(), "Backlight On");
    EXPECT_THAT(house.trace(), IsEmpty());
}

TEST(BrowserScreen, IsToggledOnlyWhenItDiffers) {
    House house({"Hall"});
    Velora& unit = house.velora("hall");
    EXPECT_EQ(unit.SetBrowserScreen(true, "x"), "0");
    EXPECT_THAT(house.trace(), IsEmpty());
    EXPECT_NE(unit.SetBrowserScreen(false, "x"), "0");
    EXPECT_FALSE(unit.BrowserFullScreen());
    EXPECT_EQ(unit.SetBrowserScreen(false, "x"), "0");
    EXPECT_THAT(house.trace_without_time(), ElementsAre("hall GET /cgi-bin/firef4"));
}

TEST(Waitsecs, HasTwiceItsSecondsAsMillisecondsOfTimeOut) {
    House house({"Hall"});
    Velora& unit = house.velora("hall");
    unit.SetTopLED("on", "");
    unit.SetWaitsecs(7, "");
    EXPECT_THAT(unit.queue().waiting_commands(), ElementsAre("waitsecs 7"));
    house.run_for(std::chrono::milliseconds(60));
    EXPECT_EQ(unit.queue().state().CurrentTimeout, 14);
    EXPECT_EQ(unit.SetWaitsecs(16384, ""), "");  // leaves 16 bits
    EXPECT_THAT(house.log(), ElementsAre(testing::MatchesRegex("zynVelora hall: Velora SetWaitsecs "
                                                               " Line [0-9]+ Overflow")));
}

TEST(LedCommand, StartsAMotionPeriod) {
    House house({"Hall"});
    house.run_for(std::chrono::minutes(3));
    house.velora("hall").SetMailLED("on", "");
    EXPECT_EQ(house.velora("hall").MotionStartTime(), house.machine().pump.now());
}

}  // namespace
}  // namespace appliance
