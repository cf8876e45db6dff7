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

void serve(const Options& options, HomeProgram program, const PluginFactory& make_plugin) {
    std::signal(SIGPIPE, SIG_IGN);
    Daemon daemon(
        {.home = chosen_home(options.home),
         .data = data_path(std::getenv("ZYNVELORA_DATA")),
         .protection = options.as_designed ? host::Protection() : host::Protection::hardened(),
         .program = program},
        make_plugin);
    daemon.run([&daemon] { std::cout << "zynvelora is up: " << daemon.summary() << std::endl; });
}

void add_options(CLI::App& command, HomeProgram program, Run& run,
                 const PluginFactory& make_plugin) {
    const auto options = std::make_shared<Options>();
    add_home_option(command, options->home);
    command.add_flag("--as-designed", options->as_designed,
                     "without the rules that protect a daemon on a home network");
    command.callback([options, program, &run, &make_plugin] {
        run = [options, program, &make_plugin] { serve(*options, program, make_plugin); };
    });
}

}  // namespace

void add_serve_command(CLI::App& program, Run& run, const PluginFactory& make_plugin) {
    CLI::App* command = program.add_subcommand("serve", "Run the daemon of a home until Ctrl-C");
    add_options(*command, HomeProgram::Daemon, run, make_plugin);
}

void add_xap_command(CLI::App& program, Run& run, const PluginFactory& make_plugin) {
    CLI::App* command = program.add_subcommand(
        "xap", "Run the units of a home as a node of an xAP network until Ctrl-C");
    command->footer(
        "For a home whose zynVeloraUtilities.ini has RunAsXapNode=1; the daemon (\"serve\") then\n"
        "leaves the units to this program, and both run side by side.");
    add_options(*command, HomeProgram::XapNode, run, make_plugin);
}

}  // namespace app
