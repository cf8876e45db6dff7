#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "app/json.h"
#include "platform/asio/local_line_client.h"

namespace app {

// Why a sub-command ends with exit code 1: a text for its user, in UTF-8.
class CommandFailure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// What the daemon answers as an error.
class DaemonError : public CommandFailure {
  public:
    // The text is UTF-8.
    DaemonError(std::int32_t number, const std::string& text)
        : CommandFailure("error " + std::to_string(number) + ": " + text),
          number_(number),
          text_(text) {}

    [[nodiscard]] std::int32_t number() const noexcept { return number_; }

    [[nodiscard]] const std::string& text() const noexcept { return text_; }

  private:
    std::int32_t number_;
    std::string text_;
};

// Whom a request is for, when the plug-in runs in a program of its own beside the daemon: the units
// and all else that is the plug-in's, or the host with its events and its power line.
enum class Wanted : std::uint8_t { Plugin, Host };

// A command-line program's connection to the daemon of one home, or to the separate xAP program of
// that home, which answers for the plug-in while it runs. All members throw CommandFailure: no
// daemon there, the daemon has ended, or, a DaemonError, what it answers as an error.
class ControlClient {
  public:
    explicit ControlClient(const std::filesystem::path& home, Wanted wanted = Wanted::Plugin);

    void send(const Json& request);

    // The next answer, as long as it takes.
    [[nodiscard]] Json receive();

  private:
    platform::LocalLineClient line_;
};

// One question and its answer, over a connection of its own. Throws as ControlClient.
Json ask(const std::filesystem::path& home, const Json& request, Wanted wanted = Wanted::Plugin);

}  // namespace app
