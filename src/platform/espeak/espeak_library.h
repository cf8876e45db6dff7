#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

struct EspeakVoice {
    std::string name;        // for people, UTF-8: "English (America)"
    std::string identifier;  // for the library: "gmw/en-US"
};

// libespeak-ng, which keeps its state for the whole process: one voice, one callback. It is loaded
// at the first use, since it brings a sound server's client and half a desktop along, and it is
// never ended, since its own end can wait for ever on the worker thread that it starts.
// Synthesis itself runs on the calling thread.
class EspeakLibrary {
  public:
    // Loads and starts the library at the first call. Throws: RunTimeError 429, and tries again at
    // the next call.
    static EspeakLibrary& of_process();

    EspeakLibrary(const EspeakLibrary&) = delete;
    EspeakLibrary& operator=(const EspeakLibrary&) = delete;
    ~EspeakLibrary() = default;

    // Samples a second of all that it speaks.
    [[nodiscard]] int sample_rate() const { return sample_rate_; }

    // Installed voices in the library's order.
    [[nodiscard]] std::vector<EspeakVoice> voices() const;

    // Samples of the spoken text, which is UTF-8 without zero bytes; `voice` is an identifier or a
    // language. Throws: RunTimeError 429.
    [[nodiscard]] std::vector<std::int16_t> speak(const std::string& text,
                                                  const std::string& voice) const;

  private:
    EspeakLibrary();

    int sample_rate_;
};

}  // namespace platform
