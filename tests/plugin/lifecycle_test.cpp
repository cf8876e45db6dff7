#include <array>

#include "plugin/plugin_house.h"

namespace plugin {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

TEST(Lifecycle, StartsUpInOrder) {
    PluginHouse house;
    house.start();
    EXPECT_THAT(house.host.log(),
                ElementsAre("zynVelora: Version 1.0.0 Registered, XAP=False",
                            "zynVelora: zynVelora - Clearing CID Client Database...",
                            "zynVelora: zynVelora - Initializing I/O... (LocalPort=4550, "
                            "RemotePort=4550)",
                            "zynVelora: Slideshow path has not been specified",
                            "zynVelora: User Configuration Setup Initialization Complete",
                            "zynVelora: Startup Initialization Complete"));
    EXPECT_THAT(house.machine.files.read("C:\\HomeSeer\\HTML\\VeloraSlideshow.asp"),
                AllOf(StartsWith("<%\r\nOn Error Resume Next\r\nResponse.Write "
                                 "hs.GetPlugins(\"zynVelora\").VeloraSlideshowASP"),
                      EndsWith("End If\r\n%>\r\n")));
    const host::PluginStatus status = house.plugin->status();
    EXPECT_EQ(status.role, "normal");
    EXPECT_THAT(status.units, SizeIs(3));
    EXPECT_THAT(status.flags, Contains("StartupReady"));
    EXPECT_EQ(house.machine.random.seedings(), 1);
}

TEST(Lifecycle, SecondStartAndStartAfterAnotherKindDoNothing) {
    PluginHouse house;
    house.start();
    house.forget();
    EXPECT_EQ(house.plugin->InitIO(0), "");
    EXPECT_THAT(house.host.log(), IsEmpty());
    for (const char* other : {"InitX10", "InitIR"}) {
        PluginHouse late;
        late.plugin = std::make_unique<hspi>(late.machine.platform());
        late.plugin->RegisterCallback(late.host);
        EXPECT_EQ(late.text(other, {automation::Value(1)}), "");
        EXPECT_EQ(late.plugin->InitIO(0), "");
        EXPECT_THAT(late.plugin->status().units, IsEmpty()) << other;
    }
}

TEST(Lifecycle, RolesFollowHostAndSettings) {
    const struct {
        const char *type_name, *runs_as_node, *role;
        std::size_t units;
    } rows[] = {{"Host", "", "normal", 3},
                {"Host", "1", "shim", 0},
                {"Setup", "", "xAP-hosted", 3},
                {"Setup", "1", "xAP-hosted", 3},
                {"setup", "", "normal", 3}};

    for (const auto& row : rows) {
        PluginHouse house;
        house.host.set_type_name(row.type_name);
        house.setting("RunAsXapNode", row.runs_as_node);
        house.start();
        EXPECT_EQ(house.plugin->status().role, row.role);
        EXPECT_THAT(house.plugin->status().units, SizeIs(row.units)) << row.role;
    }
}

TEST(Lifecycle, ShimKeepsTheHouseCodeAndNothingElse) {
    PluginHouse house;
    house.setting("RunAsXapNode", "1");
    house.start();
    EXPECT_TRUE(house.host.has_device("[99"));
    EXPECT_THAT(house.host.saved_settings(), Contains("HouseCode=91"));
    EXPECT_FALSE(house.machine.files.FileExists("C:\\HomeSeer\\HTML\\VeloraSlideshow.asp"));
    house.plugin->SelectMenu("Reset Queue");
    house.plugin->ShutdownIO();
    EXPECT_THAT(house.plugin->status().flags, Not(Contains("ShuttingDown")));
}

TEST(Lifecycle, MenusAreOfferedUnlessSwitchedOff) {
    PluginHouse house;
    house.start();
    EXPECT_THAT(house.host.menu(),
                ElementsAre("zynVelora: GUI Setup", "zynVelora: Velora Server",
                            "zynVelora: Start Slideshow", "zynVelora: Stop Slideshow",
                            "zynVelora: Modem Window", "zynVelora: Reset Queue",
                            "zynVelora: Disable Plugin", "zynVelora: Enable Plugin",
                            "zynVelora: Test", "zynVelora: Help"));
    PluginHouse hosted;
    hosted.host.set_type_name("Setup");
    hosted.start();
    EXPECT_EQ(hosted.host.menu().front(), "zynVelora: Browser");
    PluginHouse without;
    without.setting("inMenu", "\"0\"");
    without.start();
    EXPECT_THAT(without.host.menu(), IsEmpty());
}

TEST(Lifecycle, HostThatCannotBeReachedIsShownAndRefused) {
    PluginHouse house;
    house.host.become_unreachable();
    house.plugin = std::make_unique<hspi>(house.machine.platform());
    EXPECT_THROW(house.plugin->RegisterCallback(house.host), automation::RunTimeError);
    EXPECT_THAT(house.machine.desktop.messages(), ElementsAre("Unable to access HS interface"));
}

TEST(Lifecycle, GenerationThatLeavesSixteenBitsIsReportedAndTheHouseComesUp) {
    PluginHouse house;
    house.host.set_version("4.1.0");
    house.start();
    EXPECT_THAT(house.host.log(), Contains(AllOf(StartsWith("zynVelora: HostVersionNumber  Line "),
                                                 EndsWith(" Overflow"))));
    EXPECT_THAT(house.plugin->status().flags, Contains("StartupReady"));
}

TEST(Lifecycle, TakenPortIsReportedAndTheUnitsWork) {
    PluginHouse first;
    first.start();
    support::MemoryHost host;
    host.put_setting("Velora Utilities", "ServerPort", "8080");
    host.put_setting("Velora Names", "10.0.0.31", "Attic");
    hspi second(first.machine.platform());
    second.RegisterCallback(host);
    second.InitIO(0);
    EXPECT_THAT(host.log(), Contains(AllOf(StartsWith("zynVelora: Server Form_Load  Line "),
                                           HasSubstr("8080"))));
    EXPECT_THAT(second.status().flags, Contains("StartupReady"));
    EXPECT_THAT(second.status().units, SizeIs(1));
}

TEST(Lifecycle, TemporaryFilesLiveFiveMinutes) {
    PluginHouse house;
    house.start();
    house.machine.files.put("C:\\HomeSeer\\HTML\\VeloraTemp\\old.wav", "x");
    house.run_for(4min);
    EXPECT_TRUE(house.machine.files.FileExists("C:\\HomeSeer\\HTML\\VeloraTemp\\old.wav"));
    house.run_for(3min);
    EXPECT_FALSE(house.machine.files.FileExists("C:\\HomeSeer\\HTML\\VeloraTemp\\old.wav"));
}

TEST(Lifecycle, ReloadKeepsUnitsAndWhatWaitsForThem) {
    PluginHouse house;
    house.start();
    house.machine.units.unit("hall").goes_silent();
    for (const char* state : {"on", "off", "blink"}) {
        house.call("VeloraTopLed", {"hall", state});
    }
    house.setting("CommandRetries", "3");
    house.call("VeloraReloadSettings", {});
    EXPECT_THAT(house.plugin->status().units.at(1).waiting,
                ElementsAre("led.shtml?t0", "led.shtml?t2"));
    house.machine.units.unit("hall").answers();
    house.forget();
    house.run_for(30s);
    EXPECT_THAT(house.requests(), ElementsAre("hall GET /led.shtml?t0", "hall GET /led.shtml?t2"));
}

TEST(Lifecycle, StopEndsTimersAndUnits) {
    PluginHouse house;
    house.start();
    house.machine.units.unit("hall").goes_silent();
    house.call("VeloraTopLed", {"hall", "on"});
    house.plugin->ShutdownIO();
    house.forget();
    house.run_for(1h);
    EXPECT_THAT(house.requests(), IsEmpty());
    EXPECT_THAT(house.plugin->status().timers, IsEmpty());
    house.plugin->ShutdownIO();
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST(Menu, EntriesActOnEveryUnit) {
    PluginHouse house;
    house.start();
    house.plugin->SelectMenu("Disable Plugin");
    EXPECT_EQ(house.text("VeloraTopLed", {"", "on"}).substr(0, 2), "1.");
    house.run_for(1min);
    EXPECT_THAT(house.requests(), IsEmpty());
    house.plugin->SelectMenu("Enable Plugin");
    house.call("VeloraTopLed", {"hall", "on"});
    EXPECT_THAT(house.requests(), ElementsAre("hall GET /led.shtml?t1"));
    house.machine.units.unit("hall").goes_silent();
    house.call("VeloraTopLed", {"hall", "off"});
    house.plugin->SelectMenu("Reset Queue");
    EXPECT_THAT(house.plugin->status().units.at(1).waiting, IsEmpty());
    house.plugin->SelectMenu("Browser");
    house.plugin->SelectMenu("Help");
    house.plugin->SelectMenu("no such entry");
    EXPECT_THAT(house.machine.desktop.pages(),
                ElementsAre("C:\\HomeSeer\\HTML\\Help\\zynVelora\\zynVelora_Readme.htm"));
}

}  // namespace
}  // namespace plugin
