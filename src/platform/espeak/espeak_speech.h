#pragma once

#include "host/speech.h"

namespace host {
class Files;
}

namespace platform {

// Speech by libespeak-ng. A voice's description is the library's name for it, such as
// "English (America)", which is also the default voice. Nothing is loaded before the first use.
// Objects of this class share the one library of the process. Owned by the program; `files`, which
// takes the WAV file, outlives it.
class EspeakSpeech final : public host::Speech {
  public:
    explicit EspeakSpeech(host::Files& files) : files_(files) {}

    // Throws: RunTimeError 429 without a library.
    [[nodiscard]] std::vector<std::string> GetVoices() override;

    // Throws 5 for an index past the voices as well. The file is written in one go, after all has
    // been spoken.
    void Speak(std::string_view text, std::optional<std::size_t> voice, std::string_view path,
               int format) override;

  private:
    host::Files& files_;
};

}  // namespace platform
