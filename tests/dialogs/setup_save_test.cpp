#include <algorithm>
#include <map>

#include "automation/run_time_error.h"
#include "dialogs/setup_house.h"

// Which control edits which key, and what "OK" writes, in which order.
namespace dialogs {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Kind = host::DialogControlKind;

const std::vector<std::string> kDefaults = {
    "PhJukeCommandPort=\"1024\"",
    "UDPDelay=",
    "CommandRetries=",
    "UseVeloraServer=\"0\"",
    "DebugLog=\"0\"",
    "ShowSlides=\"0\"",
    "TCPDebug=\"0\"",
    "TCPServerOption=\"0\"",
    "FontColor=\"white\"",
    "PushDelay=\"5\"",
    "HomeseerIP=\"192.168.0.1\"",
    "inMenu=\"1\"",
    "StatusOnly=\"0\"",
    "ServerPort=\"\"",
    "StyleSheet=\"\"",
    "Background=\"\"",
    "CIDSentry=0",
    "GenerateCIDEvent=0",
    "LogCID=0",
    "AcidCIDResponse=0",
    "BrowserCIDResponse=0",
    "SoundCIDResponse=0",
    "CIDCommPort=\"\"",
    "CIDPortString=9600,n,8,1",
    "CIDModemInitString=AT#CID=1",
    "CIDNamePrefix=NAME =",
    "CIDNumberPrefix=NMBR =",
    "CIDEventGroup=",
    "CIDLineNumber=\"1\"",
    "UseHSPPhoneBook=0",
    "UseFriends=0",
    "ExcludeHSPLocation=0",
    "FriendsLocation=",
    "InsertModemCrLf=1",
    "jpg=1",
    "gif=1",
    "bmp=0",
    "TextForeground=Yellow",
    "TextBackground=Blue",
    "TextFontSize=7",
    "TextStyle=Arial",
    "MaxPixels=100000",
    "LEDMotionTime=",
    "SleepMonitorInterval=0",
    "DontRandomize=0",
    "AwakenOnMotion=0",
    "IncludeHeaderLinks=1",
    "StartSlildeshow=0",
    "Wallpaper=0",
    "SlideshowNoMotionTime=0",
    "LinksFile=links_touchscreen.htm",
    "Links=links_touchscreen.htm",
    "ImagePath=",
    "ImageServer=",
    "SlideshowPath=",
    "SlideshowUpdateInterval=20",
    "PowerCycleTime=5",
    "PowerCycleInterval=0",
    "SleepMonitorInterval=0",
    "noResponseAction=0",
    "DefaultPushPage=",
    "PowerUpTime=75",
    "WindowsShare=",
    "T2WVoice=\"Microsoft Mary\"",
    "Sounds=\"0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\"",
    // The section of the units is empty.
    "0SlideASP=,",
    "1SlideASP=,",
    "2SlideASP=,",
    "3SlideASP=,",
    "4SlideASP=,",
    "0ServerPathGroup=",
    "0FolderPathGroup=",
    "5SlideASP=,",
    "6SlideASP=,",
    "7SlideASP=,",
    "8SlideASP=,",
    "9SlideASP=,",
    "1ServerPathGroup=",
    "1FolderPathGroup=",
    "10SlideASP=,",
    "11SlideASP=,",
    "12SlideASP=,",
    "13SlideASP=,",
    "14SlideASP=,",
    "2ServerPathGroup=",
    "2FolderPathGroup=",
};

using SetupSave = SetupHouse;

TEST_F(SetupSave, AnEmptyFileGetsEveryDefaultInOrder) {
    setup_.Load();
    setup_.OKButton_Click();
    EXPECT_THAT(host_.saved_settings(), ElementsAreArray(kDefaults));
    EXPECT_EQ(stored("T2WVoice", "T2W"), "\"Microsoft Mary\"");
    EXPECT_THAT(host_.log(), IsEmpty());
    EXPECT_THAT(calls_, ElementsAre("reload"));
    EXPECT_FALSE(setup_.is_loaded());
}

TEST_F(SetupSave, UnitsAreSavedBetweenTheKeysAndTheSlides) {
    setting("192.168.0.5", "Kitchen", "Velora Names");
    setup_.OKButton_Click();
    const auto& saved = host_.saved_settings();
    const auto unit = std::ranges::find(saved, "192.168.0.5=\"Kitchen,,,,0,0,\"");
    ASSERT_NE(unit, saved.end());
    EXPECT_TRUE((unit - 1)->starts_with("Sounds="));
    EXPECT_TRUE((unit + 1)->starts_with("0SlideASP="));
}

TEST_F(SetupSave, ControlsAreNamedByTheirKeys) {
    const std::map<std::string, std::string> exceptions = {
        {"HomeseerIP", "aHSIP"},  {"CIDLineNumber", "aLineNumber"},
        {"inMenu", "aMenu"},      {"SleepMonitorInterval", "aSleepInterval"},
        {"T2WVoice", "aVoiceCB"}, {"SlideshowUpdateInterval", "aUpdateInterval"},
        {"Sounds", "Check1"},
    };
    for (const host::DialogControl& control : setup_.controls()) {
        if (!control.setting.empty()) {
            const auto exception = exceptions.find(control.setting);
            EXPECT_EQ(control.name,
                      exception == exceptions.end() ? "a" + control.setting : exception->second);
        }
    }
}

// Every value comes back into the file as it was, be it in quotes or not.
TEST_F(SetupSave, WhatIsOpenedIsStoredAgain) {
    setup_.Load();
    for (const host::DialogControl& control : setup_.controls()) {
        if (control.kind == Kind::Text && !control.setting.empty()) {
            setting(control.setting, "\"of " + control.name + "\"",
                    control.setting == "T2WVoice" ? "T2W" : core::kSettingsSection);
        }
    }
    setting("DebugLog", "\"1\"");
    setting("jpg", "0");
    setting("StatusOnly", "True");
    setting("TCPServerOption", "\"1\"");
    setting("Sounds", "\"1,0,1\"");
    setting("14SlideASP", "\"pictures\\late.htm,12\"");
    setting("2FolderPathGroup", "D:\\pictures");
    setup_.open();
    EXPECT_EQ(setup_.Text({"aVoiceCB"}), "of aVoiceCB");
    EXPECT_TRUE(setup_.Value({"Check1", 2}));
    EXPECT_EQ(setup_.Text({"aDwell", 14}), "12");
    host_.forget();
    setup_.OKButton_Click();
    for (const char* line :
         {"FontColor=\"of aFontColor\"", "TextStyle=of aTextStyle", "T2WVoice=\"of aVoiceCB\"",
          "DebugLog=\"1\"", "jpg=0", "StatusOnly=\"1\"", "TCPServerOption=\"1\"",
          "Sounds=\"1,0,1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\"", "14SlideASP=pictures\\late.htm,12",
          "2FolderPathGroup=D:\\pictures"}) {
        EXPECT_THAT(host_.saved_settings(), Contains(line));
    }
}

TEST_F(SetupSave, TextsThatWouldBreakALineAreCleanedUnderTheProtectionAlone) {
    const std::string broken = "white\r\nPassword=x\"";
    for (const bool is_protected : {false, true}) {
        if (is_protected) {
            protect();
        }
        setup_.open();
        setup_.set_Text({"aFontColor"}, broken);
        setup_.set_Text({"aSlideASP", 0}, "a\tb");
        setup_.OKButton_Click();
        EXPECT_EQ(stored("FontColor"), is_protected ? "\"whitePassword=x\"" : "\"" + broken + "\"");
        EXPECT_EQ(stored("0SlideASP"), is_protected ? "ab," : "a\tb,");
    }
}

}  // namespace
}  // namespace dialogs
