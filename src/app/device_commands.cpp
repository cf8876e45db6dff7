#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "app/command.h"
#include "app/control_client.h"
#include "app/house_text.h"

// The sub-commands that look at devices and set them off.
namespace app {
namespace {

struct Options {
    std::string home;
    bool json = false;
    bool send = false;
    std::vector<std::string> words;
};

void show_devices(const Options& options) {
    const Json devices = ask(chosen_home(options.home), {{"do", "devices"}}).at("devices");
    std::cout << (options.json ? devices.dump(4) + "\n" : devices_text(devices));
}

// Shows one device with its values, or sets it and shows what it is then.
void show_or_set_device(const Options& options) {
    const bool sets = options.words.size() > 1;
    Json request = {{"do", sets ? "set" : "device"}, {"code", options.words.front()}};
    if (sets) {
        request["value"] = options.words.back();
    }
    const Json device = ask(chosen_home(options.home), request).at("device");
    if (options.json) {
        std::cout << device.dump(4) << "\n";
    } else {
        std::cout << (sets ? devices_text(Json::array({device})) : device_text(device));
    }
}

void x10(const Options& options) {
    ask(chosen_home(options.home),
        {{"do", "x10"},
         {"code", options.words.front()},
         {"command", options.words.back()},
         {"origin", options.send ? "sent" : "received"}},
        Wanted::Host);
}

void press(const Options& options) {
    ask(chosen_home(options.home), {{"do", "press"}, {"button", options.words.front()}});
}

void show_or_select_menu(const Options& options) {
    if (!options.words.empty()) {
        ask(chosen_home(options.home), {{"do", "select"}, {"entry", options.words.front()}});
        return;
    }
    const Json menu = ask(chosen_home(options.home), {{"do", "menu"}}).at("menu");
    std::cout << (options.json ? menu.dump(4) + "\n" : menu_text(menu));
}

}  // namespace

void add_devices_command(CLI::App& program, Run& run) {
    CLI::App* command = program.add_subcommand("devices", "List the devices of the house");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command->add_flag("--json", options->json, "as JSON, for programs");
    command->callback([options, &run] { run = [options] { show_devices(*options); }; });
}

void add_device_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim) {
    CLI::App* command = program.add_subcommand(
        "device", "Show a device with its values, or set it: zynvelora device CODE [VALUE]");
    command->footer(
        "VALUE is a number or a word of the device's values:\n"
        "    zynvelora device '[4' 'Blink Top LED'");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command->add_flag("--json", options->json, "as JSON, for programs");
    take_words(*command, "CODE [VALUE]", 1, 2, verbatim, options->words);
    command->callback([options, &run] { run = [options] { show_or_set_device(*options); }; });
}

void add_x10_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim) {
    CLI::App* command = program.add_subcommand(
        "x10", "Be a sensor or remote on the power line: zynvelora x10 CODE on|off");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command->add_flag("--send", options->send, "send as the host does, instead of being heard");
    take_words(*command, "CODE on|off", 2, 2, verbatim, options->words);
    command->callback([options, &run] { run = [options] { x10(*options); }; });
}

void add_press_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim) {
    CLI::App* command =
        program.add_subcommand("press", "Press a button of a device: zynvelora press BUTTON");
    command->footer(
        "Each device lists its buttons:\n"
        "    zynvelora press 'Turn On Top LED @ hall Velora'");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    take_words(*command, "BUTTON", 1, 1, verbatim, options->words);
    command->callback([options, &run] { run = [options] { press(*options); }; });
}

void add_menu_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim) {
    CLI::App* command = program.add_subcommand(
        "menu", "List the plug-in's menu, or choose from it: zynvelora menu [ENTRY]");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command->add_flag("--json", options->json, "as JSON, for programs");
    take_words(*command, "[ENTRY]", 0, 1, verbatim, options->words);
    command->callback([options, &run] { run = [options] { show_or_select_menu(*options); }; });
}

}  // namespace app
