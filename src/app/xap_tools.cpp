#include <unistd.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <memory>

#include "app/command.h"
#include "app/control_client.h"
#include "app/text_table.h"
#include "app/xap_message_text.h"
#include "app/xap_transport.h"
#include "app/xap_words.h"
#include "automation/code_page.h"
#include "home/ini/ini_files.h"
#include "platform/asio/asio_pump.h"
#include "platform/system/system_clock.h"
#include "xapnet/address.h"

// For people who set filters up: a message by hand, and all that is said on the network.
namespace app {
namespace {

struct Options {
    std::string home;
    std::string target;
    std::string class_pattern;
    std::string source_pattern;
    bool heartbeats = false;
    std::vector<std::string> words;
};

// Of the home, or the usual ones without it.
XapSettings settings_of(const Options& options) {
    home::IniFiles files(chosen_home(options.home) / "Config", [](const std::string& problem) {
        std::cerr << automation::code_page_to_utf8(problem) << std::endl;
    });
    return read_xap_settings(files);
}

// --- xap-send -----------------------------------------------------------------------------------

class Silent final : private host::UdpSocketEvents {
  public:
    Silent(platform::AsioPump& pump, const XapSettings& settings)
        : network_(pump, settings.interface_address), socket_(network_.make_udp_socket(*this)) {
        socket_->set_remote_host(settings.broadcast_address);
        socket_->set_remote_port(settings.port);
    }

    void send(const std::string& datagram) { socket_->SendData(datagram); }

  private:
    platform::AsioNetwork network_;
    std::unique_ptr<host::UdpSocket> socket_;
};

void send_message(const Options& options) {
    const XapSettings settings = settings_of(options);
    const std::vector<std::string> items(options.words.begin() + 1, options.words.end());
    const XapBody body = xap_body_of(items);
    const std::string source = settings.source("send");
    const std::string target = automation::utf8_to_code_page(options.target);
    const std::string message_class = automation::utf8_to_code_page(options.words.front());
    const xapnet::Composed composed = xapnet::compose(
        {.source = source, .unit_id = unit_id_of(source)}, {.target = target,
                                                            .message_class = message_class,
                                                            .section = body.section,
                                                            .data = body.data,
                                                            .sub_address = "",
                                                            .uid = "00"});
    if (!composed.error.empty()) {
        throw CommandFailure(automation::code_page_to_utf8(composed.error));
    }
    platform::AsioPump pump;
    Silent(pump, settings).send(composed.datagram);
}

// --- xap-monitor --------------------------------------------------------------------------------

bool is_wanted(const std::string& pattern, const std::string& text) {
    return pattern.empty() || xapnet::covers(pattern, text);
}

// An endpoint is shown when its device is wanted.
bool is_wanted_source(const std::string& pattern, const std::string& source) {
    return is_wanted(pattern, source) || is_wanted(pattern, source.substr(0, source.find(':')));
}

void monitor(const Options& options) {
    std::signal(SIGPIPE, SIG_IGN);
    const bool is_coloured = ::isatty(STDOUT_FILENO) != 0 && std::getenv("NO_COLOR") == nullptr;
    const std::string class_pattern = automation::utf8_to_code_page(options.class_pattern);
    const std::string source_pattern = automation::utf8_to_code_page(options.source_pattern);
    platform::AsioPump pump;
    platform::SystemClock clock;
    XapTransport transport(
        pump, settings_of(options), "monitor",
        options.heartbeats ? xapnet::HeartbeatDelivery::Deliver
                           : xapnet::HeartbeatDelivery::CountOnly,
        [&](const host::XapMessage& message) {
            if (is_wanted(class_pattern, message.MsgClass()) &&
                is_wanted_source(source_pattern, message.MsgSource())) {
                std::cout << xap_message_text(message, clock.now(),
                                              is_coloured ? Colours::On : Colours::Off)
                          << std::flush;
            }
            if (!std::cout) {
                pump.stop();
            }
        },
        [](xapnet::LogLevel, std::string_view line) {
            std::cerr << printable(automation::code_page_to_utf8(line)) << std::endl;
        });
    pump.on_stop_signal([&] {
        transport.stop();
        pump.stop();
    });
    transport.start();
    std::cout << "listening as " << transport.summary() << ", until Ctrl-C" << std::endl;
    pump.run();
}

}  // namespace

void add_xap_send_command(CLI::App& program, Run& run, const std::vector<std::string>& verbatim) {
    constexpr std::size_t kMostWords = 100;
    CLI::App* command = program.add_subcommand(
        "xap-send",
        "Send a message to the xAP network: zynvelora xap-send CLASS [BLOCK.KEY=VALUE...]");
    command->footer(
        "    zynvelora xap-send tts.speak --target 'zyn.zynVelora.kitchen' tts.speak.Say='Dinner'\n"
        "    zynvelora xap-send xAPBSC.query --target 'zyn.zynVelora.kitchen:>' request");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command->add_option("--target", options->target, "whom it is for; else everybody")
        ->type_name("ADDRESS");
    take_words(*command, "CLASS BLOCK.KEY=VALUE...", 2, kMostWords, verbatim, options->words);
    command->callback([options, &run] { run = [options] { send_message(*options); }; });
}

void add_xap_monitor_command(CLI::App& program, Run& run) {
    CLI::App* command =
        program.add_subcommand("xap-monitor", "Show what is said on the xAP network");
    const auto options = std::make_shared<Options>();
    add_home_option(*command, options->home);
    command
        ->add_option("--class", options->class_pattern,
                     "only these classes; '*' is one part, '>' the rest: 'xAPBSC.*'")
        ->type_name("PATTERN");
    command->add_option("--source", options->source_pattern, "only these senders: 'zyn.>'")
        ->type_name("PATTERN");
    command->add_flag("--heartbeats", options->heartbeats, "signs of life, too");
    command->callback([options, &run] { run = [options] { monitor(*options); }; });
}

}  // namespace app
