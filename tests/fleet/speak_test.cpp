#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/house.h"

namespace fleet {
namespace {

using support::House;
using testing::ElementsAre;
using testing::SizeIs;
using testing::StartsWith;

TEST(Speak, SendsOneFileToAllUnits) {
    House house({"Hall", "Den"});
    const std::string tag = house.fleet().InternalSpeak("den,hall", "Hello");
    EXPECT_THAT(house.machine().speech.spoken(),
                ElementsAre("Hello | Microsoft Mary | "
                            "C:\\HomeSeer\\HTML\\VeloraTemp\\VeloraTempFile1.wav"));
    EXPECT_THAT(house.trace_without_time(),
                ElementsAre("den GET /loadWav.shtml?http://10.0.0.2:8080/VeloraTemp/"
                            "VeloraTempFile1.wav",
                            "hall GET /loadWav.shtml?http://10.0.0.2:8080/VeloraTemp/"
                            "VeloraTempFile1.wav"));
    EXPECT_EQ(tag, "1.1001");  // made before the commands' own
    EXPECT_FALSE(house.velora("hall").CommandBusy(tag));
}

TEST(Speak, GivesNoTagWhenAUnitIsOutOfReachButReachesTheOthers) {
    House house;
    house.add_unit("Hall", {.power = "A1"});
    house.add_unit("Den");
    house.open();
    EXPECT_EQ(house.fleet().InternalSpeak("", "Hello"), "");
    EXPECT_THAT(house.trace_without_time(), ElementsAre(StartsWith("den GET /loadWav")));
    house.host().ExecX10("A1", "on");
    EXPECT_NE(house.fleet().InternalSpeak("", "Hello"), "");
}

TEST(Speak, ToNobodyMakesTheFileAndGivesATag) {
    House house({"Hall"});
    EXPECT_NE(house.fleet().InternalSpeak("nobody", "Hello"), "");
    EXPECT_THAT(house.machine().speech.spoken(), SizeIs(1));
    EXPECT_THAT(house.trace(), SizeIs(0));
}

TEST(Speak, WithoutASpeechPlatformStillTellsTheUnit) {
    House house({"Hall"});
    house.machine().speech.fail_with(automation::ErrorNumber::ActiveXCannotCreateObject);
    EXPECT_NE(house.fleet().InternalSpeak("hall", "Hello"), "");
    EXPECT_THAT(house.log(), ElementsAre(StartsWith("zynVelora: SpeakToFile Line ")));
    EXPECT_EQ(house.velora("hall").queue().state().CurrentTimeout, 20000);
}

}  // namespace
}  // namespace fleet
