#include "plugin/plugin_house.h"

// Texts to the units' music players, and the self-test, as scripts and menus start them.
namespace plugin {
namespace {

using support::TcpPeerServer;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class JukeboxOperation : public testing::Test {
  protected:
    JukeboxOperation() {
        house_.machine.protection.self_test_leaves_the_queue_room = true;
        house_.machine.files.put("C:\\HomeSeer\\HTML\\links_touchscreen.htm", "");
        house_.setting("PhJukeCommandPort", "1025");
        house_.start();
        house_.run_for(20s);
        house_.forget();
    }

    TcpPeerServer& player_at(const char* address) {
        return house_.machine.network.serve(address, 1025);
    }

    PluginHouse house_;
};

TEST_F(JukeboxOperation, ReachesTheSelectedUnitsWithOrWithoutPower) {
    TcpPeerServer& kitchen = player_at("10.0.0.21");
    TcpPeerServer& hall = player_at("10.0.0.22");
    TcpPeerServer& bedroom = player_at("10.0.0.23");
    house_.host.ExecX10("A2", "off");
    house_.call("VeloraPhjuke", {"hall", "play;1"});
    house_.call("VeloraPhjukeEx", {"kitchen;stop"});
    house_.run_for(0s);
    EXPECT_THAT(hall.packets(), ElementsAre("play;1", "kitchen;stop"));
    EXPECT_THAT(kitchen.packets(), ElementsAre("kitchen;stop"));
    EXPECT_THAT(bedroom.packets(), ElementsAre("kitchen;stop"));
    EXPECT_THAT(house_.requests(), IsEmpty());
}

TEST_F(JukeboxOperation, AUnitWithoutAPlayerIsALogLineAndTheNextOneFollows) {
    TcpPeerServer& hall = player_at("10.0.0.22");
    const auto start = house_.machine.pump.steady_now();
    house_.call("VeloraPhjuke", {"kitchen hall", "play"});
    house_.run_for(0s);
    EXPECT_EQ(house_.machine.pump.steady_now() - start, 24s);
    EXPECT_THAT(hall.packets(), ElementsAre("play"));
    EXPECT_THAT(house_.host.log(),
                ElementsAre(EndsWith("zynVelora: Unable to connect to phJuke at Velora kitchen / "
                                     "10.0.0.21:1025")));
}

TEST_F(JukeboxOperation, EndsWithThePlugin) {
    house_.machine.pump.call_later(5s, [this] { house_.plugin->ShutdownIO(); });
    const auto start = house_.machine.pump.steady_now();
    house_.call("VeloraPhjuke", {"", "play"});
    EXPECT_EQ(house_.machine.pump.steady_now() - start, 5s);
    house_.call("VeloraPhjuke", {"", "play"});
    EXPECT_EQ(house_.machine.pump.steady_now() - start, 5s);
}

TEST_F(JukeboxOperation, SelfTestRunsByOperationAndByMenu) {
    EXPECT_THAT(house_.text("VeloraTest", {"hall"}), testing::StartsWith("1."));
    EXPECT_THAT(house_.host.log(), Contains(HasSubstr("PERFORMING TEST LED on hall Velora")));
    EXPECT_THAT(house_.host.log(), SizeIs(4));
    house_.forget();
    house_.plugin->SelectMenu("Test");
    for (const char* name : {"kitchen", "hall", "bedroom"}) {
        EXPECT_THAT(house_.host.log(),
                    Contains(HasSubstr(std::string("PERFORMING TEST PUSH on ") + name)));
    }
}

TEST_F(JukeboxOperation, ATextIsShownAndTheSleepingUnitWakes) {
    house_.call("VeloraSleep", {"hall", "sleep"});
    house_.run_for(1s);
    house_.forget();
    house_.call("VeloraTextEx", {"hall;Dinner; now"});
    house_.run_for(5s);
    EXPECT_THAT(house_.requests(),
                ElementsAre("hall GET /screen.shtml?1",
                            "hall GET /gotoURL.shtml?M=GOTO_URL&S=http://10.0.0.2:8080/VeloraTemp/"
                            "VeloraTempFilehall1.html",
                            "hall GET /screen.shtml?1"));
    EXPECT_THAT(
        house_.machine.files.read("C:\\HomeSeer\\HTML\\VeloraTemp\\VeloraTempFilehall1.html"),
        HasSubstr("<B>Dinner; now</B>"));
}

}  // namespace
}  // namespace plugin
