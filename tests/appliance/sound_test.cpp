#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/house.h"

// Speech and sound files that a unit is told to load.
namespace appliance {
namespace {

using support::House;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kTemp = "C:\\HomeSeer\\HTML\\VeloraTemp\\";

std::string loads(const std::string& path) {
    return "hall GET /loadWav.shtml?http://10.0.0.2:8080/" + path;
}

TEST(Wav, IsLoadedFromTheHouse) {
    const struct {
        const char* file;
        const char* path;
    } rows[] = {
        {"bell.wav", "bell.wav"},
        {"sounds/bell.wav", "sounds/bell.wav"},
        {"sounds\\bell.wav", "sounds\\bell.wav"},  // one backslash makes no full path
        {"VeloraTempFile3.wav", "VeloraTemp/VeloraTempFile3.wav"},
        {"C:\\Media\\gong.wav", "VeloraTemp/VeloraTempFilehall1.wav"},
        {"\\\\pc\\media\\gong.wav", "VeloraTemp/VeloraTempFilehall1.wav"},
    };

    for (const auto& row : rows) {
        House house({"Hall"});
        house.machine().files.put("C:\\Media\\gong.wav", "gong");
        house.machine().files.put("\\\\pc\\media\\gong.wav", "gong");
        house.velora("hall").Wav(row.file, "");
        EXPECT_THAT(house.trace_without_time(), ElementsAre(loads(row.path))) << row.file;
    }
}

TEST(Wav, OfAFullPathIsCopiedOverAnOlderOne) {
    House house({"Hall"});
    const std::string copy = std::string(kTemp) + "VeloraTempFilehall1.wav";
    house.machine().files.put(copy, "old");
    house.machine().files.put("C:\\Media\\gong.wav", "gong");
    house.velora("hall").Wav("C:\\Media\\gong.wav", "");
    EXPECT_EQ(house.machine().files.read(copy), "gong");
}

TEST(Wav, HasItsPlayingTimeAndTwentySecondsToLoad) {
    const struct {
        std::size_t bytes;
        std::int32_t timeout_ms;
    } rows[] = {{0, 20000}, {47001, 23000}, {156670, 30000}, {15667 * 45, 65000}};

    for (const auto& row : rows) {
        House house({"Hall"});
        house.machine().files.put("C:\\HomeSeer\\HTML\\a.wav", std::string(row.bytes, 'x'));
        house.velora("hall").Wav("a.wav", "");
        EXPECT_EQ(house.velora("hall").queue().state().CurrentTimeout, row.timeout_ms);
    }
    House house({"Hall"});
    house.velora("hall").Wav("missing.wav", "");
    EXPECT_EQ(house.velora("hall").queue().state().CurrentTimeout, 20000);
}

TEST(Wav, ThatCannotBeCopiedIsLoggedWithTheUnitAndNotSent) {
    House house({"Hall"});
    EXPECT_EQ(house.velora("hall").Wav("C:\\Media\\none.wav", ""), "");
    EXPECT_THAT(house.log(),
                ElementsAre(testing::MatchesRegex("zynVelora: SendWav 0 .* hall Line [0-9]+ .*")));
    EXPECT_THAT(house.trace(), IsEmpty());
}

TEST(Wav, ComesFromTheHostsServerWhereThatIsInUse) {
    House house({"Hall"});
    house.settings().UseOwnServer = false;
    house.velora("hall").Wav("bell.wav", "");
    EXPECT_THAT(house.trace_without_time(),
                ElementsAre("hall GET /loadWav.shtml?http://10.0.0.2:81/bell.wav"));
}

TEST(Speech, GoesThroughTenFilesOfTheUnit) {
    House house({"Living Room"});
    Velora& unit = house.velora("living room");
    for (int i = 0; i < 11; ++i) {
        unit.SendSpeak("Hello", "");
        house.run_for(std::chrono::seconds(1));
    }
    const auto& spoken = house.machine().speech.spoken();
    const std::string first =
        "Hello | Microsoft Mary | " + std::string(kTemp) + "VeloraTempFilelivingroom1.wav";
    EXPECT_EQ(spoken.at(0), first);
    EXPECT_THAT(spoken.at(9), testing::EndsWith("VeloraTempFilelivingroom0.wav"));
    EXPECT_EQ(spoken.at(10), first);
    EXPECT_THAT(house.trace_without_time().front(),
                testing::EndsWith("/VeloraTemp/VeloraTempFilelivingroom1.wav"));
}

TEST(Speech, TimeIsThatOfAFileMadeForIt) {
    House house({"Hall"});
    house.machine().speech.set_wav_size(156670);
    EXPECT_EQ(house.velora("hall").SpeakTime("Hello"), 10);
    EXPECT_THAT(house.trace(), IsEmpty());
    EXPECT_EQ(house.velora("hall").WavTime("VeloraTemp/VeloraTempFilehall1.wav"), 10);
}

TEST(Speech, WithoutAPlatformIsSentAllTheSame) {
    House house({"Hall"});
    house.machine().speech.fail_with(automation::ErrorNumber::ActiveXCannotCreateObject);
    EXPECT_NE(house.velora("hall").SendSpeak("Hello", ""), "");
    EXPECT_THAT(house.log(), ElementsAre(StartsWith("zynVelora: SpeakToFile Line ")));
    EXPECT_THAT(house.trace_without_time(),
                ElementsAre(loads("VeloraTemp/VeloraTempFilehall1.wav")));
}

TEST(Speaking, IsTrueUntilTheSoundIsThere) {
    House house({"Hall"});
    house.unit("hall").answers(std::chrono::seconds(2));
    house.velora("hall").SendSpeak("Hello", "");
    EXPECT_TRUE(house.velora("hall").isSpeaking());
    house.run_for(std::chrono::seconds(3));
    EXPECT_FALSE(house.velora("hall").isSpeaking());
}

}  // namespace
}  // namespace appliance
