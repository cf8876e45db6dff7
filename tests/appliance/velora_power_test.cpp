#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/house.h"

// A whole unit through a power cycle: what its devices show, and what it is sent afterwards.
namespace appliance {
namespace {

using namespace std::chrono_literals;
using support::House;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr auto kCycle = 5s + 75005ms;

void add_switched_unit(House& house, int slideshow = 0) {
    house.add_unit("Hall", {.power = "A1", .slideshow = slideshow});
    house.open();
}

TEST(CyclePower, NeedsAPowerDevice) {
    House bare({"Hall"});
    EXPECT_EQ(bare.velora("hall").CyclePower(""), "");
    EXPECT_THAT(bare.trace(), IsEmpty());

    House house;
    add_switched_unit(house);
    EXPECT_NE(house.velora("hall").CyclePower(""), "");
    house.run_for(6s);
    EXPECT_THAT(house.trace(), ElementsAre("10:00:00.000 X10 A1 off", "10:00:05.000 X10 A1 on"));
    EXPECT_TRUE(house.host().isOn("A1"));
}

TEST(PowerOn, ShowsTheUnitAwakeWithItsBacklight) {
    const struct {
        const char* before;
        const char* body;
        const char* shown;
    } rows[] = {
        {"sleep", "0", "Awake"}, {"awake", "1", "Awake"}, {"always awake", "1", "Always Awake"}};

    for (const auto& row : rows) {
        House house;
        add_switched_unit(house);
        Velora& unit = house.velora("hall");
        unit.set_Sleep(row.before);
        house.unit("hall").shows("screen.shtml?p", row.body);
        unit.RefreshSleepStatus("");
        house.run_for(1s);
        unit.CyclePower("");
        house.host().forget();
        house.run_for(5s);
        EXPECT_EQ(house.shown("[2"), row.shown);
        EXPECT_EQ(house.shown("[3"), "Backlight On");
        EXPECT_EQ(house.host().DeviceValue("[2"), 1);
        EXPECT_EQ(unit.Sleep(), row.before);  // until it has booted
        house.run_for(2min);
        EXPECT_EQ(unit.Sleep(), "awake");
    }
}

TEST(BootEnd, ReportsTheStateAfterPowerOn) {
    House house;
    add_switched_unit(house);
    Velora& unit = house.velora("hall");
    unit.SetTopLED("blink", "");
    unit.SetVolume(85, "");
    unit.SetSoundsVolume(10, "");
    house.run_for(1s);
    unit.CyclePower("");
    house.run_for(6s);
    house.host().forget();
    house.run_for(2min);
    EXPECT_THAT(house.host().value_changes(),
                ElementsAre("[2=1", "[3=1", "[5=0", "[4=0", "[8=50", "[9=-1", "[6=1"));
    EXPECT_EQ(house.shown("[8"), "50%");
    EXPECT_EQ(house.shown("[6"), "Full Screen Browser");
    EXPECT_EQ(house.shown("[5"), "Mail LED Off");
    EXPECT_EQ(house.shown("[4"), "Top LED Off");
    EXPECT_EQ(house.shown("[9"), "85%");  // its string is left alone
    EXPECT_EQ(unit.TopLED(), "off");
    EXPECT_EQ(unit.Volume(), -1);
}

TEST(BootEnd, PushesTheDefaultPageOrTheSlideshowThatRan) {
    const struct {
        const char* default_page;
        int group;
        bool shows_slides;
        const char* display;
    } rows[] = {
        {"", 0, false, ""},
        {"start.htm", 0, false, "start.htm"},
        {"start.htm", 1, false, "start.htm"},
        {"start.htm", 1, true, "VeloraSlideshow.asp"},
        {"", 1, true, "VeloraSlideshow.asp"},
    };

    for (const auto& row : rows) {
        House house;
        add_switched_unit(house, row.group);
        house.settings().DefaultPushPage = row.default_page;
        house.velora("hall").set_Slideshow(row.shows_slides);
        house.velora("hall").CyclePower("");
        house.run_for(kCycle + 1min);
        EXPECT_EQ(house.velora("hall").Display(), row.display);
        EXPECT_EQ(house.velora("hall").Slideshow(), row.shows_slides);
        EXPECT_EQ(house.velora("hall").queue().queue_text(), "Queue: 0) ");
    }
}

TEST(BootEnd, SendsThePushBehindWhatWaitedMeanwhile) {
    House house;
    add_switched_unit(house);
    house.settings().DefaultPushPage = "start.htm";
    house.velora("hall").CyclePower("");
    house.velora("hall").SetTopLED("on", "");
    house.run_for(kCycle + 1min);
    EXPECT_THAT(
        house.trace_without_time(),
        ElementsAre("X10 A1 off", "X10 A1 on", "hall GET /led.shtml?t1", "hall GET /screen.shtml?1",
                    "hall GET /gotoURL.shtml?M=GOTO_URL&S=http://10.0.0.2:8080/start.htm",
                    "hall GET /cgi-bin/firef4"));
}

TEST(XapApplication, SwitchesPowerByMessageAndKeepsTheDeviceByHand) {
    const struct {
        const char* command;
        std::int32_t before;
        std::int32_t after;
        bool changes_time;
        const char* shown;
    } rows[] = {
        {"on", 3, 2, true, "ON"},   {"On", 2, 2, false, "ON"},   {"on", 17, 2, false, "ON"},
        {"off", 2, 3, true, "OFF"}, {"off", 3, 3, false, "OFF"}, {"dim", 2, 3, true, "DIM"},
    };

    for (const auto& row : rows) {
        House house;
        house.instance().XapHosted = true;
        house.add_unit("Hall", {.dc = "^1", .power = "A1", .x10_server = "house.x10"});
        house.open();
        house.host().put_device("A1");
        house.host().SetDeviceStatus("A1", row.before);
        house.host().forget();
        house.velora("hall").hsExecX10("A1", row.command);
        ASSERT_EQ(house.host().xap_messages().size(), 1U);
        const auto& message = house.host().xap_messages().front();
        EXPECT_EQ(message.target, "house.x10");
        EXPECT_EQ(message.message_class, "xap-x10.request");
        EXPECT_EQ(message.block, "xap-x10.request");
        EXPECT_EQ(message.source, "");
        EXPECT_EQ(message.uid, "00");
        EXPECT_EQ(message.body, std::string("device\x01"
                                            "A1") +
                                    '\0' + "command\x01" + row.command);
        EXPECT_EQ(house.host().DeviceStatus("A1"), row.after) << row.command;
        EXPECT_EQ(house.shown("A1"), row.shown);
        EXPECT_EQ(testing::Value(house.host().device_calls(), Contains("SetDeviceLastChange A1")),
                  row.changes_time)
            << row.command << " from " << row.before;
        EXPECT_THAT(house.host().x10_commands(), IsEmpty());
    }
}

}  // namespace
}  // namespace appliance
