#include <algorithm>

#include "plugin/plugin_house.h"
#include "support/fake_xap_message.h"

namespace plugin {
namespace {

using namespace std::string_literals;
using support::FakeXapMessage;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr const char* kOther = "a.controller.desk";

// The plug-in in the separate xAP program, with three units whose devices begin at ^1, ^11 and ^21.
class XapRoad : public testing::Test {
  protected:
    XapRoad() {
        house.host.set_type_name("Setup");
        house.setting("IncludeHeaderLinks", "0");
        house.machine.files.put_folder("C:\\HomeSeer\\Scripts");
        house.machine.script_services.lend = [this](std::string_view) {
            return house.plugin->object();
        };
    }

    void start() {
        house.start();
        house.run_for(10s);
        house.forget();
    }

    void hear(const FakeXapMessage& message) { house.plugin->VeloraOnXapMessage(message); }

    static FakeXapMessage to(const std::string& target, const std::string& message_class) {
        return {kOther, message_class, target};
    }

    static FakeXapMessage command(const std::string& target, std::vector<std::string> lines) {
        FakeXapMessage message(kOther, "xAPBSC.cmd", target);
        message.block("output.state.1", std::move(lines));
        return message;
    }

    // "xAPBSC.Info kitchen_display.velora_________1.display 01" of what went out.
    [[nodiscard]] std::vector<std::string> sent() const {
        std::vector<std::string> lines;
        for (const auto& message : house.host.xap_messages()) {
            lines.push_back(message.message_class + " " + message.source + " " + message.uid);
        }
        return lines;
    }

    // Takes the words of a device, as a person may who writes the host's fields.
    void clear_lists(std::string_view code) {
        const auto device = house.host.GetDeviceByRef(house.host.DeviceExistsRef(code));
        host::DeviceFields fields = device->fields();
        fields.values.clear();
        fields.buttons.clear();
        device->set_fields(fields);
    }

    PluginHouse house;
};

// --- endpoints ----------------------------------------------------------------------------------

TEST_F(XapRoad, AQueryIsAnsweredInStepsOf200Milliseconds) {
    start();
    hear(to("zyn.zynVelora.desk:>", "xAPBSC.query"));
    EXPECT_THAT(sent(), ElementsAre("xAPBSC.Values kitchen_display.velora_________1.display 01"))
        << "the first one at once";
    house.run_for(199ms);
    EXPECT_THAT(sent(), SizeIs(1));
    house.run_for(1ms);
    EXPECT_THAT(sent(), SizeIs(2));
    house.run_for(400ms);
    EXPECT_THAT(sent(), ElementsAre("xAPBSC.Values kitchen_display.velora_________1.display 01",
                                    "xAPBSC.Info kitchen_display.velora_________1.display 01",
                                    "xAPBSC.Values kitchen_awake.velora_________2.awake 02",
                                    "xAPBSC.Info kitchen_awake.velora_________2.awake 02"));
    constexpr std::size_t kAnswers = 3 * 9 * 2;
    house.run_for(200ms * (kAnswers - 5));
    EXPECT_THAT(sent(), SizeIs(kAnswers - 1));
    house.run_for(1h);
    EXPECT_THAT(sent(), SizeIs(kAnswers));
    EXPECT_EQ(sent().back(), "xAPBSC.Info bedroom_volume.velora________29.volume 1D");
}

TEST_F(XapRoad, AnAnswerTellsValuesAndState) {
    start();
    house.host.devices().SetDeviceStatus("^4", 2);
    house.host.devices().SetDeviceValue("^4", 1);
    hear(to(">:KITCHEN_TopLED.>", "xAPBSC.query"));
    house.run_for(1s);
    ASSERT_THAT(house.host.xap_messages(), SizeIs(2));
    const auto& values = house.host.xap_messages()[0];
    EXPECT_EQ(values.target, "");
    EXPECT_EQ(values.block, "values.1");
    EXPECT_EQ(values.body,
              "Text\1Turn Off Top LED\0Level\1"
              "0/2\n}\nvalues.2\n{\nText=Turn On Top LED\nLevel=1/2"
              "\n}\nvalues.3\n{\nText=Blink Top LED\nLevel=2/2"s);
    const auto& state = house.host.xap_messages()[1];
    EXPECT_EQ(state.block, "output.state");
    EXPECT_THAT(state.body, testing::StartsWith("State\1ON\0DisplayText\1"s));
    EXPECT_THAT(state.body, testing::EndsWith("\0Level\1"s + "1/2"));
}

// A device without values sends none of them until some device of the query had a list; from then
// on it sends an empty one.
TEST_F(XapRoad, TheFirstListOfAQueryDecidesWhatIsSentBehindIt) {
    start();
    clear_lists("^3");
    hear(to(">:>", "xAPBSC.query"));
    house.run_for(1h);
    const auto& messages = house.host.xap_messages();
    EXPECT_THAT(messages, SizeIs(3 * 9 * 2));
    EXPECT_EQ(messages[4].message_class, "xAPBSC.Values");
    EXPECT_EQ(messages[4].body, "");
    EXPECT_THAT(messages[5].body, testing::EndsWith("/3")) << "the divisor of the list before";

    house.forget();
    hear(to(">:kitchen_backlight", "xAPBSC.query"));
    house.run_for(1s);
    EXPECT_THAT(sent(), IsEmpty()) << "no list, no divisor: the query ends";
    EXPECT_THAT(house.host.log(), ElementsAre(HasSubstr("zynVelora: BSCQuery  Line ")));
}

TEST_F(XapRoad, AQueryForNobodyIsNotAnswered) {
    start();
    hear(to("zyn.zynVelora.kitchen", "xAPBSC.query"));
    hear(to(">:cellar", "xAPBSC.query"));
    house.run_for(1s);
    EXPECT_THAT(sent(), IsEmpty());
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST_F(XapRoad, CommandsReachTheEndpointsThatTheyMean) {
    struct Row {
        const char* target;
        const char* id;
        const char* level;
        std::vector<std::string> requests;
    };

    const std::string on = " GET /led.shtml?t1";
    start();
    for (const Row& row : std::vector<Row>{
             {"z:hall_topled.velora________14.topled", "0E", "1/2", {"hall" + on}},
             {"z:hall_topled.velora________14.topled", "0F", "1/2", {}},
             {"z:*.*.topled", "*", "1", {"kitchen" + on, "hall" + on, "bedroom" + on}},
             {"z:>", "0E", "1/2", {}},
             {"z:*.*.topled", "0E", "1", {}},
             {"z:*.*.topled", "04", "1", {"kitchen" + on}},
             {"z", "*", "1", {}},
             {"z:hall_topled", "*", "ON", {"hall GET /led.shtml?t0"}},
         }) {
        house.forget();
        hear(command(row.target, {"ID="s + row.id, "State=on", "Level="s + row.level}));
        house.run_for(10s);
        EXPECT_EQ(house.requests(), row.requests) << row.target << " " << row.id;
    }
}

TEST_F(XapRoad, TheSecondBlockOfACommandIsNumberTwo) {
    start();
    FakeXapMessage message(kOther, "xAPBSC.cmd", "z:*.*.topled");
    message.block("output.state", {"ID=*", "Level=1"})
        .block("output.state.1", {"ID=*", "Level=2"})
        .block("output.state.2", {"ID=*", "Level=0"})
        .block("output.state.4", {"ID=*", "Level=2"});
    hear(message);
    house.run_for(20s);
    EXPECT_THAT(house.requests(), Not(Contains(HasSubstr("t2"))));
    EXPECT_EQ(std::ranges::count(house.requests(), "hall GET /led.shtml?t1"s), 1);
    EXPECT_EQ(std::ranges::count(house.requests(), "hall GET /led.shtml?t0"s), 1);
}

TEST_F(XapRoad, EveryNewStateIsAnEvent) {
    start();
    house.call("VeloraTopLed", {"hall", "blink"});
    ASSERT_THAT(sent(), ElementsAre("xapBSC.Event hall_TopLED.velora________14.TopLED 0E"));
    const auto& event = house.host.xap_messages()[0];
    EXPECT_EQ(event.block, "output.state");
    EXPECT_THAT(event.body, HasSubstr("Top LED Blinking"));
    EXPECT_THAT(event.body, testing::EndsWith("Level\1"s + "0/1"));
}

TEST_F(XapRoad, OutsideItsProgramNothingGoesToTheNetwork) {
    house.host.set_type_name("MemoryHost");
    start();
    house.call("VeloraTopLed", {"hall", "on"});
    hear(FakeXapMessage(kOther, "Homeseer.Control").block("Button.Press", {"Button=x"}));
    hear(
        FakeXapMessage(kOther, "xAP-X10.event").block("xAP-X10.event", {"device=A1", "event=off"}));
    EXPECT_THAT(sent(), IsEmpty());
    EXPECT_THAT(house.host.device_calls(), Not(Contains(HasSubstr("A1"))));
}

// --- what units show and say --------------------------------------------------------------------

TEST_F(XapRoad, ATextAPageOrACallerIsShownOnTheUnitThatIsMeant) {
    start();
    hear(to("zyn.zynVelora.HALL", "xAP-OSD.Display")
             .block("Display.Velora", {"Text=Dinner", "Duration=7", "URL=http://never"}));
    house.run_for(10s);
    EXPECT_THAT(house.requests(), Contains(HasSubstr("hall GET /gotoURL.shtml?M=GOTO_URL")));
    EXPECT_THAT(house.requests(), Not(Contains(HasSubstr("never"))));
    EXPECT_THAT(
        house.machine.files.read("C:\\HomeSeer\\HTML\\VeloraTemp\\VeloraTempFilehall1.html"),
        HasSubstr("Dinner"));
    house.forget();
    hear(to("zyn.zynVelora.kitchen", "xAP-OSD.Display")
             .block("Display.Velora", {"URL=HTTP://menu.html"}));
    house.run_for(10s);
    EXPECT_THAT(house.requests(),
                Contains("kitchen GET /gotoURL.shtml?M=GOTO_URL&S=http://10.0.0.2:8080/menu.html"));
    house.forget();
    hear(to("zyn.zynVelora.cellar", "xAP-OSD.Display").block("Display.Velora", {"Text=x"}));
    house.run_for(10s);
    EXPECT_THAT(house.requests(), IsEmpty());
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST_F(XapRoad, AUnitSpeaksWithTheVoiceAndVolumeThatAreAskedFor) {
    start();
    hear(to("zyn.zynVelora.hall", "tts.speak")
             .block("tts.speak", {"Say=Hello", "Volume=60", "Voice=Microsoft Sam"}));
    house.run_for(30s);
    EXPECT_THAT(house.machine.speech.spoken(), ElementsAre(HasSubstr("Hello | Microsoft Sam | ")));
    EXPECT_THAT(house.requests(),
                ElementsAre("hall GET /volume.shtml?60",
                            HasSubstr("hall GET /loadWav.shtml?http://10.0.0.2")));
    hear(to("*", "xap.voice").block("Voice.Speak", {"say=Bye"}));
    house.run_for(30s);
    EXPECT_THAT(house.machine.speech.spoken(), Contains(HasSubstr("Bye | Microsoft Mary | ")));
    EXPECT_THAT(house.requests(), Contains(HasSubstr("kitchen GET /loadWav"))) << "the first unit";
    const auto count = house.machine.speech.spoken().size();
    hear(to("*", "tts.speak").block("tts.speak", {"volume=60"}));
    EXPECT_EQ(house.machine.speech.spoken().size(), count);
}

// --- calls, X10, the sun and the user's script ---------------------------------------------------

TEST_F(XapRoad, ACallOfTheNetworkIsTakenUntilTheHouseHasToldOne) {
    house.setting("LogCID", "1");
    start();
    const FakeXapMessage call = FakeXapMessage(kOther, "CID.Incoming")
                                    .block("CID.Incoming", {"Name=Anna", "Phone=(503) 555-1234"});
    hear(call);
    EXPECT_THAT(house.host.log(), ElementsAre("zynVelora: (503) 555-1234 : Anna"));
    EXPECT_THAT(sent(), ElementsAre("xapBSC.Event Modem_Switch.Velora_CID____91.Switch 5B"))
        << "it does not go back to the network as a call";
    house.forget();
    house.call("VeloraSendHspCID", {""});
    EXPECT_THAT(sent(), Contains("CID.Incoming  00"));
    house.forget();
    hear(call);
    EXPECT_THAT(house.host.log(), IsEmpty());
    house.call("VeloraReloadSettings", {});
    house.forget();
    hear(call);
    EXPECT_THAT(house.host.log(), ElementsAre("zynVelora: (503) 555-1234 : Anna"));
}

TEST_F(XapRoad, ACallOfTheModemIsAnnounced) {
    house.setting("CIDCommPort", "1");
    start();
    house.machine.serial_ports.receive("NMBR = 5035551234\r\nNAME = P\r\n");
    const auto& messages = house.host.xap_messages();
    const auto call = std::ranges::find(messages, "CID.Incoming"s,
                                        &support::MemoryHost::XapMessage::message_class);
    ASSERT_NE(call, messages.end());
    EXPECT_EQ(call->body,
              "Type\1Voice\0DateTime\1"s + "20261124100010\0Phone\1"s + "5035551234\0"s +
                  "RNNumber\1Withheld\0Formatted_Date\1Tuesday, November 24, 2026\0"s +
                  "Formatted_Time\1"s + "10:00:10 AM\0Name\1Unknown\0RNName\1Withheld"s);
}

TEST_F(XapRoad, X10EventsShowOnPowerAndMotionDevices) {
    start();
    for (const char* code : {"A1", "B2", "C3"}) {
        house.host.put_device(code);
    }
    hear(FakeXapMessage(kOther, "xap-x10.EVENT")
             .block("xAP-X10.event", {"device=a1,B2,C3", "event=On"}));
    EXPECT_THAT(house.host.device_calls(),
                ElementsAre("SetDeviceStatusNoReport A1 2 0", HasSubstr("SetDeviceString A1"),
                            "SetDeviceStatusNoReport B2 2 0", HasSubstr("SetDeviceString B2")));
}

TEST_F(XapRoad, AFilteredMessageReachesTheUsersScript) {
    house.host.put_setting("Received", std::string(kOther) + "~My.Class", "hall;1");
    house.host.put_setting("Devices", "hall", "");
    house.machine.files.write("C:\\HomeSeer\\Scripts\\zynVelora.txt",
                              "Sub Main(tag)\n"
                              "CreateObject(\"zynVelora.hspi\").VeloraTopLed tag, \"on\"\n"
                              "End Sub\n");
    start();
    hear(FakeXapMessage(kOther, "My.Class").block("a", {"b=1"}));
    EXPECT_THAT(house.requests(), IsEmpty()) << "never within the message";
    house.run_for(1s);
    EXPECT_THAT(house.requests(), ElementsAre("hall GET /led.shtml?t1"));
    house.plugin->ShutdownIO();
    EXPECT_THAT(
        house.host.GetIniSetting("Device Messages", "hall.a.b", "", "zynVeloraUtilities.ini"), "1");
}

TEST_F(XapRoad, UnderProtectionRecordedValuesAreStoredEveryFiveMinutes) {
    for (const bool is_protected : {false, true}) {
        house.machine.protection.recorded_values_are_saved = is_protected;
        house.host.put_setting("Received", std::string(kOther) + "~My.Class", "desk;");
        house.host.put_setting("Devices", "desk", "");
        start();
        hear(FakeXapMessage(kOther, "My.Class").block("a", {"b=1"}));
        house.run_for(5min);
        EXPECT_EQ(house.host.GetINISection("Device Messages", "zynVeloraUtilities.ini").empty(),
                  !is_protected);
        house.plugin->ShutdownIO();
        house.host.remove_section("Device Messages");
    }
}

TEST_F(XapRoad, AnItemThatStandsTwiceKeepsAMessageFromBeingActedOn) {
    house.host.put_setting("Received", std::string(kOther) + "~tts.speak", "desk;1");
    house.host.put_setting("Devices", "desk", "");
    start();
    hear(to("*", "tts.speak").block("tts.speak", {"say=Hello", "SAY=again"}));
    EXPECT_THAT(house.machine.speech.spoken(), IsEmpty());
    EXPECT_THAT(house.host.log(), ElementsAre(HasSubstr("zynVelora: OnXapMessage  Line ")));
}

TEST_F(XapRoad, AScriptHandsAMessageInAsItsOwnObject) {
    start();
    house.machine.files.write("C:\\HomeSeer\\Scripts\\zynVelora.txt", R"(
Class Letter
    Public Property Get MsgSource: MsgSource = "a.b.c": End Property
    Public Property Get MsgClass: MsgClass = "tts.speak": End Property
    Public Property Get MsgTarget: MsgTarget = "*": End Property
    Public Property Get MsgSection: MsgSection = Array("tts.speak"): End Property
    Public Function msgCollection(i): msgCollection = Array("say=Hello"): End Function
    Public Function CompareClass(c): CompareClass = (LCase(c) = "tts.speak"): End Function
    Public Function CompareTarget(a): CompareTarget = (a = "zyn.zynVelora.hall"): End Function
    Public Function GetItem(s, k)
        GetItem = "Unknown"
        If s = "tts.speak" And k = "say" Then GetItem = "Hello"
    End Function
End Class
Sub Main(tag)
    CreateObject("zynVelora.hspi").VeloraOnXapMessage New Letter
End Sub
)");
    house.host.put_setting("Received", std::string(kOther) + "~go", "go;1");
    house.host.put_setting("Devices", "go", "");
    house.plugin->ShutdownIO();
    house.start();
    house.run_for(10s);
    hear(FakeXapMessage(kOther, "go"));
    house.run_for(10s);
    EXPECT_THAT(house.machine.speech.spoken(), ElementsAre(HasSubstr("Hello | ")));
}

}  // namespace
}  // namespace plugin
