#pragma once

#include "app/daemon.h"

namespace app {

// The program `zynvelora` with all its sub-commands. Result is the exit code: 0, 1 for an error,
// which is told on stderr, 2 for wrong usage. `make_plugin` gives what the daemon carries.
[[nodiscard]] int run_command_line(int argc, const char* const* argv,
                                   const PluginFactory& make_plugin);

}  // namespace app
