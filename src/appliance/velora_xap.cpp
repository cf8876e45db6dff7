#include "appliance/velora.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "host/xap_message.h"
#include "media/sound_files.h"

// What the xAP network asks of one unit: to show a text, a page or a caller, and to speak.
namespace appliance {

namespace {

using automation::guarded;

bool is_told(const std::string& item) {
    return item != host::kXapUnknown;
}

std::int32_t whole_number(const std::string& text) {
    return automation::checked_int32(automation::parse_number(text).value_or(0));
}

}  // namespace

void Velora::ReceiveXapMessageOSD(const host::XapMessage& message) {
    constexpr std::string_view kDisplay = "Display.Velora";
    constexpr std::string_view kCaller = "Display.ACID";
    guarded(log_, "ReceiveXapMessageOSD ", [&] {
        const std::string text = message.GetItem(kDisplay, "Text");
        if (is_told(text)) {
            PushTextMessage(text, "", whole_number(message.GetItem(kDisplay, "Duration")));
            return;
        }
        const std::string url = message.GetItem(kDisplay, "URL");
        if (is_told(url)) {
            SendPushFullscreen(automation::replace_ignoring_case(url, "http://", ""), "");
            return;
        }
        const std::string line1 = message.GetItem(kCaller, "Line1");
        if (is_told(line1)) {
            const std::string line2 = message.GetItem(kCaller, "Line2");
            SendUDPCID(line1, is_told(line2) ? line2 : "", "");
        }
    });
}

void Velora::ReceiveXapMessageTTS(const host::XapMessage& message) {
    guarded(log_, "ReceiveXapMessageTTS ", [&] {
        std::string_view block = "tts.speak";
        std::string text = message.GetItem(block, "say");
        if (!is_told(text)) {
            block = "Voice.Speak";
            text = message.GetItem(block, "say");
        }
        if (!is_told(text)) {
            return;
        }
        if (const auto volume = automation::parse_number(message.GetItem(block, "volume"))) {
            SetVolume(automation::checked_int16(*volume), "");
        }
        const std::string voice = message.GetItem(block, "voice");
        const std::string file = next_temporary_name(".wav");
        services_.sound_files.SpeakToFile(
            text, is_told(voice) ? voice : services_.instance.settings.T2WVoice,
            services_.sound_files.temporary_folder() + file);
        Wav(file, "");
    });
}

}  // namespace appliance
