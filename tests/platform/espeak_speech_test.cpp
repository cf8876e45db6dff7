#include "platform/espeak/espeak_speech.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "automation/run_time_error.h"
#include "platform/system/command_speech.h"
#include "platform/system/disk_files.h"

namespace platform {
namespace {

constexpr int kFormat = host::kSpeechFormat22kHz16BitMono;

class Speaking : public testing::Test {
  protected:
    ~Speaking() override { std::filesystem::remove(file_); }

    DiskFiles files_;
    std::string file_ = testing::TempDir() + "speech" + std::to_string(::getpid()) + ".wav";
};

std::int32_t error_of(host::Speech& speech, std::optional<std::size_t> voice, std::string_view path,
                      int format = kFormat) {
    try {
        speech.Speak("Hello", voice, path, format);
    } catch (const automation::RunTimeError& error) {
        return error.number();
    }
    return 0;
}

template <typename Number>
Number number_at(const std::string& bytes, std::size_t offset) {
    Number number = 0;
    std::memcpy(&number, bytes.data() + offset, sizeof(number));
    return number;
}

TEST_F(Speaking, FileHasACanonicalHeaderAndItsSamples) {
    EspeakSpeech speech(files_);
    speech.Speak("The door is open \xE9t\xE9", std::nullopt, file_, kFormat);
    const std::string wav = files_.read(file_);

    ASSERT_GT(wav.size(), 22050U) << "at least half a second";
    EXPECT_EQ(wav.substr(0, 4) + wav.substr(8, 8) + wav.substr(36, 4), "RIFFWAVEfmt data");
    EXPECT_EQ(number_at<std::uint32_t>(wav, 4), wav.size() - 8);
    EXPECT_EQ(number_at<std::uint32_t>(wav, 16), 16U);
    EXPECT_EQ(number_at<std::uint16_t>(wav, 20), 1U) << "PCM";
    EXPECT_EQ(number_at<std::uint16_t>(wav, 22), 1U) << "channels";
    EXPECT_EQ(number_at<std::uint32_t>(wav, 24), 22050U);
    EXPECT_EQ(number_at<std::uint32_t>(wav, 28), 44100U);
    EXPECT_EQ(number_at<std::uint16_t>(wav, 32), 2U);
    EXPECT_EQ(number_at<std::uint16_t>(wav, 34), 16U);
    EXPECT_EQ(number_at<std::uint32_t>(wav, 40), wav.size() - 44);
    EXPECT_TRUE(std::any_of(wav.begin() + 44, wav.end(), [](char byte) { return byte != 0; }));
}

TEST_F(Speaking, VoicesAreChosenByTheirPlace) {
    EspeakSpeech speech(files_);
    const std::vector<std::string> voices = speech.GetVoices();
    const auto german = std::ranges::find(voices, "German");
    ASSERT_NE(german, voices.end());
    EXPECT_NE(std::ranges::find(voices, "English (America)"), voices.end());

    // Lengths differ by a few samples from time to time: the breath of the voice is random.
    constexpr std::int64_t kTenth = 4410;
    const auto length_of = [&](std::optional<std::size_t> voice) {
        EspeakSpeech(files_).Speak("1998", voice, file_, kFormat);
        return files_.describe(file_).size;
    };
    const std::int64_t by_default = length_of(std::nullopt);
    EXPECT_GT(std::abs(length_of(german - voices.begin()) - by_default), kTenth);
    EXPECT_LT(std::abs(length_of(std::nullopt) - by_default), kTenth) << "the voice sticks";
}

TEST_F(Speaking, ErrorsTellWhatWasWrong) {
    EspeakSpeech speech(files_);
    EXPECT_EQ(error_of(speech, speech.GetVoices().size(), file_), 5);
    EXPECT_EQ(error_of(speech, std::nullopt, file_, 8), 5);
    EXPECT_EQ(error_of(speech, std::nullopt, "\\nowhere\\at\\all.wav"), 76);
    EXPECT_EQ(error_of(speech, std::nullopt, "/dev/full"), 61);
    EXPECT_FALSE(files_.FileExists(file_));
}

TEST_F(Speaking, CommandSeesItsWordsButNoShell) {
    CommandSpeech speech(
        files_, "/bin/sh -c \"IFS=; printf '%s|' $@ > $0\" {file} {voice} \"a {text}\"", {"Anna"});
    const std::string text = "{voice}; $(rm -rf x) \"\xE9";
    speech.Speak(text, 0, file_, kFormat);
    EXPECT_EQ(files_.read(file_), "Anna|a {voice}; $(rm -rf x) \"\xC3\xA9|");
}

TEST_F(Speaking, FailedCommandLeavesAnEmptyFile) {
    CommandSpeech failing(files_, "/bin/sh -c \"echo half > $0; exit 3\" {file}", {});
    EXPECT_EQ(error_of(failing, std::nullopt, file_), 429);
    EXPECT_EQ(files_.read(file_), "");
    CommandSpeech missing(files_, "/no/such/program", {});
    EXPECT_EQ(error_of(missing, std::nullopt, file_), 429);
    EXPECT_EQ(error_of(missing, 0, file_), 5);
}

}  // namespace
}  // namespace platform
