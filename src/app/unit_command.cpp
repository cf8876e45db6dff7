#include "unit/unit_command.h"

#include <CLI/CLI.hpp>
#include <csignal>
#include <iostream>
#include <memory>

#include "app/command.h"
#include "app/home_path.h"
#include "unit/unit.h"

namespace app {
namespace {

// Where a fresh house expects the music players.
constexpr std::uint16_t kJukeboxPort = 8024;

struct Options {
    unit::UnitOptions unit;
    std::string state_directory;
    std::int64_t boot_seconds = 3;
};

void run_unit(Options options) {
    std::signal(SIGPIPE, SIG_IGN);
    unit::UnitOptions& settings = options.unit;
    settings.boot_time = std::chrono::seconds(options.boot_seconds);
    settings.state_directory = options.state_directory.empty()
                                   ? unit_path(chosen_home({}), settings.name)
                                   : std::filesystem::path(options.state_directory);
    unit::Unit unit(settings);
    unit.stop_on_signals();
    std::cout << "unit " << settings.name << " is up: http://" << unit.address() << "/, state in "
              << settings.state_directory.string() << std::endl;
    unit.run();
}

}  // namespace

void add_unit_command(CLI::App& program, Run& run) {
    CLI::App* command = program.add_subcommand("unit", "Be a unit, without screen, until Ctrl-C");
    const auto options = std::make_shared<Options>();
    command->add_option("--name", options->unit.name, "what it calls itself")
        ->type_name("NAME")
        ->required();
    command->add_option("--listen", options->unit.listen, "where its web server listens")
        ->type_name("IP:PORT")
        ->required();
    command
        ->add_option("--state-dir", options->state_directory,
                     "where it shows what it does; else units/NAME beside the home")
        ->type_name("DIR");
    options->unit.jukebox_port = kJukeboxPort;
    command
        ->add_option("--jukebox", options->unit.jukebox_port,
                     "port of its music player, at the same address; 0 takes any free port")
        ->type_name("PORT")
        ->capture_default_str();
    command
        ->add_option("--client-of", options->unit.daemon,
                     "where a daemon listens for client programs; this unit runs one then")
        ->type_name("IP:PORT");
    command
        ->add_option("--client-port", options->unit.client_port,
                     "UDP port of that client program, the daemon's RemotePort")
        ->type_name("PORT")
        ->capture_default_str();
    command
        ->add_option("--boot-time", options->boot_seconds, "seconds from power-on until it answers")
        ->type_name("S")
        ->capture_default_str()
        ->check(CLI::Range(std::int64_t{0},
                           std::int64_t{unit::kLongestBoot / std::chrono::seconds(1)}));
    command->callback([options, &run] { run = [options] { run_unit(*options); }; });
}

}  // namespace app
