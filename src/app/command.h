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

// Ends a sub-command with an exit code of its own, when all has been told.
struct ExitCode {
    int code = 0;
};

// Each adds its sub-command to the program and sets `run` when it is the chosen one.
void add_serve_command(CLI::App& program, Run& run, const PluginFactory& make_plugin);
void add_unit_command(CLI::App& program, Run& run);
void add_tell_unit_command(CLI::App& program, Run& run);
void add_xap_command(CLI::App& program, Run& run, const PluginFactory& make_plugin);
void add_xap_monitor_command(CLI::App& program, Run& run);

// `verbatim` are the words behind a "--", which are arguments whatever they look like.
void add_xap_send_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim);
void add_call_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim);

// All words behind the first one are the script's, options included.
void add_script_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim);
void add_log_command(CLI::App& program, Run& run);
void add_status_command(CLI::App& program, Run& run);

void add_devices_command(CLI::App& program, Run& run);
void add_device_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim);
void add_x10_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim);
void add_press_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim);
void add_menu_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim);
void add_udp_client_command(CLI::App& program, Run& run);
void add_modem_command(CLI::App& program, Run& run);
void add_phonebook_command(CLI::App& program, Run& run);
void add_ring_command(CLI::App& program, Run& run);
void add_events_command(CLI::App& program, Run& run);
void add_event_command(CLI::App& program, Run& run);
void add_setup_command(CLI::App& program, Run& run);
void add_server_options_command(CLI::App& program, Run& run);

// Lets a command take `least` to `most` words, also those that begin with a "-", as negative
// numbers do; options that there are not are wrong usage all the same. `usage` tells them, and
// `words` gets them before the command's callback runs. Both vectors outlive the parsing.
void take_words(CLI::App& command, const std::string& usage, std::size_t least, std::size_t most,
                const std::vector<std::string>& verbatim, std::vector<std::string>& words);

// The option --home, which all sub-commands that work on a home share.
void add_home_option(CLI::App& command, std::string& home);

// The home that `add_home_option` and the environment name.
[[nodiscard]] std::filesystem::path chosen_home(const std::string& option);

}  // namespace app
