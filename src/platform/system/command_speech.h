#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/speech.h"

namespace host {
class Files;
}

namespace platform {

// Speech by a program of the user's choice. `command` is its command line: words are separated by
// blanks, double quotes hold a word together, and in each word {text}, {voice} and {file} stand for
// the text (UTF-8), the voice's description ("" for the default one) and the file on disk. No shell
// sees it, so that a text cannot become a command. The program has a minute to write the file and
// to end with exit code 0. Owned by the program; `files` outlives it.
class CommandSpeech final : public host::Speech {
  public:
    CommandSpeech(host::Files& files, std::string_view command, std::vector<std::string> voices);

    [[nodiscard]] std::vector<std::string> GetVoices() override { return voices_; }

    // Throws 5 for a voice without description as well. A failed command leaves an empty file.
    void Speak(std::string_view text, std::optional<std::size_t> voice, std::string_view path,
               int format) override;

  private:
    host::Files& files_;
    std::vector<std::string> words_;
    std::vector<std::string> voices_;
};

}  // namespace platform
