#include "plugin/plugin_house.h"

namespace plugin {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;

using Arguments = std::vector<automation::Value>;
using Requests = std::vector<std::string>;

struct CommandRow {
    std::string operation;
    Arguments arguments;
    Requests requests;  // first ones that leave, all units idle before
};

const CommandRow kCommands[] = {
    {"VeloraSleep", {"hall", "sleep"}, {"hall GET /screen.shtml?0"}},
    {"VeloraTopLed",
     {"", "blink"},
     {"kitchen GET /led.shtml?t2", "hall GET /led.shtml?t2", "bedroom GET /led.shtml?t2"}},
    {"VeloraMailLed", {"10.0.0.22", "off"}, {"hall GET /led.shtml?m0"}},
    {"VeloraTopLed",
     {"hall kitchen", "on"},
     {"hall GET /led.shtml?t1", "kitchen GET /led.shtml?t1"}},
    {"VeloraTopLed",
     {"Hall, nobody ,KITCHEN", "on"},
     {"hall GET /led.shtml?t1", "kitchen GET /led.shtml?t1"}},
    {"VeloraLED", {"hall", "MAIL blinking"}, {"hall GET /led.shtml?m2"}},
    {"VeloraLED", {"hall", "top off"}, {"hall GET /led.shtml?t0"}},
    {"VeloraLED", {"hall", "shine"}, {"hall GET /led.shtml?t1", "hall GET /led.shtml?m1"}},
    {"VeloraSounds", {"hall", 3}, {"hall GET /beep.shtml?0 3"}},
    {"VeloraSounds", {"hall", "3.5"}, {"hall GET /beep.shtml?0 4"}},
    {"VeloraSoundsVolume", {"hall", 40}, {"hall GET /beep.shtml?4 40"}},
    {"VeloraVolume", {"hall", 40}, {"hall GET /volume.shtml?40"}},
    {"VeloraScreen", {"hall", "off"}, {"hall GET /scrOff.shtml"}},
    {"VeloraBacklight", {"hall", "ON"}, {"hall GET /scrOn.shtml"}},
    {"VeloraRefreshSleepStatus", {"hall"}, {"hall GET /screen.shtml?p"}},
    {"VeloraToggleBrowserFullscreen", {"hall"}, {"hall GET /cgi-bin/firef4"}},
    {"VeloraSetBrowserScreen", {"hall", "False"}, {}},
    {"VeloraSetBrowserScreen", {"hall", true}, {"hall GET /cgi-bin/firef4"}},
    {"VeloraWav", {"hall", "ding.wav"}, {"hall GET /loadWav.shtml?http://10.0.0.2:8080/ding.wav"}},
    {"VeloraPushPage",
     {"hall", "a.htm"},
     {"hall GET /screen.shtml?1",
      "hall GET /gotoURL.shtml?M=GOTO_URL&S=http://10.0.0.2:8080/a.htm"}},
    {"VeloraPushIISPage",
     {"hall", "x/a.htm"},
     {"hall GET /screen.shtml?1", "hall GET /gotoURL.shtml?M=GOTO_URL&S=http://x/a.htm"}},
    {"VeloraPushFullscreen",
     {"hall", "a.htm"},
     {"hall GET /screen.shtml?1", "hall GET /gotoURL.shtml?M=GOTO_URL&S=http://10.0.0.2:8080/a.htm",
      "hall GET /cgi-bin/firef4"}},
    {"VeloraText",
     {"hall", "Hi"},
     {"hall GET /screen.shtml?1",
      "hall GET /gotoURL.shtml?M=GOTO_URL&S=http://10.0.0.2:8080/VeloraTemp/"
      "VeloraTempFilehall1.html",
      "hall GET /screen.shtml?1"}},
    {"VeloraExecute", {"hall", "reboot"}, {}},
    {"VeloraSendCommand", {"hall", "word", "parameter", ""}, {}},

    {"VeloraTopLedEx", {"hall;on;off"}, {"hall GET /led.shtml?t0"}},
    {"VeloraTopLedEx",
     {"on"},
     {"kitchen GET /led.shtml?t1", "hall GET /led.shtml?t1", "bedroom GET /led.shtml?t1"}},
    {"VeloraSleepEx", {"hall;sleep"}, {}},
    {"VeloraLEDEx", {"hall;mail off"}, {"hall GET /led.shtml?t1", "hall GET /led.shtml?m1"}},
    {"VeloraWavEx", {"hall;5 bells.wav"}, {"hall GET /loadWav.shtml?http://10.0.0.2:8080/5"}},
    {"VeloraSoundsEx", {"hall;12 bells"}, {"hall GET /beep.shtml?0 12"}},
    {"VeloraVolumeEx", {"hall;loud"}, {"hall GET /volume.shtml?0"}},
    {"VeloraSoundsVolumeEx", {"hall; 2.5"}, {"hall GET /beep.shtml?4 2"}},
    {"VeloraSetBrowserScreenEx", {"hall;1"}, {"hall GET /cgi-bin/firef4"}},
    {"VeloraPushPageEx", {";a.htm"}, {}},
    {"VeloraPushIISPageEx",
     {"hall;x/a.htm"},
     {"hall GET /screen.shtml?1", "hall GET /gotoURL.shtml?M=GOTO_URL&S=http://x/a.htm"}},
    {"VeloraPushFullscreenEx",
     {"hall;a.htm"},
     {"hall GET /screen.shtml?1", "hall GET /gotoURL.shtml?M=GOTO_URL&S=http://10.0.0.2:8080/a.htm",
      "hall GET /cgi-bin/firef4"}},
    {"VeloraTextEx",
     {"hall;Hi;there"},
     {"hall GET /screen.shtml?1",
      "hall GET /gotoURL.shtml?M=GOTO_URL&S=http://10.0.0.2:8080/VeloraTemp/"
      "VeloraTempFilehall1.html",
      "hall GET /screen.shtml?1"}},
    {"VeloraSendCommandEx", {"hall;a;b"}, {}},
};

TEST(Operations, EachSendsItsPages) {
    for (const CommandRow& row : kCommands) {
        PluginHouse house;
        house.start();
        house.call(row.operation, row.arguments);
        house.run_for(20s);
        auto requests = house.requests();
        if (row.operation == "VeloraPushPageEx") {
            EXPECT_EQ(requests.size(), 6U) << "two pages at each of three units";
            continue;
        }
        EXPECT_THAT(requests, ElementsAreArray(row.requests)) << row.operation;
    }
}

TEST(Operations, UnreachableUnitBlanksTheTagWhileTheOthersGetTheCommand) {
    PluginHouse house;
    house.start();
    house.host.ExecX10("A1", "off");
    EXPECT_EQ(house.text("VeloraTopLed", {"", "on"}), "");
    EXPECT_THAT(house.requests(),
                ElementsAre("hall GET /led.shtml?t1", "bedroom GET /led.shtml?t1"));
    EXPECT_EQ(house.text("VeloraSpeak", {"", "Hello"}), "");
    EXPECT_EQ(house.text("VeloraTopLed", {"nobody", "on"}).substr(0, 2), "1.");
}

TEST(Operations, TagOfAnOperationIsNotTheQueues) {
    PluginHouse house;
    house.start();
    house.machine.units.unit("hall").goes_silent();
    const std::string tag = house.text("VeloraTopLed", {"hall", "on"});
    EXPECT_EQ(house.text("VeloraCommandBusy", {"hall", tag}), "False");
    EXPECT_EQ(house.text("VeloraCommandBusyEx", {"hall;"}), "True");
}

TEST(Operations, SpeechIsMadeOnceAndOnlyTheFirstSemicolonCuts) {
    PluginHouse house;
    house.start();
    house.call("VeloraSpeakEx", {"Kitchen;Hello; there"});
    EXPECT_THAT(house.machine.speech.spoken(),
                ElementsAre("Hello; there | Microsoft Mary | "
                            "C:\\HomeSeer\\HTML\\VeloraTemp\\VeloraTempFile1.wav"));
    EXPECT_THAT(house.requests(),
                ElementsAre("kitchen GET /loadWav.shtml?http://10.0.0.2:8080/VeloraTemp/"
                            "VeloraTempFile1.wav"));
    EXPECT_EQ(house.text("VeloraIsSpeaking", {""}), "True");
    house.run_for(1s);
    EXPECT_EQ(house.text("VeloraIsSpeaking", {""}), "False");
    EXPECT_EQ(house.text("VeloraTextToWav", {"x"}), "VeloraTempFile2.wav");
}

TEST(Operations, FailedSpeechIsOneLineAndTheSendGoesOn) {
    PluginHouse house;
    house.start();
    house.forget();
    house.machine.speech.fail_with(automation::ErrorNumber::DiskFull);
    EXPECT_EQ(house.text("VeloraSpeak", {"hall", "Hello"}).substr(0, 2), "1.");
    EXPECT_THAT(house.host.log(), ElementsAre(testing::StartsWith("zynVelora: SpeakToFile Line ")));
    EXPECT_EQ(house.requests().size(), 1U);
}

struct ReaderRow {
    const char* operation;
    const char* before;
    const char* after;  // the hall has been asked for sleep, 30 % volume and lit LEDs
    const char* nobody;
};

TEST(Operations, ReadersTellTheFieldOrTheEmptyValue) {
    constexpr ReaderRow kRows[] = {
        {"VeloraSleepStatus", "awake", "sleep", ""},
        {"VeloraTopLEDStatus", "off", "blink", ""},
        {"VeloraMailLEDStatus", "off", "on", ""},
        {"VeloraVolumeStatus", "-1", "30", "0"},
        {"VeloraSoundsVolumeStatus", "50", "20", "0"},
        {"VeloraSlideshowStatus", "False", "False", "False"},
        {"VeloraPluginDisableStatus", "False", "True", "False"},
        {"VeloraGetSlideGroup", "0", "2", "0"},
    };
    PluginHouse house;
    house.start();
    for (const ReaderRow& row : kRows) {
        EXPECT_EQ(house.text(row.operation, {"hall"}), row.before) << row.operation;
    }
    house.call("VeloraTopLed", {"hall", "blink"});
    house.call("VeloraMailLed", {"hall", "on"});
    house.call("VeloraVolume", {"hall", 30});
    house.call("VeloraSoundsVolume", {"hall", 20});
    house.call("VeloraSleep", {"hall", "SLEEP"});
    house.call("VeloraSetSlideGroupEx", {"hall;2"});
    house.call("VeloraPluginDisableEx", {"hall;1"});
    for (const ReaderRow& row : kRows) {
        EXPECT_EQ(house.text(row.operation, {" Hall "}), row.after) << row.operation;
        EXPECT_EQ(house.text(row.operation, {"nobody"}), row.nobody) << row.operation;
    }
    EXPECT_EQ(house.text("VeloraTopLEDStatus", {""}), "off") << "the first unit";
    EXPECT_THROW(house.call("VeloraBacklightStatus", {"hall"}), automation::RunTimeError);
    EXPECT_EQ(house.text("VeloraBacklightStatus", {"nobody"}), "");
}

TEST(Operations, NamesAndAddressesFindEachOther) {
    PluginHouse house;
    house.start();
    EXPECT_EQ(house.text("VeloraNames", {}), "kitchen,hall,bedroom");
    EXPECT_EQ(house.text("VELORAIPS", {}), "10.0.0.21,10.0.0.22,10.0.0.23");
    EXPECT_EQ(house.text("VeloraIP", {" HALL "}), "10.0.0.22");
    EXPECT_EQ(house.text("VeloraIP", {"nobody"}), "");
    EXPECT_EQ(house.text("VeloraIPLookup", {" 10.0.0.23 "}), "bedroom");
}

TEST(Operations, WrongArgumentsReachTheCallerAndChangeNothing) {
    PluginHouse house;
    house.start();

    const struct {
        const char* operation;
        Arguments arguments;
        const char* error;
    } rows[] = {
        {"VeloraVolume", {"hall", "loud"}, "Type mismatch: 'iVolume'"},
        {"VeloraVolume", {"hall", 40000}, "Overflow: 'iVolume'"},
        {"VeloraVolume", {"hall"}, "wanted VeloraVolume(whichVeloras, iVolume)"},
        {"VeloraSetBrowserScreenEx", {"hall;perhaps"}, "Type mismatch"},
        {"VeloraNoSuchThing", {}, "'VeloraNoSuchThing'"},
    };

    for (const auto& row : rows) {
        try {
            house.call(row.operation, row.arguments);
            ADD_FAILURE() << row.operation;
        } catch (const automation::RunTimeError& error) {
            EXPECT_THAT(error.description(), HasSubstr(row.error));
        }
    }
    EXPECT_THAT(house.requests(), IsEmpty());
}

TEST(Operations, CoordinationEndsAShowOrPutsTheLightsOut) {
    PluginHouse house;
    house.add_unit("10.0.0.24/attic", "Attic,,,,1");
    house.start();
    EXPECT_EQ(house.text("VeloraSlideshowCoordination", {"10.0.0.24", "next"}), "True");
    EXPECT_EQ(house.text("VeloraSlideshowStatus", {"attic"}), "True");
    EXPECT_EQ(house.text("VeloraTopLEDStatus", {"attic"}), "Off");
    EXPECT_EQ(house.text("VeloraMailLEDStatus", {"attic"}), "off");
    EXPECT_EQ(house.text("VeloraSlideshowCoordination", {"10.0.0.24", "links"}), "False");
    EXPECT_EQ(house.text("VeloraSlideshowStatus", {"attic"}), "False");
    house.plugin->SelectMenu("Stop Slideshow");
    EXPECT_EQ(house.text("VeloraSlideshowCoordination", {"10.0.0.24", "next"}), "False");
}

TEST(Operations, HostFindsTheIdentityByName) {
    PluginHouse house;
    house.start();

    const struct {
        const char *operation, *answer;
    } rows[] = {{"AccessLevel", "1"},
                {"Capabilities", "4"},
                {"Name", "zynVelora"},
                {"InterfaceStatus", "0"},
                {"MaxKeys", "25"},
                {"MaxDevices", "10"},
                {"MaxZones", "1"},
                {"HasOptions", "True"},
                {"IRPortType", "1"},
                {"SupportsActionUI", "False"},
                {"Version", "1.0.0/C:\\HomeSeer1.0.0"}};

    for (const auto& row : rows) {
        EXPECT_EQ(house.text(row.operation, {}), row.answer) << row.operation;
    }
}

}  // namespace
}  // namespace plugin
