#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "app/command.h"
#include "app/control_client.h"
#include "app/server_form.h"
#include "app/setup_changes.h"
#include "app/setup_form.h"
#include "app/terminal_screen.h"

// The plug-in's two dialogs on a terminal.
namespace app {
namespace {

struct Options {
    std::string home;
    std::string page;
    std::string button;
    std::vector<std::string> changes;
    bool list = false;
};

Json ask(ControlClient& client, const Json& request) {
    client.send(request);
    return client.receive();
}

Json open_setup(ControlClient& client, const Options& options) {
    Json request = {{"do", "setup"}};
    if (!options.page.empty()) {
        request["page"] = options.page;
    }
    return ask(client, request).at("setup");
}

void cancel_setup(ControlClient& client) {
    (void)ask(client, {{"do", "setup_cancel"}});
}

void list_setup(ControlClient& client, const Options& options) {
    const Json setup = open_setup(client, options);
    cancel_setup(client);
    for (const std::string& line : setup_table(setup)) {
        std::cout << line << '\n';
    }
}

// All or nothing: a change that the dialog refuses leaves the settings as they were.
void change_setup(ControlClient& client, const Options& options) {
    try {
        const Json changes = parse_changes(open_setup(client, options), options.changes);
        (void)ask(client, {{"do", "setup_ok"}, {"controls", changes}});
    } catch (const CommandFailure&) {
        cancel_setup(client);
        throw;
    }
    std::cout << "saved\n";
}

// True when the form is done with.
bool carry_out(ControlClient& client, SetupForm& form, SetupForm::Outcome outcome) {
    try {
        switch (outcome) {
            case SetupForm::Outcome::Ok:
                (void)ask(client, {{"do", "setup_ok"}, {"controls", form.changes()}});
                return true;
            case SetupForm::Outcome::Cancel:
                cancel_setup(client);
                return true;
            case SetupForm::Outcome::Button:
                (void)ask(client, {{"do", "setup_press"}, {"button", form.pressed_button()}});
                return false;
            case SetupForm::Outcome::GoesOn:
                break;
        }
    } catch (const DaemonError& error) {
        form.tell(error.what());
    }
    return false;
}

void edit_setup(ControlClient& client, const Options& options) {
    SetupForm form(open_setup(client, options));
    const TerminalScreen screen;
    for (bool is_done = false; !is_done;) {
        form.set_window(TerminalScreen::size());
        TerminalScreen::show(form.picture());
        is_done = carry_out(client, form, form.press(TerminalScreen::take_key()));
    }
}

void run_setup(const Options& options) {
    ControlClient client(chosen_home(options.home));
    if (!options.changes.empty()) {
        change_setup(client, options);
    } else if (options.list || !is_at_terminal()) {
        list_setup(client, options);
    } else {
        edit_setup(client, options);
    }
}

// --- "Velora Server" ----------------------------------------------------------------------------

Json press_server_button(ControlClient& client, const std::string& button) {
    return ask(client, {{"do", "server_press"}, {"button", button}}).at("server_options");
}

void watch_server(ControlClient& client) {
    using Outcome = ServerForm::Outcome;
    ServerForm form;
    form.take(ask(client, {{"do", "server_open"}}).at("server_options"));
    const TerminalScreen screen;
    for (auto outcome = Outcome::GoesOn; outcome != Outcome::Close;) {
        form.set_window(TerminalScreen::size());
        TerminalScreen::show(form.picture());
        outcome = form.press(TerminalScreen::take_key());
        if (outcome == Outcome::Debug) {
            (void)ask(client, {{"do", "server_debug"}, {"value", form.debug()}});
        } else if (outcome != Outcome::GoesOn) {
            (void)press_server_button(client, form.pressed_button());
        }
        form.take(ask(client, {{"do", "server_options"}}).at("server_options"));
    }
}

void run_server_options(const Options& options) {
    ControlClient client(chosen_home(options.home));
    if (options.button.empty() && is_at_terminal()) {
        watch_server(client);
        return;
    }
    const Json shown = options.button.empty()
                           ? ask(client, {{"do", "server_open"}}).at("server_options")
                           : press_server_button(client, options.button);
    std::cout << printable_lines(shown.at("box").get<std::string>());
}

}  // namespace

void add_setup_command(CLI::App& program, Run& run) {
    CLI::App* command = program.add_subcommand("setup", "Change the settings in their dialog");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command->add_option("--page", options->page, "the page to show first")->type_name("PAGE");
    CLI::Option* list =
        command->add_flag("--list", options->list, "print all controls and what they hold");
    command
        ->add_option("--set", options->changes,
                     "change a control or setting and press OK; aIP.2 is the third place of aIP")
        ->type_name("NAME=VALUE")
        ->excludes(list);
    command->callback([options, &run] { run = [options] { run_setup(*options); }; });
}

void add_server_options_command(CLI::App& program, Run& run) {
    CLI::App* command = program.add_subcommand("server-options",
                                               "Look at the link to the UDP clients, and test it");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command
        ->add_option("--press", options->button,
                     "press a button: TestMessageButton, TestCommandButton, AdvancedInfoButton")
        ->type_name("BUTTON");
    command->callback([options, &run] { run = [options] { run_server_options(*options); }; });
}

}  // namespace app
