#include "platform/espeak/espeak_speech.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "host/files.h"
#include "platform/espeak/espeak_library.h"

namespace platform {
namespace {

constexpr const char* kDefaultVoice = "gmw/en-US";

static_assert(std::endian::native == std::endian::little, "WAV files are little-endian");

template <typename Number>
void append(std::string& bytes, Number number) {
    std::array<char, sizeof(Number)> raw{};
    std::memcpy(raw.data(), &number, sizeof(Number));
    bytes.append(raw.data(), raw.size());
}

// RIFF WAVE with the three chunks "RIFF", "fmt " and "data", as Microsoft's and IBM's Multimedia
// Programming Interface of 1991 has it: 44 bytes before the samples.
std::string wav_file(const std::vector<std::int16_t>& samples, int sample_rate) {
    constexpr std::uint32_t kFormatSize = 16;
    constexpr std::uint16_t kPcm = 1;
    constexpr std::uint16_t kChannels = 1;
    constexpr std::uint16_t kBytesPerSample = sizeof(std::int16_t);
    constexpr std::uint32_t kBeforeSamples = 44;
    constexpr std::uint32_t kOutsideRiff = 8;
    const auto rate = static_cast<std::uint32_t>(sample_rate);
    const auto size = static_cast<std::uint32_t>(samples.size() * kBytesPerSample);

    std::string bytes;
    bytes.reserve(kBeforeSamples + size);
    bytes += "RIFF";
    append(bytes, kBeforeSamples - kOutsideRiff + size);
    bytes += "WAVEfmt ";
    append(bytes, kFormatSize);
    append(bytes, kPcm);
    append(bytes, kChannels);
    append(bytes, rate);
    append(bytes, rate * kBytesPerSample);
    append(bytes, kBytesPerSample);
    append(bytes, static_cast<std::uint16_t>(kBytesPerSample * 8));
    bytes += "data";
    append(bytes, size);
    for (const std::int16_t sample : samples) {
        append(bytes, sample);
    }
    return bytes;
}

}  // namespace

std::vector<std::string> EspeakSpeech::GetVoices() {
    std::vector<std::string> descriptions;
    for (const EspeakVoice& voice : EspeakLibrary::of_process().voices()) {
        std::string description = automation::utf8_to_code_page(voice.name);
        description.erase(description.find_last_not_of(' ') + 1);
        descriptions.push_back(std::move(description));
    }
    return descriptions;
}

void EspeakSpeech::Speak(std::string_view text, std::optional<std::size_t> voice,
                         std::string_view path, int format) {
    const automation::RunTimeError refused(automation::ErrorNumber::InvalidProcedureCall);
    if (format != host::kSpeechFormat22kHz16BitMono) {
        throw refused;
    }
    const EspeakLibrary& library = EspeakLibrary::of_process();
    std::string identifier = kDefaultVoice;
    if (voice) {
        const std::vector<EspeakVoice> voices = library.voices();
        if (*voice >= voices.size()) {
            throw refused;
        }
        identifier = voices[*voice].identifier;
    }
    std::string spoken = automation::code_page_to_utf8(text);
    std::ranges::replace(spoken, '\0', ' ');
    files_.write(path, wav_file(library.speak(spoken, identifier), library.sample_rate()));
}

}  // namespace platform
