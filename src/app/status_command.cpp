#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "app/answer_text.h"
#include "app/command.h"
#include "app/control_client.h"

namespace app {
namespace {

struct Options {
    std::string home;
    bool json = false;
};

void show_status(const Options& options) {
    ControlClient client(chosen_home(options.home));
    client.send({{"do", "status"}});
    const Json status = client.receive().at("status");
    std::cout << (options.json ? status.dump(4) + "\n" : status_text(status));
}

}  // namespace

void add_status_command(CLI::App& program, Run& run) {
    CLI::App* command =
        program.add_subcommand("status", "Show units, queues and timers of the running daemon");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command->add_flag("--json", options->json, "as JSON, for programs");
    command->callback([options, &run] { run = [options] { show_status(*options); }; });
}

}  // namespace app
