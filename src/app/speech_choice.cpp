#include "app/speech_choice.h"

#include <algorithm>
#include <string>
#include <vector>

#include "automation/convert.h"
#include "automation/strings.h"
#include "host/settings.h"
#include "platform/espeak/espeak_speech.h"
#include "platform/system/command_speech.h"

namespace app {

std::unique_ptr<host::Speech> choose_speech(host::Settings& settings, host::Files& files) {
    const auto read = [&settings](std::string_view key) {
        return automation::trim(settings.GetIniSetting("Speech", key, "", "settings.ini"));
    };
    const std::string command = read("Command");  // its quotes hold words together
    if (command.empty()) {
        return std::make_unique<platform::EspeakSpeech>(files);
    }
    std::vector<std::string> voices;
    for (const std::string& voice : automation::split(read("Voices"), ',')) {
        if (std::string name = automation::trim(voice); !name.empty()) {
            voices.push_back(std::move(name));
        }
    }
    return std::make_unique<platform::CommandSpeech>(files, command, std::move(voices));
}

}  // namespace app
