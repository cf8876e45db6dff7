#include <array>

#include "plugin/plugin_house.h"
#include "plugin/subsystems.h"
#include "plugin/timer_events.h"

// From the host's devices, buttons and events to the units, through the whole plug-in.
namespace plugin {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::StartsWith;

constexpr std::int16_t kSetValue = 19;

void set_value(PluginHouse& house, const std::string& number, std::int16_t value) {
    house.plugin->SetIO(1, "[", number, kSetValue, value, 0, 0);
}

TEST(DeviceRoad, LeadsFromTheHostToTheUnit) {
    PluginHouse house;
    house.setting("DebugLog", "1");
    house.start();
    house.forget();
    house.plugin->SetIO(1, "[", "14", kSetValue, 1, 2, 3);
    EXPECT_THAT(house.requests(), ElementsAre("hall GET /led.shtml?t1"));
    EXPECT_THAT(house.host.log(), IsSupersetOf({"zynVelora Debug: SetIO [: 14,19,1,2,3",
                                                "zynVelora Debug: SetVeloraIO Initialization "
                                                "Complete=True",
                                                "zynVelora Debug: SetVeloraIO Lowest/Highest=11,"
                                                "14"}));
}

TEST(DeviceRoad, IsClosedInAShim) {
    PluginHouse house;
    house.setting("RunAsXapNode", "1");
    house.start();
    set_value(house, "14", 1);
    EXPECT_THAT(house.requests(), IsEmpty());
}

// Values that the host kept go the same road, which opens when start-up has finished.
TEST(DeviceRoad, IsClosedWhileStartUpRuns) {
    PluginHouse house;
    house.add_unit("10.0.0.21/kitchen", "Kitchen,~11,A1,B1");
    house.host.put_device("[99", "zynVelora");
    for (const char* code : {"[2", "[4", "[6", "[7", "[9"}) {
        house.host.put_device(code, "zynVelora");
    }
    house.host.SetDeviceValue("[4", 1);
    house.host.SetDeviceValue("[7", 11);
    house.start();
    house.run_for(1s);
    EXPECT_THAT(house.requests(), IsEmpty());
    house.forget();
    set_value(house, "6", 1);  // the kitchen's browser counts as one with its buttons
    EXPECT_THAT(house.requests(), ElementsAre("kitchen GET /cgi-bin/firef4"));
}

TEST(DeviceRoad, OfASoundIsThePlaceOfItsButton) {
    PluginHouse house;
    house.setting("Sounds", "0,0,1,0,0,1");
    house.start();
    house.forget();
    house.plugin->ButtonPress("Play Help Sound @ Hall Velora");
    EXPECT_THAT(house.host.device_calls(), ElementsAre("SetDeviceValue [17 1"));
    set_value(house, "17", 1);
    EXPECT_THAT(house.requests(), ElementsAre("hall GET /beep.shtml?0 5"));
    house.forget();
    house.call("ButtonPress", {"Play Copy Sound @ Hall Velora"});
    EXPECT_THAT(house.host.device_calls(), Contains("SetDeviceValue [17 0"));
}

TEST(DeviceRoad, CarriesActionsOfEvents) {
    PluginHouse house;
    house.start();
    house.forget();
    const std::string pair = "\x02\x02[21-Bedroom;Bed\x02Turn Backlight On";
    house.plugin->TriggerAction("Velora" + pair);
    house.call("TriggerAction", {"Velora" + pair});
    EXPECT_THAT(house.host.device_calls(),
                ElementsAre("SetDeviceValue [23 1", "SetDeviceValue [23 1"));
    EXPECT_EQ(house.plugin->ActionUIFormat("zynVelora" + pair), "Turn Backlight On to Bed Velora");
    EXPECT_EQ(house.text("ActionUIFormat", {"zynVelora" + pair}),
              "Turn Backlight On to Bed Velora");
    EXPECT_EQ(house.text("ActionUI", {"anything"}), "");
    for (const char* question : {"SupportsTriggerUI", "SupportsActionUI", "SupportsConditionUI"}) {
        EXPECT_EQ(house.text(question, {}), "False");
    }
    house.call("ModifyActionUI", {automation::Value(std::shared_ptr<automation::Object>())});
    EXPECT_THAT(house.host.log(), Contains(StartsWith("zynVelora: ModifyActionUI:  Line ")));
}

TEST(MinuteTick, RunsItsFourChecksAndAFailureEndsOnlyItsOwn) {
    PluginHouse house;
    house.setting("SleepMonitorInterval", "1");
    house.setting("PowerCycleInterval", "10");
    house.start();
    house.machine.files.put("C:\\HomeSeer\\HTML\\VeloraTemp\\old.wav", "x");
    house.run_for(59s);
    house.machine.pump.set_wall_clock(house.machine.pump.now() + 10min);
    house.forget();
    house.host.fail(support::MemoryHost::Operation::SaveIniSetting, 1);
    house.run_for(1s);
    EXPECT_THAT(house.host.log(), ElementsAre(StartsWith("zynVelora: EvaluatePowerCycle  Line ")));
    EXPECT_FALSE(house.machine.files.FileExists("C:\\HomeSeer\\HTML\\VeloraTemp\\old.wav"));
    EXPECT_THAT(house.requests(), IsEmpty());
    house.run_for(1min);
    EXPECT_THAT(house.requests(),
                ElementsAre("kitchen GET /screen.shtml?p", "hall GET /screen.shtml?p",
                            "bedroom GET /screen.shtml?p"));
}

TEST(MinuteTick, CountsToTheNextQuestionAnewAfterALoadOfTheSettings) {
    PluginHouse house;
    house.setting("SleepMonitorInterval", "2");
    house.start();
    house.forget();
    house.run_for(2min);
    house.call("VeloraReloadSettings", {});
    house.run_for(2min);
    EXPECT_THAT(house.requests(), IsEmpty());
    house.run_for(1min);
    EXPECT_THAT(house.requests(), Contains("hall GET /screen.shtml?p"));
}

TEST(MotionRoad, LeadsFromTheHostsEventsToTheUnit) {
    PluginHouse house;
    house.setting("AwakenOnMotion", "1");
    house.start();
    house.call("VeloraSleep", {"hall", "sleep"});
    house.run_for(1s);
    house.forget();
    house.host.receive_x10("B2", host::kStatusOff);
    EXPECT_THAT(house.requests(), IsEmpty());
    house.host.receive_x10("B2", host::kStatusOn);
    EXPECT_THAT(house.requests(), ElementsAre("hall GET /screen.shtml?1"));
    EXPECT_EQ(house.text("VeloraSleepStatus", {"hall"}), "awake");
}

TEST(MotionRoad, PassesOverEventsDuringStartUpAndReportsThoseThatAreNone) {
    support::FakeMachine machine;
    support::MemoryHost host;
    Subsystems parts(machine.platform());
    TimerEvents events(parts);
    parts.instance.attach(host, &host);
    const std::array<automation::Value, 4> strange = {1, "2", "B", "no status"};
    events.HSEvent(strange);
    events.HSEvent({});
    EXPECT_THAT(host.log(), IsEmpty());
    parts.instance.StartupReady = true;
    events.HSEvent({});
    events.HSEvent(strange);
    EXPECT_THAT(
        host.log(),
        ElementsAre(
            AllOf(StartsWith("zynVelora: HSEvent  Line "), EndsWith(" Subscript out of range")),
            AllOf(StartsWith("zynVelora: HSEvent  Line "), EndsWith(" Type mismatch"))));
}

TEST(MotionRoad, IsThereOnlyWhenMotionIsWanted) {
    const struct {
        const char *key, *value;
        std::size_t registrations;
    } rows[] = {{"AwakenOnMotion", "0", 0},
                {"AwakenOnMotion", "yes", 0},
                {"AwakenOnMotion", "\"1\"", 1},
                {"StartSlildeshow", "1", 1}};

    for (const auto& row : rows) {
        PluginHouse house;
        house.setting(row.key, row.value);
        house.start();
        EXPECT_EQ(house.host.event_registrations(), row.registrations) << row.value;
        house.plugin->ShutdownIO();
        EXPECT_EQ(house.host.event_registrations(), 0U);
    }
}

}  // namespace
}  // namespace plugin
