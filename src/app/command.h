#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/daemon.h"

namespace CLI {
class App;
}

namespace app {

// What the chosen sub-command does, once the command line has been read. What it throws is told
// the user, and the exit code is 1.
using Run = std::function<void()>;

// Each adds its sub-command to the program and sets `run` when it is the chosen one.
void add_serve_command(CLI::App& program, Run& run, const PluginFactory& make_plugin);
void add_unit_command(CLI::App& program, Run& run);
void add_tell_unit_command(CLI::App& program, Run& run);

// `verbatim` are the words behind a "--", which are arguments whatever they look like.
void add_call_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim);
void add_log_command(CLI::App& program, Run& run);
void add_status_command(CLI::App& program, Run& run);

// The option --home, which all sub-commands that work on a home share.
void add_home_option(CLI::App& command, std::string& home);

// The home that `add_home_option` and the environment name.
[[nodiscard]] std::filesystem::path chosen_home(const std::string& option);

}  // namespace app
