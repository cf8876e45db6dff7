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
    bool list = false;
    std::vector<std::string> words;  // the operation and its arguments
};

void list_operations(ControlClient& client) {
    client.send({{"do", "operations"}});
    const Json answer = client.receive();
    for (const Json& usage : answer.at("operations")) {
        std::cout << usage.get<std::string>() << "\n";
    }
}

void call(const Options& options) {
    ControlClient client(chosen_home(options.home));
    if (options.list) {
        list_operations(client);
        return;
    }
    const Json arguments(std::vector<std::string>(options.words.begin() + 1, options.words.end()));
    client.send({{"do", "call"}, {"operation", options.words.front()}, {"arguments", arguments}});
    std::cout << result_text(client.receive().at("result"));
}

}  // namespace

void add_call_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim) {
    CLI::App* command = program.add_subcommand(
        "call", "Call an operation of the plug-in: zynvelora call OPERATION [ARG...]");
    command->footer(
        "An argument that looks like an option of this command stands behind \"--\":\n"
        "    zynvelora call VeloraSpeak kitchen -- --help");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command->add_flag("--list", options->list, "list all operations with their arguments");
    command->allow_extras();
    command->callback([command, options, &run, &verbatim] {
        options->words = command->remaining();
        options->words.insert(options->words.end(), verbatim.begin(), verbatim.end());
        if (options->words.empty() != options->list) {
            throw CLI::ValidationError(
                "call", options->list ? "--list takes no operation" : "OPERATION is required");
        }
        run = [options] { call(*options); };
    });
}

}  // namespace app
