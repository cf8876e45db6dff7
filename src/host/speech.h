#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// The platform's number for 22050 Hz, 16 bit, mono.
inline constexpr int kSpeechFormat22kHz16BitMono = 22;

// The speech platform. Speaking blocks the thread until the file is closed.
class Speech {
  public:
    virtual ~Speech() = default;

    // Descriptions of the installed voices, in the platform's order.
    [[nodiscard]] virtual std::vector<std::string> GetVoices() = 0;

    // Speaks `text` (code page 1252) into a WAV file, which is replaced. `voice` is an index into
    // `GetVoices`, absent for the default voice; `path` carries backslashes.
    // Throws: RunTimeError 429 without a speech platform, 61, 70 or 76 for the file, 5 for a
    // format that the platform does not make.
    virtual void Speak(std::string_view text, std::optional<std::size_t> voice,
                       std::string_view path, int format) = 0;
};

}  // namespace host
