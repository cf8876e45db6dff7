#include "support/fake_platform.h"

namespace support {

float FixedRandom::next() {
    if (!ordered_.empty()) {
        const float number = ordered_.front();
        ordered_.pop_front();
        return number;
    }
    constexpr int kNumbers = 8100;
    const int place = count_++ % kNumbers;
    return static_cast<float>(1000 + place / 9 * 10 + place % 9 + 1) / 10000.0F;
}

void FakeSpeech::throw_if_broken() const {
    if (error_) {
        throw automation::RunTimeError(*error_);
    }
}

std::vector<std::string> FakeSpeech::GetVoices() {
    throw_if_broken();
    return voices_;
}

void FakeSpeech::Speak(std::string_view text, std::optional<std::size_t> voice,
                       std::string_view path, int format) {
    throw_if_broken();
    if (format != host::kSpeechFormat22kHz16BitMono) {
        throw automation::RunTimeError(automation::ErrorNumber::InvalidProcedureCall);
    }
    spoken_.push_back(std::string(text) + " | " + (voice ? voices_.at(*voice) : "default") + " | " +
                      std::string(path));
    files_.write(path, std::string(wav_size_, 'w'));
}

std::string MemoryUserStore::GetSetting(std::string_view title, std::string_view section,
                                        std::string_view key, std::string_view fallback) {
    const auto found =
        values_.find(std::string(title) + "\n" + std::string(section) + "\n" + std::string(key));
    return found == values_.end() ? std::string(fallback) : found->second;
}

void MemoryUserStore::SaveSetting(std::string_view title, std::string_view section,
                                  std::string_view key, std::string_view value) {
    values_[std::string(title) + "\n" + std::string(section) + "\n" + std::string(key)] = value;
}

vbscript::ClassRegistry standard_classes() {
    vbscript::ClassRegistry classes;
    vbscript::add_standard_classes(classes);
    return classes;
}

}  // namespace support
