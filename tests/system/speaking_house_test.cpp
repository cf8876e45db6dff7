#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "system/house_process.h"

namespace system_tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(SpeakingHouse, AUnitPlaysTheFileThatWasSpokenAndThenTakesTheNextCommand) {
    House house({"Kitchen", "Hall"});
    house.start();
    house.tell("Kitchen", "slow 2500");  // so that the next command has to wait
    house.call({"VeloraSpeak", "Kitchen", "Hello"});
    house.call({"VeloraTopLed", "Kitchen", "blink"});
    EXPECT_THAT(house.status("Kitchen").at("queue"), "Queue: 1)  | led.shtml?t2");
    EXPECT_TRUE(house.shows("Kitchen", "top_led", "blink"));
    EXPECT_TRUE(eventually([&] { return house.status("Kitchen").at("queue") == "Queue: 0) "; }));

    const std::string spoken =
        content_of(house.home() / "HTML" / "VeloraTemp" / "VeloraTempFile1.wav");
    EXPECT_THAT(spoken, HasSubstr("WAVEfmt "));
    EXPECT_GT(spoken.size(), 20'000U);
    const Json playing = house.state("Kitchen").at("playing");
    EXPECT_GT(playing.at("seconds"), 0.3);
    EXPECT_TRUE(content_of(house.unit_folder("Kitchen") / playing.at("file")) == spoken)
        << "the unit has received other bytes";
    EXPECT_THAT(house.requests("Kitchen"),
                ElementsAre("loadWav.shtml?http://127.0.0.1:" + house.server_port() +
                                "/VeloraTemp/VeloraTempFile1.wav",
                            "led.shtml?t2"));
    EXPECT_THAT(house.requests("Hall"), IsEmpty());
}

// One operation reaches every unit, and what a page shows comes from the plug-in's own server.
TEST(SpeakingHouse, AllUnitsShowAPageAndGoFullScreenAgain) {
    House house({"Kitchen", "Hall"});
    house.set("PushDelay", "1");
    house.start();
    house.call({"VeloraPushFullscreen", "", "VeloraTestMessage.HTML"});
    for (const char* unit : {"Kitchen", "Hall"}) {
        EXPECT_TRUE(eventually([&] { return house.state(unit).at("browser").at("bytes") > 0; }));
        EXPECT_TRUE(house.shows(unit, "full_screen", true)) << unit;
        EXPECT_EQ(content_of(house.unit_folder(unit) / "page.html"),
                  content_of(house.home() / "HTML" / "VeloraTestMessage.HTML"));
    }
}

}  // namespace
}  // namespace system_tests
