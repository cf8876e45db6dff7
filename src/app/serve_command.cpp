#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <memory>

#include "app/command.h"
#include "app/home_path.h"

namespace app {
namespace {

struct Options {
    std::string home;
    bool as_designed = false;
};

void serve(const Options& options, const PluginFactory& make_plugin) {
    std::signal(SIGPIPE, SIG_IGN);
    Daemon daemon(
        {.home = chosen_home(options.home),
         .data = data_path(std::getenv("ZYNVELORA_DATA")),
         .protection = options.as_designed ? host::Protection() : host::Protection::hardened()},
        make_plugin);
    daemon.run([&daemon] { std::cout << "zynvelora is up: " << daemon.summary() << std::endl; });
}

}  // namespace

void add_serve_command(CLI::App& program, Run& run, const PluginFactory& make_plugin) {
    CLI::App* command = program.add_subcommand("serve", "Run the daemon of a home until Ctrl-C");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command->add_flag("--as-designed", options->as_designed,
                      "without the rules that protect a daemon on a home network");
    command->callback([options, &run, &make_plugin] {
        run = [options, &make_plugin] { serve(*options, make_plugin); };
    });
}

}  // namespace app
