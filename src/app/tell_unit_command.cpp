#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "app/command.h"
#include "app/control_client.h"
#include "unit/tell_unit.h"

namespace app {
namespace {

struct Options {
    std::string state_directory;
    std::vector<std::string> words;
};

void tell(const Options& options) {
    constexpr std::string_view kRefusal = "error: ";
    const std::string answer =
        unit::tell_unit(options.state_directory, CLI::detail::join(options.words, " "));
    if (answer.starts_with(kRefusal)) {
        throw CommandFailure(answer.substr(kRefusal.size()));
    }
    std::cout << answer << "\n";
}

}  // namespace

void add_tell_unit_command(CLI::App& program, Run& run) {
    CLI::App* command =
        program.add_subcommand("tell-unit", "Give a running unit a fault, or switch its power");
    command->footer(
        "Commands:\n"
        "    normal       answer as it should\n"
        "    silent       take requests and never answer\n"
        "    slow MS      answer that many milliseconds later\n"
        "    drop         close each connection at once\n"
        "    not-found    answer each request with a 404 page\n"
        "    hang         send half of each answer\n"
        "    power off    as when the switch is turned\n"
        "    power on     and boot\n"
        "    subscribe    let its client program be told of calls and commands\n"
        "    unsubscribe  let it be told no more\n"
        "    boot S       how long a boot takes from now on, in seconds\n"
        "    state        print its state as JSON");
    const auto options = std::make_shared<Options>();
    command->add_option("STATE_DIR", options->state_directory, "state directory of the unit")
        ->required();
    command->add_option("COMMAND", options->words, "one of those below")->required();
    command->callback([options, &run] { run = [options] { tell(*options); }; });
}

}  // namespace app
