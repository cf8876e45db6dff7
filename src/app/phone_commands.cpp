#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "app/command.h"
#include "app/control_client.h"
#include "app/text_table.h"

// The sub-commands about calls: who is in the phonebook, and a call on a line of the house.
namespace app {
namespace {

struct Options {
    std::string home;
    std::string number;
    std::string name;
    std::int64_t line = 1;
};

void list_phonebook(const Options& options) {
    const Json phonebook = ask(chosen_home(options.home), {{"do", "phonebook"}}).at("phonebook");
    std::vector<std::vector<std::string>> rows;
    for (const Json& line : phonebook) {
        std::vector<std::string> row;
        for (const char* member : {"number", "name", "location", "sound"}) {
            row.push_back(printable(line.at(member).get<std::string>()));
        }
        rows.push_back(std::move(row));
    }
    for (const std::string& line : text_table(
             {{.title = "NUMBER"}, {.title = "NAME"}, {.title = "LOCATION"}, {.title = "SOUND"}},
             rows)) {
        std::cout << line << '\n';
    }
}

void look_up(const Options& options) {
    const Json answer =
        ask(chosen_home(options.home), {{"do", "look_up"}, {"number", options.number}});
    std::cout << printable(answer.at("caller").get<std::string>()) << '\n';
}

void ring(const Options& options) {
    const Json answer = ask(chosen_home(options.home),
                            {{"do", "ring"},
                             {"number", options.number},
                             {"name", options.name},
                             {"line", options.line}},
                            Wanted::Host);
    std::cout << answer.at("done").get<std::string>() << '\n';
}

}  // namespace

void add_phonebook_command(CLI::App& program, Run& run) {
    CLI::App* phonebook =
        program.add_subcommand("phonebook", "List the phonebook, or look a number up in it");
    phonebook->require_subcommand(1);
    const auto options = std::make_shared<Options>();
    CLI::App* list = phonebook->add_subcommand("list", "All numbers");
    add_home_option(*list, options->home);
    list->callback([options, &run] { run = [options] { list_phonebook(*options); }; });
    CLI::App* lookup = phonebook->add_subcommand("lookup", "What a call from a number shows");
    add_home_option(*lookup, options->home);
    lookup->add_option("NUMBER", options->number, "in any lay-out")->required();
    lookup->callback([options, &run] { run = [options] { look_up(*options); }; });
}

void add_ring_command(CLI::App& program, Run& run) {
    CLI::App* command =
        program.add_subcommand("ring", "A call comes in on a telephone line of the house");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command->add_option("NUMBER", options->number, "the caller's")->required();
    command->add_option("NAME", options->name, "as the telephone network tells it");
    command->add_option("--line", options->line, "from 1")->capture_default_str();
    command->callback([options, &run] { run = [options] { ring(*options); }; });
}

}  // namespace app
