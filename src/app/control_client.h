#pragma once

#include <filesystem>
#include <stdexcept>

#include "app/json.h"
#include "platform/asio/local_line_client.h"

namespace app {

// Why a sub-command ends with exit code 1: a text for its user, in UTF-8.
class CommandFailure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// A command-line program's connection to the daemon of one home. All members throw CommandFailure:
// no daemon there, the daemon has ended, or what it answers as an error.
class ControlClient {
  public:
    explicit ControlClient(const std::filesystem::path& home);

    void send(const Json& request);

    // The next answer, as long as it takes.
    [[nodiscard]] Json receive();

  private:
    platform::LocalLineClient line_;
};

}  // namespace app
