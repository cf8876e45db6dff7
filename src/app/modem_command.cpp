#include <CLI/CLI.hpp>
#include <chrono>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <thread>

#include "app/command.h"
#include "app/control_client.h"
#include "app/echo_screen.h"
#include "app/modem_capture.h"
#include "app/modem_player.h"
#include "app/terminal_screen.h"

namespace app {
namespace {

struct Options {
    std::string home;
    std::string play;
    std::string device;
    std::optional<std::string> send;
    bool without_line_end = false;
};

Json look_at(ControlClient& client) {
    client.send({{"do", "modem"}});
    return client.receive().at("modem");
}

void send(ControlClient& client, const ModemLine& line) {
    client.send({{"do", "modem_send"}, {"text", line.text + (line.with_line_end ? "\r\n" : "")}});
    (void)client.receive();
}

void watch_on_screen(ControlClient& client) {
    EchoScreen screen;
    while (!screen.is_closed()) {
        screen.show(look_at(client));
        if (const auto line = screen.take_keys()) {
            send(client, *line);
        }
    }
}

// What is new in a box of which `written` characters had been written at the last look. The text
// is UTF-8, and counts characters of the code page.
std::string news(const std::string& text, std::uint64_t& seen, std::uint64_t written) {
    std::uint64_t count = written - seen;
    seen = written;
    auto at = text.end();
    while (at != text.begin() && count > 0) {
        --at;
        count -= (static_cast<unsigned char>(*at) & 0xC0U) != 0x80U ? 1 : 0;
    }
    return {at, text.end()};
}

// For a pipe or a file: the traffic as it comes, until Ctrl-C.
void watch_in_lines(ControlClient& client) {
    constexpr std::chrono::milliseconds kLook{200};
    std::uint64_t seen = 0;
    while (std::cout) {
        const Json modem = look_at(client);
        std::cout << news(modem.at("data").get<std::string>(), seen,
                          modem.at("data_written").get<std::uint64_t>())
                  << std::flush;
        std::this_thread::sleep_for(kLook);
    }
}

void play(const Options& options) {
    std::ifstream stream(options.play, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (!stream.is_open() || stream.bad()) {
        throw CommandFailure("cannot read " + options.play);
    }
    const std::vector<CaptureStep> steps = parse_modem_capture(text, options.play);
    platform::AsioPump pump;
    ModemPlayer player(pump,
                       options.device.empty() ? chosen_home(options.home) / "modem"
                                              : std::filesystem::path(options.device),
                       std::cout);
    pump.on_stop_signal([&pump] { pump.stop(); });
    try {
        player.wait_for_reader();
        player.play(steps);
    } catch (const host::PumpStopped&) {
        std::cout << "hung up" << std::endl;
    }
}

void run_modem(const Options& options) {
    if (!options.play.empty()) {
        play(options);
        return;
    }
    ControlClient client(chosen_home(options.home));
    if (options.send) {
        send(client, {*options.send, !options.without_line_end});
    } else if (is_at_terminal()) {
        watch_on_screen(client);
    } else {
        watch_in_lines(client);
    }
}

}  // namespace

void add_modem_command(CLI::App& program, Run& run) {
    CLI::App* command =
        program.add_subcommand("modem", "Look at the traffic of the modem, or play one");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    CLI::Option* send_option =
        command->add_option("--send", options->send, "send one line to the modem")
            ->type_name("TEXT");
    command->add_flag("--no-crlf", options->without_line_end, "send it without CR LF")
        ->needs(send_option);
    CLI::Option* play_option =
        command
            ->add_option("--play", options->play,
                         "be a modem that says what stands in the file; see data/Modem")
            ->type_name("FILE")
            ->excludes(send_option);
    command
        ->add_option("--device", options->device,
                     "where that modem is to be found; else modem in the home")
        ->type_name("PATH")
        ->needs(play_option);
    command->callback([options, &run] { run = [options] { run_modem(*options); }; });
}

}  // namespace app
