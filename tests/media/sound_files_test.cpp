#include "media/sound_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_platform.h"
#include "support/memory_host.h"

namespace media {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class SoundFilesTest : public testing::Test {
  protected:
    SoundFilesTest() {
        instance_.application_path = "C:\\HomeSeer";
        instance_.attach(host_, &host_);
        machine_.files.put_folder(temp(""));
    }

    [[nodiscard]] static std::string temp(std::string_view name) {
        return "C:\\HomeSeer\\HTML\\VeloraTemp\\" + std::string(name);
    }

    support::FakeMachine machine_;
    support::MemoryHost host_;
    core::Instance instance_{machine_.platform()};
    SoundFiles sounds_{instance_};
};

TEST_F(SoundFilesTest, PlayForTheirSizeBy15667SecondsRounded) {
    const struct {
        std::size_t bytes;
        std::int32_t seconds;
    } rows[] = {
        {0, 0},       {7833, 0},           {7834, 1}, {15667, 1}, {31334 + 15667, 3},
        {156670, 10}, {156670 + 7834, 11},
    };

    for (const auto& row : rows) {
        machine_.files.put(temp("a.wav"), std::string(row.bytes, 'x'));
        EXPECT_EQ(sounds_.ComputeWavTime("VeloraTemp/a.wav"), row.seconds) << row.bytes;
    }
}

TEST_F(SoundFilesTest, AreFoundBelowHtmlUnlessTheNameHasABackslash) {
    const std::string ten_seconds(156670, 'x');
    machine_.files.put("C:\\HomeSeer\\HTML\\bell.wav", ten_seconds);
    machine_.files.put("C:\\Sounds\\gong.wav", ten_seconds);

    const struct {
        const char* file;
        std::int32_t seconds;
    } rows[] = {
        {"", 0},
        {"bell.wav", 10},
        {"C:\\HomeSeer\\HTML\\bell.wav", 10},
        {"gong.wav", 0},
        {"C:\\Sounds\\gong.wav", 10},
        {"C:\\Sounds\\none.wav", 0},
        {"none.wav", 0},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(sounds_.ComputeWavTime(row.file), row.seconds) << row.file;
    }
}

TEST_F(SoundFilesTest, ShareTenNames) {
    std::vector<std::string> names;
    for (int i = 0; i < 11; ++i) {
        names.push_back(sounds_.next_shared_name());
    }
    EXPECT_EQ(names.front(), "VeloraTempFile1.wav");
    EXPECT_EQ(names[8], "VeloraTempFile9.wav");
    EXPECT_EQ(names[9], "VeloraTempFile0.wav");
    EXPECT_EQ(names[10], names[0]);
}

TEST_F(SoundFilesTest, AreSpokenWithTheVoiceOfTheMoment) {
    machine_.speech.install_voices({"Anna", "Bert"});
    host_.put_setting("T2W", "T2WVoice", "\"BERT\"");
    sounds_.TextToWavFile("one", "1.wav");
    host_.put_setting("T2W", "T2WVoice", "anna");
    sounds_.TextToWavFile("two", "2.wav");
    host_.remove_section("T2W");
    sounds_.TextToWavFile("three", "3.wav");
    EXPECT_THAT(machine_.speech.spoken(),
                ElementsAre("one | Bert | " + temp("1.wav"), "two | Anna | " + temp("2.wav"),
                            "three | default | " + temp("3.wav")));
    EXPECT_EQ(instance_.settings.T2WVoice, "Microsoft Mary");
    EXPECT_THAT(host_.log(), IsEmpty());
}

TEST_F(SoundFilesTest, MissingVoiceIsADebugLine) {
    instance_.log.set_debug_log(true);
    machine_.speech.install_voices({"Anna"});
    sounds_.TextToWavFile("one", "1.wav");
    EXPECT_THAT(host_.log(),
                ElementsAre("zynVelora Debug: Voice Microsoft Mary requested, but not an installed "
                            "voice "));
}

TEST_F(SoundFilesTest, FailedSpeechIsLoggedAndPlaysNoTime) {
    machine_.speech.fail_with(automation::ErrorNumber::ActiveXCannotCreateObject);
    sounds_.TextToWavFile("one", "1.wav");
    EXPECT_THAT(host_.log(), ElementsAre(StartsWith("zynVelora: SpeakToFile Line ")));
    EXPECT_EQ(sounds_.ComputeWavTime("VeloraTemp/1.wav"), 0);
}

TEST_F(SoundFilesTest, LiveFiveMinutes) {
    machine_.files.put(temp("old.wav"), "x");
    machine_.files.put("C:\\HomeSeer\\HTML\\kept.wav", "x");
    machine_.pump.run_for(1min);
    machine_.files.put(temp("young.wav"), "x");
    machine_.pump.run_for(4min);
    sounds_.RemoveOldFiles();
    EXPECT_TRUE(machine_.files.FileExists(temp("old.wav")));  // 5 minutes to the millisecond
    machine_.pump.run_for(1min);
    sounds_.RemoveOldFiles();
    EXPECT_FALSE(machine_.files.FileExists(temp("old.wav")));
    EXPECT_TRUE(machine_.files.FileExists(temp("young.wav")));
    machine_.pump.run_for(1min);
    sounds_.RemoveOldFiles();
    EXPECT_FALSE(machine_.files.FileExists(temp("young.wav")));
    EXPECT_TRUE(machine_.files.FileExists("C:\\HomeSeer\\HTML\\kept.wav"));
}

}  // namespace
}  // namespace media
