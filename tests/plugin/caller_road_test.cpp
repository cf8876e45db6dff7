#include <algorithm>

#include "plugin/plugin_house.h"
#include "support/fake_phone.h"
#include "udp/datagram.h"

namespace plugin {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr std::int32_t kClientPort = 4550;

// A call on its way through the whole plug-in: the attic wants callers and runs a client program,
// and so does a desktop; the kitchen does neither.
class CallerRoad : public testing::Test {
  protected:
    CallerRoad() {
        house.add_unit("10.0.0.24/attic", "Attic,,,,0,1");
        house.setting("CIDCommPort", "1");
        house.setting("IncludeHeaderLinks", "0");
        house.setting("useHSPPhoneBook", "1");
        for (const char* key : {"AcidCIDResponse", "CIDSentry", "SoundCIDResponse",
                                "BrowserCIDResponse", "LogCID", "GenerateCIDEvent"}) {
            house.setting(key, "1");
        }
        phone.book = {support::person("Anna", "Smith", {.home = "5035551234"})};
        house.host.install_phone(&phone);
    }

    void start() {
        house.start();
        attic.send(support::MemoryNetwork::kHouse, kClientPort, "\1");
        desktop.send(support::MemoryNetwork::kHouse, kClientPort, "\1");
        house.run_for(10s);
        house.forget();
    }

    void modem_says(std::string_view text) {
        house.machine.serial_ports.receive(text);
        house.run_for(2s);
    }

    static std::string call(const std::string& name, const std::string& number) {
        return udp::make_datagram(udp::Message::Caller, name, number);
    }

    [[nodiscard]] std::string device_call(std::string_view start) const {
        for (const std::string& text : house.host.device_calls()) {
            if (text.starts_with(start)) {
                return text;
            }
        }
        return {};
    }

    support::FakePhone phone;
    PluginHouse house;
    support::UdpPeer& attic = house.machine.network.udp("10.0.0.24", kClientPort);
    support::UdpPeer& desktop = house.machine.network.udp("10.0.0.90", kClientPort);
};

TEST_F(CallerRoad, ACallOfTheModemReachesEveryDestinationInItsOrder) {
    start();
    modem_says("RING\r\nNMBR = 5035551234\r\nNAME = SMITH A\r\n");
    EXPECT_THAT(device_call("SetDeviceString [91"),
                HasSubstr("(503) 555-1234 : Anna Smith from home"));
    EXPECT_THAT(house.host.device_calls(), Contains("SetDeviceStatus [91 2"));
    EXPECT_THAT(attic.received(), ElementsAre(call("Anna Smith/home", "(503) 555-1234")));
    EXPECT_THAT(desktop.received(), ElementsAre(call("Anna Smith/home", "(503) 555-1234")));
    EXPECT_THAT(house.machine.speech.spoken(),
                ElementsAre(HasSubstr("Phone from Anna Smith from home")));
    house.run_for(20s);
    const std::vector<std::string> asked = house.requests();
    const auto place_of = [&](const char* text) {
        return std::ranges::find_if(
                   asked,
                   [&](const std::string& line) { return line.find(text) != std::string::npos; }) -
               asked.begin();
    };
    EXPECT_LT(place_of("attic GET /loadWav"), place_of("attic GET /gotoURL"));
    EXPECT_LT(place_of("attic GET /gotoURL"), std::ssize(asked));
    EXPECT_THAT(asked, Not(Contains(HasSubstr("kitchen"))));
    EXPECT_THAT(
        house.machine.files.read("C:\\HomeSeer\\HTML\\VeloraTemp\\VeloraTempFileattic1.html"),
        HasSubstr("Anna Smith from home<BR>(503) 555-1234<BR>"));
    EXPECT_EQ(house.host.log().back(), "zynVelora: (503) 555-1234 : Anna Smith from home");
    EXPECT_THAT(house.host.device_calls(), Contains("SetDeviceStatus [91 3"))
        << "ten seconds later";
}

TEST_F(CallerRoad, ANameAloneIsACallAfterHalfASecond) {
    start();
    house.machine.serial_ports.receive("NAME = OUT OF AREA\r\n");
    house.run_for(499ms);
    EXPECT_THAT(desktop.received(), IsEmpty());
    house.run_for(2ms);
    EXPECT_THAT(desktop.received(), ElementsAre(call("Unknown", "")));
}

TEST_F(CallerRoad, WithoutAUnitThatWantsCallersAllUnitsGetTheCall) {
    house.add_unit("10.0.0.24/attic", "Attic,,,,0,");
    start();
    modem_says("NMBR = 911\r\nNAME = X\r\n");
    house.run_for(20s);
    EXPECT_THAT(house.requests(), Contains(HasSubstr("kitchen GET /loadWav")));
    EXPECT_THAT(house.requests(), Contains(HasSubstr("attic GET /loadWav")));
}

TEST_F(CallerRoad, TheAddOnsCallGoesToClientsOfUnitsAndToTheSentry) {
    phone.number = "5035551234";
    phone.name = "SMITH A";
    start();
    EXPECT_EQ(house.text("VeloraSendHspCID", {""}), "");
    house.run_for(20s);
    EXPECT_THAT(attic.received(), ElementsAre(call("Anna Smith/home", "(503) 555-1234")));
    EXPECT_THAT(desktop.received(), ElementsAre(call("Anna Smith from home", "(503) 555-1234")));
    EXPECT_THAT(house.machine.speech.spoken(), ElementsAre(HasSubstr(" Anna Smith from home | ")));
    EXPECT_THAT(
        house.machine.files.read("C:\\HomeSeer\\HTML\\VeloraTemp\\VeloraTempFileattic1.html"),
        HasSubstr("(503) 555-1234 <BR> Anna Smith from home<BR>"));
    EXPECT_EQ(house.host.log().back(), "zynVelora: (503) 555-1234 : Anna Smith from home");
}

// Nobody is asked for the client's address, and the last unit wants callers.
TEST_F(CallerRoad, TheCarriedFlagSendsToEveryClientWhenNoUnitWasServed) {
    house.setting("AcidCIDResponse", "0");
    house.setting("CIDSentry", "0");
    start();
    house.call("VeloraSendHspCID", {""});
    house.run_for(1s);
    EXPECT_EQ(attic.received().size(), 1U);
    EXPECT_EQ(desktop.received().size(), 1U);
    house.call("VeloraSendHspCID", {"kitchen"});
    house.run_for(1s);
    EXPECT_EQ(attic.received().size(), 1U) << "a list leaves the flag clear";
}

TEST_F(CallerRoad, ASoundOfThePhonebookIsPlayedInPlaceOfSpeech) {
    phone.book.front().announce_local_wav = "C:\\HomeSeer\\HTML\\anna.wav";
    phone.number = "5035551234";
    house.machine.files.put("C:\\HomeSeer\\HTML\\anna.wav", std::string(100, 'w'));
    start();
    house.call("VeloraSendHspCID", {""});
    house.run_for(20s);
    EXPECT_THAT(house.machine.speech.spoken(), IsEmpty());
    EXPECT_THAT(house.requests(), Contains(HasSubstr("attic GET /loadWav")));
    EXPECT_EQ(house.machine.files.read("C:\\HomeSeer\\HTML\\VeloraTemp\\VeloraTempFileattic1.wav"),
              std::string(100, 'w'));
}

TEST_F(CallerRoad, WithoutTheAddOnTheFixedCallerIsShown) {
    house.setting("useHSPPhoneBook", "0");
    start();
    house.call("VeloraSendHspCID", {""});
    EXPECT_EQ(house.host.log().back(), "zynVelora: (123) 456-7890 : HSP Not Available");
}

TEST_F(CallerRoad, ScriptsSendCallersThemselves) {
    start();
    EXPECT_EQ(house.text("VeloraSendCIDEx", {"attic;Ann;1"}), "");
    EXPECT_EQ(house.text("VeloraSendCIDEx", {"Ann;1"}), "") << "too few parts do nothing";
    EXPECT_EQ(house.text("VeloraSendCIDEx", {"attic;Ann;1;x"}), "") << "and so do too many";
    EXPECT_EQ(house.text("SendCID", {"p", "1"}), "Send CID data to all defined clients");
    house.run_for(20s);
    EXPECT_THAT(desktop.received(), ElementsAre(call("Private Caller", "1")));
    EXPECT_THAT(attic.received(),
                testing::UnorderedElementsAre(call("Private Caller", "1"), call("Ann", "1")));
}

TEST_F(CallerRoad, TheModemWindowShowsACallOfItsOwnWhileDebugging) {
    house.setting("DebugLog", "1");
    start();
    house.plugin->SelectMenu("Modem Window");
    house.run_for(1s);
    EXPECT_THAT(house.plugin->modem_echo().data, HasSubstr("Name=Jonah Brandt"));
    EXPECT_THAT(desktop.received(), ElementsAre(call("Jonah Brandt", "(123) 456-7890")));
}

}  // namespace
}  // namespace plugin
