#pragma once

#include <memory>

namespace host {
class Files;
class Settings;
class Speech;
}  // namespace host

namespace app {

// The speech platform that section "Speech" of settings.ini asks for: key Command is the command
// line of a program of the user's choice and Voices its voices, separated by commas; without a
// command it is the one that the system has. `files` must outlive it.
[[nodiscard]] std::unique_ptr<host::Speech> choose_speech(host::Settings& settings,
                                                          host::Files& files);

}  // namespace app
