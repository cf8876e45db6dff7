#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdlib>
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
    std::int64_t lines = 50;
    bool follow = false;
};

Colours wanted_colours() {
    return ::isatty(STDOUT_FILENO) != 0 && std::getenv("NO_COLOR") == nullptr ? Colours::On
                                                                              : Colours::Off;
}

// The daemon gives so much at once as it likes, and tells whether more is there. With `follow` the
// end never comes.
void show_log(const Options& options) {
    ControlClient client(chosen_home(options.home));
    LogText text(wanted_colours());
    client.send({{"do", "log"}, {"lines", options.lines}, {"follow", options.follow}});
    while (std::cout) {
        const Json answer = client.receive();
        if (const auto line = answer.find("line"); line != answer.end()) {
            std::cout << text.line(*line) << std::flush;
            continue;
        }
        const Json& end = answer.at("end");
        if (!end.at("more").get<bool>()) {
            return;
        }
        client.send({{"do", "log"}, {"after", end.at("after")}, {"follow", options.follow}});
    }
}

}  // namespace

void add_log_command(CLI::App& program, Run& run) {
    CLI::App* command = program.add_subcommand("log", "Show the log of the running daemon");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command->add_option("-n", options->lines, "how many of the newest lines")
        ->type_name("COUNT")
        ->capture_default_str()
        ->check(CLI::Range(std::int64_t{0}, std::int64_t{1'000'000'000}));
    command->add_flag("-f", options->follow, "go on with new lines until Ctrl-C");
    command->callback([options, &run] { run = [options] { show_log(*options); }; });
}

}  // namespace app
