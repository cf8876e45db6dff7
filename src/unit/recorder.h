#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace unit {

// The files in which an appliance without screen and loudspeaker shows what it does:
//   state.json         replaced as a whole, so that a reader never sees half of it
//   requests.log       one line for each request, each text to the music player and what the
//   browser
//                      loads by itself: pictures, and pages that replace others in their time; kept
//                      from run to run
//   page.html          the body of the page that the browser shows
//   sounds/N-name      each sound that was played, numbered on from run to run
// Owned by the unit. All members throw std::runtime_error that names the file when it cannot be
// written.
class Recorder {
  public:
    // Requires: `state_directory` exists.
    explicit Recorder(std::filesystem::path state_directory);

    void write_state(std::string_view json) const;

    void write_page(std::string_view body) const;

    // Appends time, method, target and what was answered, separated by tabs. The time is UTC, with
    // milliseconds, by ISO 8601. Control characters of the texts are written as "?".
    void log_request(std::string_view method, std::string_view target,
                     std::string_view answered) const;

    // Gives the path of the new file, relative to the state directory.
    // Requires: `name` is a plain file name.
    std::string add_sound(std::string_view name, std::string_view bytes);

  private:
    std::filesystem::path directory_;
    std::size_t last_sound_;
};

}  // namespace unit
