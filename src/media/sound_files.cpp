#include "media/sound_files.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <vector>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "host/clock.h"
#include "host/files.h"
#include "host/speech.h"

namespace media {

namespace {

constexpr std::string_view kDefaultVoice = "Microsoft Mary";
constexpr double kBytesPerSecond = 15667;
constexpr std::int16_t kNamesPerStem = 10;
constexpr auto kLifeOfTemporaryFiles = std::chrono::minutes(5);

// The place of the voice in the platform's list; absent for a voice that is not installed.
std::optional<std::size_t> SetVoice(core::VeloraLog& log, const std::vector<std::string>& voices,
                                    std::string_view wanted) {
    const auto found = std::find_if(voices.begin(), voices.end(), [&](const std::string& voice) {
        return automation::equals_ignoring_case(voice, wanted);
    });
    if (found == voices.end()) {
        log.debug([&] {
            return "Voice " + std::string(wanted) + " requested, but not an installed voice ";
        });
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - voices.begin());
}

}  // namespace

std::string SoundFiles::temporary_folder() const {
    return core::html_root(instance_) + "\\VeloraTemp\\";
}

std::string SoundFiles::next_shared_name() {
    file_counter_ = static_cast<std::int16_t>((file_counter_ + 1) % kNamesPerStem);
    return std::string(kTemporaryFileStem) + std::to_string(file_counter_) + ".wav";
}

void SoundFiles::TextToWavFile(std::string_view text, std::string_view file_name) {
    instance_.settings.T2WVoice = core::read_setting(instance_, "T2W", "T2WVoice", kDefaultVoice);
    SpeakToFile(text, instance_.settings.T2WVoice, temporary_folder() + std::string(file_name));
}

void SoundFiles::SpeakToFile(std::string_view text, std::string_view voice,
                             const std::string& path) {
    automation::guarded(instance_.log, "SpeakToFile", [&] {
        host::Platform& platform = instance_.platform();
        if (!platform.files.FileExists(path)) {
            platform.files.write(path, "");
        }
        const auto chosen = SetVoice(instance_.log, platform.speech.GetVoices(), voice);
        platform.speech.Speak(text, chosen, path, host::kSpeechFormat22kHz16BitMono);
    });
}

std::int32_t SoundFiles::ComputeWavTime(std::string_view file) {
    if (file.empty()) {
        return 0;
    }
    const bool is_full_path = file.find('\\') != std::string_view::npos;
    const std::string path =
        is_full_path ? std::string(file) : core::html_root(instance_) + "\\" + std::string(file);
    host::Files& files = instance_.platform().files;
    if (!files.FileExists(path)) {
        return 0;
    }
    const auto size = static_cast<double>(files.describe(path).size);
    return automation::checked_int32(size / kBytesPerSecond);
}

void SoundFiles::RemoveOldFiles() {
    automation::guarded(instance_.log, "RemoveOldFiles ", [&] {
        host::Files& files = instance_.platform().files;
        const auto now = instance_.platform().clock.now();
        for (const host::FileEntry& file : files.files_in(temporary_folder())) {
            const auto age = std::chrono::floor<std::chrono::minutes>(now - file.last_modified);
            if (age > kLifeOfTemporaryFiles) {
                files.DeleteFile(temporary_folder() + file.name);
            }
        }
    });
}

}  // namespace media
