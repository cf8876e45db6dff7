#include "fleet/device_commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "appliance/caller_display.h"
#include "support/house.h"

namespace fleet {
namespace {

using namespace std::chrono_literals;
using appliance::CallerDisplay;
using support::House;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr std::int16_t kSetValue = 19;

class KnownCaller : public CallerDisplay {
  public:
    std::string MessageCIDEvent(Datagram datagram, std::string_view ip) override {
        asked.push_back(std::string(ip) + (datagram == Datagram::ToClients ? " sent" : ""));
        return "5551234 : Smith";
    }

    void CID(appliance::Velora& unit) override { asked.push_back("shown on " + unit.Name()); }

    std::vector<std::string> asked;
};

// A hall with the devices [1 to [10 and a kitchen with [21 to [30, both switched, and the sounds 2
// and 5 with buttons.
class CommandedHouse {
  public:
    CommandedHouse() {
        house.settings().SoundButtonEnabled[2] = true;
        house.settings().SoundButtonEnabled[5] = true;
        house.add_unit("Hall", {.dc = "~11", .power = "A1"});
        house.add_unit("Kitchen", {.dc = "~121", .power = "A2"});
        house.open();
    }

    void set(const std::string& device, int value, std::int16_t command = kSetValue) {
        commands.SetVeloraIO("[", device, command, static_cast<std::int16_t>(value));
    }

    House house;
    KnownCaller caller;
    DeviceCommands commands{{house.instance(), house.fleet(), house.status_board(), caller}};
};

TEST(DeviceCommand, DoesWhatTheDeviceAndItsValueSay) {
    const struct {
        const char* device;
        int value;
        const char* action;  // "" for nothing
    } rows[] = {
        {"1", 2, ""},
        {"1", -1, ""},
        {"2", 0, "hall GET /screen.shtml?0"},
        {"2", 1, "hall GET /screen.shtml?1"},
        {"2", 2, "hall GET /screen.shtml?1"},
        {"2", 3, "X10 A1 off"},
        {"2", 4, ""},
        {"2", -1, ""},
        {"3", 0, "hall GET /scrOff.shtml"},
        {"3", 1, "hall GET /scrOn.shtml"},
        {"3", 2, ""},
        {"4", 0, "hall GET /led.shtml?t0"},
        {"4", 1, "hall GET /led.shtml?t1"},
        {"4", 2, "hall GET /led.shtml?t2"},
        {"4", 3, ""},
        {"5", 0, "hall GET /led.shtml?m0"},
        {"5", 1, "hall GET /led.shtml?m1"},
        {"5", 2, "hall GET /led.shtml?m2"},
        {"5", 4, ""},  // what an event makes of the browser's label
        {"6", 0, "hall GET /cgi-bin/firef4"},
        {"6", 1, ""},  // it is full screen already
        {"6", 2, ""},
        {"7", 0, "hall GET /beep.shtml?0 2"},
        {"7", 1, "hall GET /beep.shtml?0 5"},
        {"7", 2, ""},
        {"7", 18, ""},
        {"7", 19, ""},
        {"7", -1, ""},
        {"8", 0, "hall GET /beep.shtml?4 0"},
        {"8", 2, "hall GET /beep.shtml?4 50"},
        {"8", 7, "hall GET /beep.shtml?4 175"},
        {"9", 0, "hall GET /volume.shtml?0"},
        {"9", 4, "hall GET /volume.shtml?100"},
        {"9", -1, "hall GET /volume.shtml?-25"},
        {"10", 0, ""},
        {"11", 0, ""},  // no device of the hall, and before the kitchen
        {"22", 1, "kitchen GET /screen.shtml?1"},
        {"29", 1, "kitchen GET /volume.shtml?25"},
        {"31", 1, ""},
        {"0", 1, ""},
        {"-1", 1, ""},
    };

    for (const auto& row : rows) {
        CommandedHouse house;
        house.set(row.device, row.value);
        const std::vector<std::string> wanted =
            *row.action == '\0' ? std::vector<std::string>() : std::vector{std::string(row.action)};
        EXPECT_EQ(house.house.trace_without_time(), wanted) << row.device << " = " << row.value;
        EXPECT_THAT(house.caller.asked, IsEmpty());
        EXPECT_THAT(house.house.log(), IsEmpty());
    }
}

TEST(DeviceCommand, OfTheAwakeDeviceIsRememberedAsItsWord) {
    CommandedHouse house;
    const char* const words[] = {"sleep", "awake", "always awake"};
    for (int value = 0; value < 3; ++value) {
        house.set("2", value);
        EXPECT_EQ(house.house.velora("hall").Sleep(), words[value]);
    }
}

TEST(DeviceCommand, OfTheDisplayAsksForTheLastCaller) {
    CommandedHouse house;
    house.set("21", 0);
    EXPECT_EQ(house.house.shown("[21"), "5551234 : Smith");
    EXPECT_THAT(house.house.host().DeviceString("[21"), HasSubstr("/CID.gif'"));
    EXPECT_THAT(house.house.announced(), ElementsAre("[21"));
    house.set("21", 1);
    EXPECT_THAT(house.caller.asked, ElementsAre("192.168.0.21 sent", "shown on kitchen"));
}

TEST(DeviceCommand, OfTheLastDeviceShowsTheQueue) {
    CommandedHouse house;
    house.house.host().SetDeviceString("[30", "");
    house.set("30", 5);
    EXPECT_EQ(house.house.host().DeviceString("[30"), "Queue: 0) ");
}

TEST(DeviceCommand, IsIgnoredUnlessItIsOursAndWeAreReady) {
    CommandedHouse house;
    house.commands.SetVeloraIO("A", "2", kSetValue, 1);
    house.commands.SetVeloraIO("", "2", kSetValue, 1);
    for (const std::int16_t command : {std::int16_t{0}, std::int16_t{2}, std::int16_t{18}}) {
        house.set("2", 1, command);
    }
    house.house.instance().StartupReady = false;
    house.set("2", 1);
    EXPECT_THAT(house.house.trace(), IsEmpty());
    EXPECT_THAT(house.house.log(), IsEmpty());
    house.house.instance().StartupReady = true;
    house.house.fleet().shutdown();
    house.set("2", 1);
    EXPECT_THAT(house.house.trace(), IsEmpty());
}

TEST(DeviceCommand, ThatFailsIsReported) {
    const struct {
        const char* device;
        int value;
        const char* error;
    } rows[] = {{"", 1, "Type mismatch"}, {"x", 1, "Type mismatch"}, {"9", 1311, "Overflow"}};

    for (const auto& row : rows) {
        CommandedHouse house;
        house.set(row.device, row.value);
        EXPECT_THAT(house.house.log(),
                    ElementsAre(testing::AllOf(StartsWith("zynVelora: SetVeloraIO:  Line "),
                                               HasSubstr(row.error))));
        EXPECT_THAT(house.house.trace(), IsEmpty());
    }
}

TEST(DeviceCommand, TellsTheBlockWhileDebugIsOn) {
    CommandedHouse house;
    house.house.instance().log.set_debug_log(true);
    house.set("20", 1);
    EXPECT_THAT(house.house.log(),
                ElementsAre("zynVelora Debug: SetVeloraIO Initialization Complete=True",
                            "zynVelora Debug: SetVeloraIO Lowest/Highest=1,20"));
    house.house.host().forget();
    house.set("0", 1);
    EXPECT_THAT(house.house.log(), Contains("zynVelora Debug: SetVeloraIO Lowest/Highest=0,0"));
}

}  // namespace
}  // namespace fleet
