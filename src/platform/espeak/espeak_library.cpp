#include "platform/espeak/espeak_library.h"

#include <espeak-ng/speak_lib.h>

#include <new>

#include "automation/run_time_error.h"
#include "platform/system/shared_library.h"

namespace platform {
namespace {

using Samples = std::vector<std::int16_t>;

constexpr const char* kLibrary = "libespeak-ng.so.1";
constexpr int kContinue = 0;
constexpr int kAbort = 1;

[[noreturn]] void fail(const std::string& what) {
    throw automation::RunTimeError(automation::ErrorNumber::ActiveXCannotCreateObject,
                                   "Speech: " + what);
}

template <typename Function>
Function* function_named(const char* name) {
    Function* function = nullptr;
    SharedLibrary("Speech", kLibrary).find(name, function);
    return function;
}

// The library hands `user_data` of the call back in every event, that of the end mark included.
int collect(short* samples, int count, espeak_EVENT* events) {
    if (samples == nullptr || count <= 0 || events == nullptr || events->user_data == nullptr) {
        return kContinue;
    }
    auto& collected = *static_cast<Samples*>(events->user_data);
    try {
        collected.insert(collected.end(), samples, samples + count);
    } catch (const std::bad_alloc&) {
        collected.clear();
        return kAbort;
    }
    return kContinue;
}

int start() {
    const auto initialize = function_named<decltype(espeak_Initialize)>("espeak_Initialize");
    const int rate = initialize(AUDIO_OUTPUT_SYNCHRONOUS, 0, nullptr, espeakINITIALIZE_DONT_EXIT);
    if (rate <= 0) {
        fail("espeak-ng cannot start; are its voices installed?");
    }
    function_named<decltype(espeak_SetSynthCallback)>("espeak_SetSynthCallback")(collect);
    return rate;
}

}  // namespace

EspeakLibrary& EspeakLibrary::of_process() {
    static EspeakLibrary library;
    return library;
}

EspeakLibrary::EspeakLibrary() : sample_rate_(start()) {}

std::vector<EspeakVoice> EspeakLibrary::voices() const {
    const auto list = function_named<decltype(espeak_ListVoices)>("espeak_ListVoices");
    std::vector<EspeakVoice> found;
    for (const espeak_VOICE** voice = list(nullptr); voice != nullptr && *voice != nullptr;
         ++voice) {
        found.push_back({.name = (*voice)->name, .identifier = (*voice)->identifier});
    }
    return found;
}

Samples EspeakLibrary::speak(const std::string& text, const std::string& voice) const {
    const auto set_voice = function_named<decltype(espeak_SetVoiceByName)>("espeak_SetVoiceByName");
    if (set_voice(voice.c_str()) != EE_OK) {
        fail("the voice " + voice + " cannot be used");
    }
    Samples samples;
    const auto synthesise = function_named<decltype(espeak_Synth)>("espeak_Synth");
    const espeak_ERROR result = synthesise(text.c_str(), text.size() + 1, 0, POS_CHARACTER, 0,
                                           espeakCHARS_UTF8 | espeakENDPAUSE, nullptr, &samples);
    if (result != EE_OK) {
        fail("espeak-ng could not speak the text");
    }
    return samples;
}

}  // namespace platform
