#include "unit/command_page.h"

#include <array>

#include "automation/whole_number.h"

namespace unit {
namespace {

using Effect = std::optional<CommandEffect>;

constexpr int kHighestSound = 18;
constexpr int kHighestPercent = 100;

std::string with_plain_blanks(std::string_view argument) {
    constexpr std::string_view kEncodedBlank = "%20";
    std::string plain;
    while (!argument.empty()) {
        if (argument.starts_with(kEncodedBlank)) {
            plain += ' ';
            argument.remove_prefix(kEncodedBlank.size());
            continue;
        }
        plain += argument.front() == '+' ? ' ' : argument.front();
        argument.remove_prefix(1);
    }
    return plain;
}

void set_awake(ApplianceState& state, bool awake) {
    state.awake = awake;
    state.backlight = awake;
}

Effect switch_led(ApplianceState& state, std::string_view argument) {
    if (argument.size() != 2 || argument[1] < '0' || argument[1] > '2') {
        return std::nullopt;
    }
    const auto led = static_cast<Led>(argument[1] - '0');
    switch (argument[0]) {
        case 't':
            state.top_led = led;
            return Done{"Top LED " + std::string(to_text(led))};
        case 'm':
            state.mail_led = led;
            return Done{"Mail LED " + std::string(to_text(led))};
        default:
            return std::nullopt;
    }
}

Effect screen_on(ApplianceState& state, std::string_view) {
    state.backlight = true;
    return Done{"Backlight on"};
}

Effect screen_off(ApplianceState& state, std::string_view) {
    state.backlight = false;
    return Done{"Backlight off"};
}

Effect beep(ApplianceState& state, std::string_view argument) {
    const std::string plain = with_plain_blanks(argument);
    const std::string_view rest =
        std::string_view{plain}.substr(plain.size() < 2 ? plain.size() : 2);
    if (plain.starts_with("0 ")) {
        if (const auto sound = automation::whole_number(rest, 0, kHighestSound)) {
            state.last_sound = static_cast<int>(*sound);
            return Done{"Sound " + std::to_string(*sound)};
        }
    }
    if (plain.starts_with("4 ")) {
        if (const auto percent = automation::whole_number(rest, 0, kHighestPercent)) {
            state.sounds_volume = static_cast<int>(*percent);
            return Done{"Sounds volume " + std::to_string(*percent)};
        }
    }
    return std::nullopt;
}

Effect set_volume(ApplianceState& state, std::string_view argument) {
    const auto percent = automation::whole_number(argument, 0, kHighestPercent);
    if (!percent) {
        return std::nullopt;
    }
    state.volume = static_cast<int>(*percent);
    return Done{"Volume " + std::to_string(*percent)};
}

Effect toggle_full_screen(ApplianceState& state, std::string_view) {
    state.full_screen = !state.full_screen;
    return Done{state.full_screen ? "Full screen" : "Window"};
}

Effect sleep_or_wake(ApplianceState& state, std::string_view argument) {
    if (argument == "p") {
        return Done{state.awake ? "1" : "0"};
    }
    if (argument == "0" || argument == "1") {
        set_awake(state, argument == "1");
    } else if (argument == "t") {
        set_awake(state, !state.awake);
    } else {
        return std::nullopt;
    }
    return Done{state.awake ? "Awake" : "Asleep"};
}

constexpr std::string_view kWebScheme = "http://";

Effect load_sound(ApplianceState&, std::string_view argument) {
    if (!argument.starts_with(kWebScheme)) {
        return std::nullopt;
    }
    return LoadSound{std::string(argument)};
}

// A new page comes with the browser's bars; the sender hides them again with the toggle page.
Effect go_to_page(ApplianceState& state, std::string_view argument) {
    constexpr std::string_view kPrefix = "M=GOTO_URL&S=";
    if (!argument.starts_with(kPrefix) ||
        !argument.substr(kPrefix.size()).starts_with(kWebScheme)) {
        return std::nullopt;
    }
    state.full_screen = false;
    return ShowPage{std::string(argument.substr(kPrefix.size()))};
}

enum class Argument { None, Required };

struct CommandPage {
    std::string_view path;
    Argument argument;
    Effect (*apply)(ApplianceState& state, std::string_view argument);
};

constexpr std::array kCommandPages{
    CommandPage{"led.shtml", Argument::Required, switch_led},
    CommandPage{"scrOn.shtml", Argument::None, screen_on},
    CommandPage{"scrOff.shtml", Argument::None, screen_off},
    CommandPage{"beep.shtml", Argument::Required, beep},
    CommandPage{"volume.shtml", Argument::Required, set_volume},
    CommandPage{"cgi-bin/firef4", Argument::None, toggle_full_screen},
    CommandPage{"screen.shtml", Argument::Required, sleep_or_wake},
    CommandPage{"loadWav.shtml", Argument::Required, load_sound},
    CommandPage{"gotoURL.shtml", Argument::Required, go_to_page},
};

// What a word of the client program does is what one of the pages does.
struct ClientCommand {
    std::string_view word;
    std::string_view parameter;  // "" for any, which then ends the page's address
    std::string_view page;
};

constexpr std::array<ClientCommand, 9> kClientCommands{{
    {"TopLed", "off", "led.shtml?t0"},
    {"TopLed", "on", "led.shtml?t1"},
    {"TopLed", "blink", "led.shtml?t2"},
    {"MailLed", "off", "led.shtml?m0"},
    {"MailLed", "on", "led.shtml?m1"},
    {"MailLed", "blink", "led.shtml?m2"},
    {"Screen", "off", "screen.shtml?0"},
    {"Screen", "on", "screen.shtml?1"},
    {"Beep", "", "beep.shtml?0 "},
}};

}  // namespace

void apply_client_command(ApplianceState& state, std::string_view word,
                          std::string_view parameter) {
    for (const ClientCommand& command : kClientCommands) {
        const bool takes_any = command.parameter.empty();
        if (command.word == word && (takes_any || command.parameter == parameter)) {
            // A sound that there is not changes nothing, as on the page.
            (void)apply_command(state,
                                std::string(command.page).append(takes_any ? parameter : ""));
        }
    }
}

std::optional<CommandEffect> apply_command(ApplianceState& state, std::string_view target) {
    if (target.starts_with('/')) {
        target.remove_prefix(1);
    }
    const auto question_mark = target.find('?');
    const std::string_view path = target.substr(0, question_mark);
    const bool has_argument = question_mark != std::string_view::npos;
    const std::string_view argument =
        has_argument ? target.substr(question_mark + 1) : std::string_view{};
    for (const CommandPage& page : kCommandPages) {
        if (page.path == path && has_argument == (page.argument == Argument::Required)) {
            return page.apply(state, argument);
        }
    }
    return std::nullopt;
}

}  // namespace unit
