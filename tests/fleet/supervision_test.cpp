#include "fleet/supervision.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/house.h"

namespace fleet {
namespace {

using namespace std::chrono_literals;
using automation::DateTime;
using support::House;
using support::UnitLine;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

// A house that is watched: its minute tick runs when a test says so.
class WatchedHouse {
  public:
    void open(const std::vector<std::pair<std::string, UnitLine>>& units) {
        for (const auto& [name, line] : units) {
            house.add_unit(name, line);
            house.unit(name).shows("screen.shtml?p", "1");
        }
        house.open();
        supervision.restart_sleep_check();
    }

    // Each minute ends with its tick.
    void minutes(int count) {
        for (int i = 0; i < count; ++i) {
            house.run_for(1min);
            supervision.UpdateSleepModeStatus();
            supervision.UpdateSlideshowNoMotionStatus();
            supervision.EvaluatePowerCycle();
        }
    }

    // A sensor sends; the host takes the state over behind the listeners.
    void sensor(const std::string& code, std::int32_t status) {
        supervision.CheckMotionEvent(code, status);
        house.host().receive_x10(code, status);
    }

    // Time of day of the day on which the house stands, with the day after as hour 24 and on.
    void set_clock(std::chrono::minutes of_day) {
        const DateTime now = house.machine().pump.now();
        house.machine().pump.set_wall_clock(std::chrono::floor<std::chrono::days>(now) + of_day);
    }

    [[nodiscard]] std::size_t requests_since(std::string_view page) {
        const auto lines = house.trace_without_time();
        const auto count = std::ranges::count_if(
            lines, [page](const std::string& line) { return line.ends_with(page); });
        house.clear_trace();
        return static_cast<std::size_t>(count);
    }

    House house;
    Supervision supervision{house.instance(), house.fleet()};
};

// --- sleep ---------------------------------------------------------------------------------------

TEST(SleepCheck, AsksEachUnitOnceInTheIntervalAndOneMinute) {
    WatchedHouse watched;
    watched.house.settings().SleepMonitorInterval = 2;
    watched.open({{"Hall", {}}, {"Den", {}}});
    watched.minutes(9);
    EXPECT_THAT(
        watched.house.trace(),
        ElementsAre("10:03:00.000 hall GET /screen.shtml?p", "10:03:00.000 den GET /screen.shtml?p",
                    "10:06:00.000 hall GET /screen.shtml?p", "10:06:00.000 den GET /screen.shtml?p",
                    "10:09:00.000 hall GET /screen.shtml?p",
                    "10:09:00.000 den GET /screen.shtml?p"));
}

TEST(SleepCheck, WakesUnitsThatAreNeverToDimEachMinuteAndOthersNever) {
    WatchedHouse watched;
    watched.open({{"Hall", {}}, {"Den", {}}});
    watched.house.velora("hall").set_Sleep("always awake");
    watched.house.run_for(1s);
    watched.house.clear_trace();
    watched.minutes(2);
    EXPECT_THAT(watched.house.trace_without_time(),
                ElementsAre("hall GET /screen.shtml?1", "hall GET /screen.shtml?1"));
}

// --- slideshow -----------------------------------------------------------------------------------

TEST(SlideshowScreen, StaysOnUntilFiveMinutesBeforeTheTimeWithoutMotion) {
    const struct {
        const char* what;
        const char* sensor;
        std::int16_t limit;  // minutes
        int minutes_kept_on;
    } rows[] = {
        {"no sensor", "", 8, 10},
        {"a code too short for a sensor", "B", 8, 10},
        {"limit", "B1", 8, 2},
        {"limit that leaves one minute", "B1", 7, 1},
        {"limit that leaves none", "B1", 6, 0},
        {"limit below five minutes", "B1", 4, 0},
    };

    for (const auto& row : rows) {
        WatchedHouse watched;
        watched.house.settings().SlideshowNoMotionTime = row.limit;
        watched.open({{"Hall", {.motion = row.sensor, .slideshow = 1}}});
        watched.house.velora("hall").set_Slideshow(true);
        watched.house.host().receive_x10("B1", host::kStatusOff);
        watched.minutes(10);
        EXPECT_EQ(watched.requests_since("/screen.shtml?1"),
                  static_cast<std::size_t>(row.minutes_kept_on))
            << row.what;
    }
}

TEST(SlideshowScreen, CountsTheMinutesAnewAfterMotion) {
    WatchedHouse watched;
    watched.house.settings().SlideshowNoMotionTime = 8;
    watched.open({{"Hall", {.motion = "B1", .slideshow = 1}}});
    watched.house.velora("hall").set_Slideshow(true);
    watched.house.host().receive_x10("B1", host::kStatusOff);
    watched.minutes(5);
    EXPECT_EQ(watched.house.velora("hall").MotionOffMinutes(), 5);
    watched.house.host().receive_x10("B1", host::kStatusOn);
    watched.house.clear_trace();
    watched.minutes(1);
    EXPECT_THAT(watched.house.trace(), IsEmpty());  // motion itself keeps nothing on
    EXPECT_EQ(watched.house.velora("hall").MotionOffMinutes(), 0);
    watched.house.host().receive_x10("B1", host::kStatusOff);
    watched.minutes(3);
    EXPECT_EQ(watched.requests_since("/screen.shtml?1"), 2U);
}

TEST(SlideshowScreen, IsGivenUpWhenNoSlideWasAskedForInFiveTimesItsInterval) {
    WatchedHouse watched;
    watched.house.settings().SlideshowUpdateSeconds = 24;
    watched.open({{"Hall", {.motion = "B1", .slideshow = 1}}});
    appliance::Velora& hall = watched.house.velora("hall");
    hall.set_Slideshow(true);
    hall.set_SlideshowTime(watched.house.machine().pump.now());
    watched.house.host().receive_x10("B1", host::kStatusOff);
    watched.minutes(1);
    EXPECT_EQ(watched.requests_since("/screen.shtml?1"), 1U);
    EXPECT_TRUE(hall.Slideshow());
    watched.minutes(1);  // 120 seconds to the millisecond
    EXPECT_FALSE(hall.Slideshow());
    EXPECT_THAT(watched.house.trace(), IsEmpty());
}

TEST(SlideshowScreen, OfUnitsWithoutSlidesAndOfThoseThatNeverDimIsLeftAlone) {
    WatchedHouse watched;
    watched.open({{"Hall", {.slideshow = 1}}, {"Den", {.slideshow = 1}}});
    watched.house.velora("den").set_Slideshow(true);
    watched.house.velora("den").set_Sleep("always awake");
    watched.house.run_for(1s);
    watched.house.clear_trace();
    watched.supervision.UpdateSlideshowNoMotionStatus();
    watched.house.run_for(1s);
    EXPECT_THAT(watched.house.trace(), IsEmpty());
}

// --- power ---------------------------------------------------------------------------------------

TEST(PowerSchedule, CyclesTheUnitsFromTheLastOnOneAMinute) {
    WatchedHouse watched;
    watched.house.settings().PowerCycleInterval = "3";
    watched.house.settings().LastPowerCycleHour = -1;
    watched.open({{"Hall", {.power = "A1"}},
                  {"Den", {}},
                  {"Loft", {.power = "A3"}},
                  {"Kitchen", {.power = "A4"}}});
    watched.set_clock(2h + 58min);
    watched.minutes(8);
    std::vector<std::string> switched;
    for (const std::string& line : watched.house.trace()) {
        if (line.ends_with("off")) {
            switched.push_back(line);
        }
    }
    EXPECT_THAT(switched, ElementsAre("03:01:00.000 X10 A4 off", "03:02:00.000 X10 A3 off",
                                      "03:04:00.000 X10 A1 off"));
    EXPECT_THAT(watched.house.host().saved_settings(), ElementsAre("LastPowerCycleHour=3"));
}

TEST(PowerSchedule, StartsInAnHourOfItsListThatIsLaterThanTheLast) {
    const struct {
        const char* hours;
        int hour;
        std::int16_t last;
        bool starts;
        std::int16_t last_after;
    } rows[] = {
        {"0,12", 0, 12, true, 0},   {"0,12", 12, 0, true, 12},  {"0,12", 12, 12, false, 12},
        {"0,12", 13, 0, false, 0},  {"0,12", 11, 0, false, 0},  {"0", 0, -1, true, 0},
        {"0", 0, 0, false, 0},      {"0", 0, 1, true, 0},       {"6", 0, 6, false, -1},
        {"6", 5, 6, false, 6},      {"3,x,,7", 7, -1, true, 7}, {"3,x,,7", 0, -1, false, -1},
        {"7.0", 7, -1, true, 7},    {"7a", 7, -1, false, -1},   {"", 7, -1, false, -1},
        {"23,24", 23, 22, true, 23}};

    for (const auto& row : rows) {
        WatchedHouse watched;
        watched.house.settings().PowerCycleInterval = row.hours;
        watched.house.settings().LastPowerCycleHour = row.last;
        watched.open({{"Hall", {.power = "A1"}}});
        watched.set_clock(std::chrono::hours(row.hour) + 30min);
        watched.supervision.EvaluatePowerCycle();
        watched.supervision.EvaluatePowerCycle();
        EXPECT_THAT(watched.house.host().x10_commands(), SizeIs(row.starts ? 1 : 0))
            << row.hours << " at " << row.hour << " after " << row.last;
        EXPECT_EQ(watched.house.settings().LastPowerCycleHour, row.last_after)
            << row.hours << " at " << row.hour << " after " << row.last;
        EXPECT_THAT(watched.house.host().saved_settings(), SizeIs(row.starts ? 1 : 0));
    }
}

TEST(PowerSchedule, GoesOnWithTheUnitsThatALoadOfTheSettingsHasLeft) {
    WatchedHouse watched;
    watched.house.settings().PowerCycleInterval = "10";
    watched.house.settings().LastPowerCycleHour = 9;
    watched.open({{"Hall", {.power = "A1"}}, {"Den", {.power = "A2"}}, {"Loft", {.power = "A3"}}});
    watched.minutes(1);
    watched.house.fleet().reset();
    watched.house.host().remove_section(House::kNames);
    watched.house.add_unit("Hall", {.dc = "~11", .power = "A1"});
    watched.house.fleet().DefineVeloras();
    watched.minutes(3);
    EXPECT_THAT(watched.house.host().x10_commands(), ElementsAre("A1 off"));
    EXPECT_THAT(watched.house.log(), Contains(StartsWith("zynVelora: Removing virtual device")));
}

// --- motion --------------------------------------------------------------------------------------

TEST(Motion, WakesAUnitOnlyWhereTheSettingsSaySo) {
    const struct {
        const char* what;
        const char* sleep;
        bool awaken;
        std::int32_t status;
        const char* code;
        std::size_t wakes;
    } rows[] = {
        {"asleep", "sleep", true, 2, "B1", 1},
        {"asleep, sensor in lower case", "sleep", true, 2, "b1", 1},
        {"awake", "awake", true, 2, "B1", 1},
        {"always awake", "always awake", true, 2, "B1", 0},
        {"no motion any more", "sleep", true, 3, "B1", 0},
        {"another sensor", "sleep", true, 2, "B2", 0},
        {"not wanted", "sleep", false, 2, "B1", 0},
    };

    for (const auto& row : rows) {
        WatchedHouse watched;
        watched.house.settings().AwakenOnMotion = row.awaken;
        watched.house.settings().LEDMotionTime = 999999;
        watched.open({{"Den", {}}, {"Hall", {.motion = "B1"}}});
        watched.house.velora("hall").set_Sleep(row.sleep);
        watched.house.run_for(1s);
        watched.house.clear_trace();
        watched.sensor(row.code, row.status);
        EXPECT_EQ(watched.requests_since("hall GET /screen.shtml?1"), row.wakes) << row.what;
        EXPECT_THAT(watched.house.log(), IsEmpty());
    }
}

TEST(Motion, StartsTheSlideshowOfASleepingUnit) {
    WatchedHouse watched;
    watched.house.settings().StartSlildeshow = true;
    watched.house.settings().LEDMotionTime = 999999;
    watched.open({{"Hall", {.motion = "B1", .slideshow = 2}}});
    watched.house.velora("hall").set_Sleep("sleep");
    watched.house.run_for(1s);
    watched.house.clear_trace();
    watched.sensor("B1", host::kStatusOn);
    watched.house.run_for(1min);
    EXPECT_THAT(watched.house.trace_without_time(),
                ElementsAre("hall GET /screen.shtml?1", "hall GET /screen.shtml?1",
                            "hall GET /gotoURL.shtml?M=GOTO_URL&S=http://10.0.0.2:8080/"
                            "VeloraSlideshow.asp",
                            "hall GET /cgi-bin/firef4"));
    EXPECT_TRUE(watched.house.velora("hall").Slideshow());
    EXPECT_TRUE(watched.house.velora("hall").BrowserFullScreen());
    watched.house.clear_trace();
    watched.sensor("B1", host::kStatusOn);  // awake by now
    EXPECT_THAT(watched.house.trace(), IsEmpty());
}

TEST(Motion, OfSomebodyWhoHasSeenTheLightsForLongEnoughPutsThemOut) {
    const struct {
        std::chrono::milliseconds after_start;
        bool are_out;
    } rows[] = {{0ms, false}, {60s, false}, {60999ms, false}, {61s, true}, {10min, true}};

    for (const auto& row : rows) {
        WatchedHouse watched;
        watched.house.settings().LEDMotionTime = 60;
        watched.open({{"Hall", {.motion = "B1"}}});
        appliance::Velora& hall = watched.house.velora("hall");
        hall.SetTopLED("on", "");
        hall.SetMailLED("blink", "");
        watched.house.host().receive_x10("B1", host::kStatusOff);
        watched.house.run_for(30min);  // nobody is there
        watched.sensor("B1", host::kStatusOn);
        watched.house.run_for(row.after_start);
        watched.house.clear_trace();
        watched.sensor("B1", host::kStatusOn);
        watched.house.run_for(1s);
        EXPECT_EQ(watched.house.trace_without_time(),
                  row.are_out ? (std::vector<std::string>{"hall GET /led.shtml?t0",
                                                          "hall GET /led.shtml?m0"})
                              : std::vector<std::string>())
            << row.after_start.count();
        EXPECT_EQ(hall.MailLED(), row.are_out ? "off" : "blink");
    }
}

TEST(Motion, OfASensorThatTwoUnitsShareIsTheFirstUnits) {
    WatchedHouse watched;
    watched.house.settings().AwakenOnMotion = true;
    watched.open({{"Hall", {.motion = "B1"}}, {"Den", {.motion = "B1"}}});
    watched.sensor("B1", host::kStatusOn);
    EXPECT_THAT(watched.house.trace_without_time(), ElementsAre("hall GET /screen.shtml?1"));
}

TEST(Watch, TellsWhatItSeesWhileDebugIsOn) {
    WatchedHouse watched;
    watched.house.settings().SleepMonitorInterval = 7;
    watched.house.settings().SlideshowNoMotionTime = 4;
    watched.open({{"Hall", {.motion = "B1"}}});
    watched.house.velora("hall").set_MotionOffMinutes(3);
    watched.house.instance().log.set_debug_log(true);
    watched.minutes(1);
    watched.sensor("b9", host::kStatusOn);
    EXPECT_THAT(watched.house.log(),
                ElementsAre("zynVelora Debug: Periodic Check of SleepModeTimer=7",
                            "zynVelora Debug: Slideshow NoMotion Time=4, "
                            "MinutesNoMotion(firstVelora)=3",
                            "zynVelora Debug: X10 Callback b9=2 was on=False"));
}

}  // namespace
}  // namespace fleet
