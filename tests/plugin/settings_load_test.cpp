#include <set>
#include <string>
#include <vector>

#include "plugin/plugin_house.h"
#include "plugin/setting_steps.h"
#include "plugin/subsystems.h"

namespace plugin {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

// The settings load alone, without the entry class around it.
class SettingsLoad : public testing::Test {
  protected:
    SettingsLoad() {
        machine_.files.put_folder("C:\\HomeSeer\\HTML");
        parts_.instance.attach(host_, &host_);
        parts_.instance.application_path = host_.GetAppPath();
    }

    void set(std::string_view key, std::string_view value) {
        host_.put_setting("Velora Utilities", key, value);
    }

    const core::UtilitySettings& load() {
        host_.forget();
        parts_.settings.InitVeloraUtilities();
        return parts_.instance.settings;
    }

    support::FakeMachine machine_;
    support::MemoryHost host_;
    Subsystems parts_{machine_.platform()};
};

TEST_F(SettingsLoad, EmptyFileYieldsTheDefaults) {
    const core::UtilitySettings& settings = load();
    EXPECT_EQ(settings.LastPowerCycleHour, -1);
    EXPECT_FALSE(settings.UseOwnServer);
    EXPECT_EQ(settings.HomeseerPort, "81");
    EXPECT_EQ(settings.HomeseerIP, "192.168.0.1");
    EXPECT_EQ(settings.CIDNumberPrefix, "NMBR =");
    EXPECT_EQ(settings.PowerCycleTime, 5000);
    EXPECT_EQ(settings.PowerUpTime, 75000);
    EXPECT_EQ(settings.PowerCycleInterval, "0");
    EXPECT_EQ(settings.LEDMotionTime, 999999);
    EXPECT_EQ(settings.SlideshowUpdateSeconds, 20);
    EXPECT_EQ(settings.SlideshowStaleMinutes, 2);
    EXPECT_EQ(settings.T2WVoice, "Microsoft Mary");
    EXPECT_FALSE(settings.StartSlildeshow);
    EXPECT_TRUE(settings.jpg);
    EXPECT_FALSE(settings.bmp);
    EXPECT_TRUE(machine_.files.FolderExists("C:\\HomeSeer\\HTML\\VeloraTemp"));
    EXPECT_THAT(host_.log(),
                ElementsAre("zynVelora: Slideshow path has not been specified",
                            "zynVelora: User Configuration Setup Initialization Complete"));
    EXPECT_THAT(machine_.files.read("C:\\HomeSeer\\Data\\zynVelora\\StartupLog.txt"),
                EndsWith(" | InitUtilities | 170\r\n"));
}

TEST_F(SettingsLoad, EveryStepHasAKeyOfItsOwnAndTheOrderHolds) {
    std::vector<std::string> keys;
    for (const SettingStep& step : setting_steps()) {
        if (!step.key.empty()) {
            keys.emplace_back(step.key);
        }
    }
    EXPECT_EQ(std::set<std::string>(keys.begin(), keys.end()).size(), keys.size());
    EXPECT_EQ(keys.size(), 62U);
    EXPECT_EQ(keys.front(), "LastPowerCycleHour");
    EXPECT_EQ(keys.back(), "Sounds");
}

TEST_F(SettingsLoad, QuotesBlanksAndBadNumbers) {
    set("PushDelay", "\"5\"");
    set("SlideshowUpdateInterval", "-5");
    set("MaxPixels", "abc");
    set("PowerCycleInterval", "0, 12");
    set("FriendsLocation", "C:\\Data");
    set("jpg", "-1");
    set("LastPowerCycleHour", "none");
    set("Sounds", "1,0,1");
    const core::UtilitySettings& settings = load();
    EXPECT_EQ(settings.PushDelay, 5);
    EXPECT_EQ(settings.SlideshowUpdateInterval, "20");
    EXPECT_EQ(settings.MaxPixels, 100000);
    EXPECT_EQ(settings.PowerCycleInterval, "0,12");
    EXPECT_EQ(settings.FriendsLocation, "C:\\Data\\");
    EXPECT_TRUE(settings.jpg);
    EXPECT_EQ(settings.LastPowerCycleHour, 9) << "it is ten o'clock";
    EXPECT_TRUE(settings.SoundButtonEnabled[0] && settings.SoundButtonEnabled[2]);
    EXPECT_FALSE(settings.SoundButtonEnabled[1] || settings.SoundButtonEnabled[18]);
}

TEST_F(SettingsLoad, FailedStepIsReportedKeepsItsFieldAndTheLoadGoesOn) {
    set("PowerCycleTime", "32");
    set("PowerUpTime", "90");
    EXPECT_EQ(load().PowerCycleTime, 32000);
    set("PowerCycleTime", "33");
    set("PowerUpTime", "soon");
    set("StatusOnly", "perhaps");
    set("CommandRetries", "3");
    const core::UtilitySettings& settings = load();
    EXPECT_EQ(settings.PowerCycleTime, 32000);
    EXPECT_EQ(settings.PowerUpTime, 90000);
    EXPECT_EQ(settings.CommandRetries, 3);
    EXPECT_THAT(
        host_.log(),
        ElementsAre(
            AllOf(StartsWith("zynVelora: InitVeloraUtilities  Line "), EndsWith(" Type mismatch")),
            HasSubstr("Slideshow path"), EndsWith(" Overflow"), EndsWith(" Overflow"),
            "zynVelora: Removing virtual device [61", HasSubstr("Complete")));
}

TEST_F(SettingsLoad, ChoosesTheServerWhosePortUnitsAreGiven) {
    host_.put_setting("Settings", "svrport", "\"90\"", "settings.ini");

    const struct {
        const char *option, *port;
        bool own;
        const char* unit_port;
    } rows[] = {{"0", "8080", true, "8080"},
                {"1", "8080", false, "90"},
                {"0", "", false, "90"},
                {"0", "http", false, "90"}};

    for (const auto& row : rows) {
        set("TCPServerOption", row.option);
        set("ServerPort", row.port);
        EXPECT_EQ(load().UseOwnServer, row.own) << row.option << row.port;
        EXPECT_EQ(parts_.instance.settings.unit_port(), row.unit_port);
    }
}

TEST_F(SettingsLoad, TraceOfTheServerIsStartedOnlyWithIt) {
    set("TCPDebug", "True");
    EXPECT_FALSE(load().TCPDebug);
    set("ServerPort", "8080");
    EXPECT_TRUE(load().TCPDebug);
    EXPECT_TRUE(
        machine_.files.FileExists("C:\\HomeSeer\\Data\\zynVelora\\zynVelora_TCPServerDebug.txt"));
}

TEST_F(SettingsLoad, PathsThatAreNotThereAreReportedAndDropped) {
    machine_.files.put("C:\\HomeSeer\\HTML\\start.htm", "");
    machine_.files.put_folder("C:\\HomeSeer\\HTML\\pictures\\summer");
    set("DefaultPushPage", "C:\\Host\\HTML\\start.htm");
    set("SlideshowPath", "pictures/summer");
    set("StartSlildeshow", "1");
    set("WindowsShare", "\\\\unit\\share");
    set("3SlideASP", "pictures\\summer,12");
    set("7SlideASP", "clock.asp,x");
    const core::UtilitySettings& settings = load();
    EXPECT_EQ(settings.DefaultPushPage, "\\start.htm");
    EXPECT_TRUE(settings.StartSlildeshow);
    EXPECT_EQ(settings.ImageServer, "http://192.168.0.1:81");
    EXPECT_EQ(settings.WindowsShare, "");
    EXPECT_EQ(settings.slide_groups[0].rows[3].SlideDwell, 12);
    EXPECT_EQ(settings.slide_groups[1].rows[2].SlideDwell, 30);
    EXPECT_EQ(settings.slide_groups[1].GroupFolder, "C:\\HomeSeer\\HTML");
    EXPECT_THAT(
        host_.log(),
        ElementsAre("zynVelora: File share with Velora in folder \\\\unit\\share does not exist",
                    "zynVelora: Slideshow Group 2 file or folder C:\\HomeSeer\\HTML\\clock.asp "
                    "does not exist",
                    HasSubstr("Complete")));
    set("SlideshowPath", "nowhere");
    set("DefaultPushPage", "gone.htm");
    load();
    EXPECT_FALSE(settings.StartSlildeshow);
    EXPECT_EQ(settings.DefaultPushPage, "");
    EXPECT_THAT(host_.log(), Contains("zynVelora: Slideshow path C:\\HomeSeer\\HTML\\nowhere "
                                      "does not exist"));
}

TEST_F(SettingsLoad, FullDiskCostsTheStartupLogAndNothingElse) {
    set("CommandRetries", "3");
    machine_.files.fail_after(0, automation::ErrorNumber::DiskFull);
    EXPECT_EQ(load().CommandRetries, 3);
    EXPECT_THAT(host_.log(), Contains(StartsWith("zynVelora: InitVeloraUtilities  Line ")));
}

TEST_F(SettingsLoad, CallerDeviceDependsOnTheHostsVersion) {
    parts_.instance.HostIsV2 = true;
    parts_.instance.HostVersionNumber = 16099;
    load();
    EXPECT_TRUE(host_.has_device("[61"));
    parts_.instance.HostVersionNumber = 16100;
    load();
    EXPECT_EQ(parts_.instance.settings.CIDDeviceCode, "[91");
    EXPECT_TRUE(host_.has_device("[91"));
}

}  // namespace
}  // namespace plugin
