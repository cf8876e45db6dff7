#pragma once

#include <filesystem>

#include "platform/asio/local_line_server.h"

namespace app {

class ControlService;

// The daemon's Unix socket: gives each line of each connection to the service. Its end drops all
// connections and removes the socket's file. Owned by the daemon.
class ControlSocket {
  public:
    // Both must outlive the socket. Throws: RunTimeError as `LocalLineServer`.
    ControlSocket(platform::AsioPump& pump, const std::filesystem::path& path,
                  ControlService& service);

  private:
    platform::LocalLineServer server_;
};

}  // namespace app
