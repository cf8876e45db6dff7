#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "app/command.h"
#include "app/control_client.h"
#include "app/house_text.h"

// The sub-commands that look at the house's events and change them.
namespace app {
namespace {

struct Options {
    std::string home;
    bool json = false;
    std::string name;
    std::string when;
    std::vector<std::string> actions;
};

Json ask_host(const Options& options, const Json& request) {
    return ask(chosen_home(options.home), request, Wanted::Host);
}

void show_events(const Options& options) {
    const Json events = ask_host(options, {{"do", "events"}}).at("events");
    std::cout << (options.json ? events.dump(4) + "\n" : events_text(events));
}

void add_event(const Options& options) {
    const Json answer = ask_host(options, {{"do", "add_event"},
                                           {"name", options.name},
                                           {"when", options.when},
                                           {"actions", options.actions}});
    std::cout << events_text(Json::array({answer.at("event")}));
}

struct Step {
    const char* word;
    const char* request;
    const char* help;
};

constexpr Step kSteps[] = {
    {"remove", "remove_event", "Forget an event"},
    {"run", "run_event", "Run an event now, enabled or not"},
    {"enable", "enable_event", "Let an event run by itself again"},
    {"disable", "disable_event", "Let an event run by hand only"},
};

constexpr const char* kNotation =
    "TRIGGER  at 07:30 | every 5 minutes | device [11 | device [11 = 1 | x10 B2 on | phone 1\n"
    "ACTION   set [13 = 1 | press BUTTON | action TEXT | script LINE";

CLI::App* named_command(CLI::App& event, const char* word, const char* help,
                        const std::shared_ptr<Options>& options) {
    CLI::App* command = event.add_subcommand(word, help);
    add_home_option(*command, options->home);
    command->add_option("NAME", options->name, "its name")->required();
    return command;
}

}  // namespace

void add_events_command(CLI::App& program, Run& run) {
    CLI::App* command = program.add_subcommand("events", "List the events of the house");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command->add_flag("--json", options->json, "as JSON, for programs");
    command->callback([options, &run] { run = [options] { show_events(*options); }; });
}

void add_event_command(CLI::App& program, Run& run) {
    CLI::App* event =
        program.add_subcommand("event", "Add, remove, run, enable or disable an event");
    event->require_subcommand(1);
    const auto options = std::make_shared<Options>();
    CLI::App* add = named_command(*event, "add", "Make an event", options);
    add->footer(kNotation);
    add->add_option("--when", options->when, "what sets it off")->type_name("TRIGGER")->required();
    add->add_option("--do", options->actions, "what it does; more than one run in their order")
        ->type_name("ACTION")
        ->allow_extra_args(false)
        ->required();
    add->callback([options, &run] { run = [options] { add_event(*options); }; });
    for (const Step& step : kSteps) {
        CLI::App* command = named_command(*event, step.word, step.help, options);
        command->callback([options, request = step.request, &run] {
            run = [options, request] {
                ask_host(*options, {{"do", request}, {"name", options->name}});
            };
        });
    }
}

}  // namespace app
