#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/instance.h"

namespace media {

// Makes and measures the sound files that units are told to load. Everything lies in
// HTML\VeloraTemp, where the web server publishes it. Owned by the plug-in's entry class.
class SoundFiles {
  public:
    explicit SoundFiles(core::Instance& instance) : instance_(instance) {}

    // Speaks `text` into the file of this name in the temporary folder. Blocks until the file is
    // closed. Reads `T2WVoice` anew. A failure is logged and leaves the file empty or absent.
    void TextToWavFile(std::string_view text, std::string_view file_name);

    // The same with this voice, to a full path.
    void SpeakToFile(std::string_view text, std::string_view voice, const std::string& path);

    // Seconds that a file plays, estimated from its size: bytes / 15667, rounded. 0 for "" and for
    // a missing file. A name without a backslash is meant below HTML.
    [[nodiscard]] std::int32_t ComputeWavTime(std::string_view file);

    // "VeloraTempFile" + n + ".wav" with n counting 1, 2, ..., 9, 0: the files that belong to no
    // unit.
    [[nodiscard]] std::string next_shared_name();

    // Deletes files of the temporary folder that were last changed more than 5 minutes ago.
    void RemoveOldFiles();

    // "<HTML>\VeloraTemp\", with its last backslash.
    [[nodiscard]] std::string temporary_folder() const;

  private:
    core::Instance& instance_;
    std::int16_t file_counter_ = 0;
};

inline constexpr std::string_view kTemporaryFileStem = "VeloraTempFile";

}  // namespace media
