#include "appliance/velora.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "host/files.h"
#include "media/sound_files.h"

// Speech and sound files that the unit is told to load.
namespace appliance {

namespace {

using automation::guarded;

constexpr std::int32_t kLoadTimeout = 20000;  // milliseconds, beside the time that it plays
constexpr std::int32_t kTemporaryNames = 10;

bool is_full_path(const std::string& file) {
    return file.find(':') != std::string::npos || file.find("\\\\") != std::string::npos;
}

}  // namespace

std::string Velora::next_temporary_number() {
    temporary_file_counter_ = (temporary_file_counter_ + 1) % kTemporaryNames;
    return std::to_string(temporary_file_counter_);
}

std::string Velora::next_temporary_name(std::string_view extension) {
    std::string stem = name_;
    std::erase(stem, ' ');
    return std::string(media::kTemporaryFileStem) + stem + next_temporary_number() +
           std::string(extension);
}

std::string Velora::TextToWav(const std::string& text) {
    return guarded(log_, "TextToWav ", [&] {
        std::string file = next_temporary_name(".wav");
        services_.sound_files.TextToWavFile(text, file);
        return file;
    });
}

std::string Velora::SendSpeak(const std::string& text, const std::string& tag) {
    return SendWav(TextToWav(text), tag);
}

std::string Velora::Wav(const std::string& file, const std::string& tag) {
    return SendWav(file, tag);
}

std::int32_t Velora::WavTime(const std::string& file) {
    return guarded(log_, "WavTime ", [&] { return services_.sound_files.ComputeWavTime(file); });
}

std::int32_t Velora::SpeakTime(const std::string& text) {
    return WavTime("VeloraTemp/" + TextToWav(text));
}

std::string Velora::SendWav(const std::string& wav, const std::string& tag) {
    std::int32_t timeout_ms = 0;
    try {
        std::string file = wav;
        if (is_full_path(wav)) {
            file = next_temporary_name(".wav");
            services_.instance.platform().files.CopyFile(
                wav, services_.sound_files.temporary_folder() + file);
        }
        if (file.find(media::kTemporaryFileStem) != std::string::npos) {
            file = "VeloraTemp/" + file;
        }
        const std::string path = core::html_root(services_.instance) + "\\" + file;
        timeout_ms = automation::add_int32(
            automation::multiply_int32(services_.sound_files.ComputeWavTime(path), 1000),
            kLoadTimeout);
        return AsyncCommand("loadWav.shtml?" + own_server_url(file), timeout_ms, tag);
    } catch (const automation::RunTimeError& error) {
        services_.instance.log.report(
            "SendWav " + std::to_string(timeout_ms) + " " + error.description() + " " + name_,
            error);
        return {};
    }
}

}  // namespace appliance
