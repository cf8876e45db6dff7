#include "app/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>

#include "app/command.h"
#include "app/home_path.h"
#include "automation/code_page.h"
#include "automation/run_time_error.h"

namespace app {
namespace {

constexpr int kError = 1;
constexpr int kWrongUsage = 2;

struct Words {
    std::vector<std::string> plain;  // last one first, as the parser takes them
    std::vector<std::string> verbatim;
};

Words split_words(int argc, const char* const* argv) {
    Words words;
    const std::vector<std::string> all(argv + std::min(argc, 1), argv + argc);
    const auto mark = std::ranges::find(all, "--");
    words.plain.assign(all.begin(), mark);
    std::ranges::reverse(words.plain);
    if (mark != all.end()) {
        words.verbatim.assign(mark + 1, all.end());
    }
    return words;
}

int tell(const std::string& text, int exit_code = kError) {
    std::cerr << "zynvelora: " << text << std::endl;
    return exit_code;
}

// What is wrong with the first word, of which the parser would only say that a sub-command is
// missing; "" when it is one, or an option.
std::string first_word_problem(const CLI::App& program, const std::string& word) {
    if (word.empty() || word.front() == '-') {
        return {};
    }
    std::string names;
    for (const CLI::App* command : program.get_subcommands([](const CLI::App*) { return true; })) {
        if (command->get_name() == word) {
            return {};
        }
        names += (names.empty() ? "" : ", ") + command->get_name();
    }
    return "there is no sub-command '" + word + "'; there are " + names;
}

int carry_out(const Run& run) {
    try {
        run();
        std::cout.flush();
        return std::cout ? EXIT_SUCCESS : tell("cannot write to the standard output");
    } catch (const ExitCode& exit) {
        std::cout.flush();
        return exit.code;
    } catch (const automation::RunTimeError& error) {
        return tell(automation::code_page_to_utf8(error.description()));
    } catch (const std::exception& error) {
        return tell(error.what());
    }
}

// Scripts are started often and are often short: they do not wait for the other sub-commands.
void add_commands(CLI::App& program, Run& run, const Words& words,
                  const PluginFactory& make_plugin) {
    if (!words.plain.empty() && words.plain.back() == "script") {
        add_script_command(program, run, words.verbatim);
        return;
    }
    add_serve_command(program, run, make_plugin);
    add_call_command(program, run, words.verbatim);
    add_status_command(program, run);
    add_log_command(program, run);
    add_devices_command(program, run);
    add_device_command(program, run, words.verbatim);
    add_x10_command(program, run, words.verbatim);
    add_press_command(program, run, words.verbatim);
    add_menu_command(program, run, words.verbatim);
    add_udp_client_command(program, run);
    add_modem_command(program, run);
    add_phonebook_command(program, run);
    add_ring_command(program, run);
    add_events_command(program, run);
    add_event_command(program, run);
    add_xap_command(program, run, make_plugin);
    add_xap_send_command(program, run, words.verbatim);
    add_xap_monitor_command(program, run);
    add_setup_command(program, run);
    add_server_options_command(program, run);
    add_script_command(program, run, words.verbatim);
    add_unit_command(program, run);
    add_tell_unit_command(program, run);
}

}  // namespace

void add_home_option(CLI::App& command, std::string& home) {
    command.add_option("--home", home, "the home; else $ZYNVELORA_HOME, else the project's own")
        ->type_name("DIR");
}

void take_words(CLI::App& command, const std::string& usage, std::size_t least, std::size_t most,
                const std::vector<std::string>& verbatim, std::vector<std::string>& words) {
    command.allow_extras();
    command.parse_complete_callback([&command, usage, least, most, &verbatim, &words] {
        words = command.remaining();
        for (const std::string& word : words) {
            if (word.starts_with("--")) {
                throw CLI::ExtrasError(command.get_name(), {word});
            }
        }
        words.insert(words.end(), verbatim.begin(), verbatim.end());
        if (words.size() < least || words.size() > most) {
            throw CLI::ValidationError(command.get_name(), "wants " + usage);
        }
    });
}

std::filesystem::path chosen_home(const std::string& option) {
    return home_path(option, std::getenv("ZYNVELORA_HOME"));
}

int run_command_line(int argc, const char* const* argv, const PluginFactory& make_plugin) {
    Words words = split_words(argc, argv);
    CLI::App program("Units on the wall that speak, show and blink for the house", "zynvelora");
    program.set_version_flag("--version", ZYN_VERSION);
    program.require_subcommand(1);
    Run run;
    add_commands(program, run, words, make_plugin);
    const std::string problem =
        first_word_problem(program, words.plain.empty() ? "" : words.plain.back());
    if (!problem.empty()) {
        return tell(problem, kWrongUsage);
    }
    try {
        program.parse(std::move(words.plain));
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == EXIT_SUCCESS ? EXIT_SUCCESS : kWrongUsage;
    }
    return carry_out(run);
}

}  // namespace app
