#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "app/command.h"
#include "app/text_table.h"
#include "automation/date.h"
#include "platform/asio/asio_network.h"
#include "platform/asio/asio_pump.h"
#include "platform/system/system_clock.h"
#include "unit/client_message.h"

namespace app {
namespace {

struct Options {
    std::string server = "127.0.0.1";
    std::string listen = "127.0.0.90";
    std::int32_t server_port = 4550;
    std::int32_t port = 4550;
};

// "caller   Anna Smith/home   (503) 555-1234"
std::string text_of(const unit::ClientMessage& message) {
    const bool is_caller = message.kind == unit::ClientMessage::Kind::Caller;
    return std::string(is_caller ? "caller " : "command") + "  " + printable(message.first) + "  " +
           printable(message.second);
}

// A client program for a desktop: prints the calls and commands that the daemon sends it.
class UdpClient final : private host::UdpSocketEvents {
  public:
    explicit UdpClient(const Options& options)
        : network_(pump_, options.listen), socket_(network_.make_udp_socket(*this)) {
        socket_->set_local_port(options.port);
        socket_->set_remote_host(options.server);
        socket_->set_remote_port(options.server_port);
        socket_->Bind();
    }

    // Subscribes, and unsubscribes at the end.
    void run() {
        pump_.on_stop_signal([this] {
            socket_->SendData(unit::kUnsubscribeDatagram);
            pump_.stop();
        });
        socket_->SendData(unit::kSubscribeDatagram);
        std::cout << "subscribed, until Ctrl-C" << std::endl;
        pump_.run();
    }

  private:
    void DataArrival(std::int32_t /*bytes_total*/) override {
        if (const auto message = unit::parse_client_message(socket_->GetData())) {
            std::cout << automation::time_of_day(clock_.now()) << "  " << text_of(*message)
                      << std::endl;
        }
    }

    platform::AsioPump pump_;
    platform::SystemClock clock_;
    platform::AsioNetwork network_;
    std::unique_ptr<host::UdpSocket> socket_;
};

}  // namespace

void add_udp_client_command(CLI::App& program, Run& run) {
    CLI::App* command = program.add_subcommand(
        "udp-client", "Print the calls and commands that the daemon sends to client programs");
    const auto options = std::make_shared<Options>();
    command->add_option("--server", options->server, "address of the daemon")
        ->capture_default_str();
    command->add_option("--server-port", options->server_port, "its LocalPort")
        ->capture_default_str()
        ->check(CLI::Range(1, 65535));
    command->add_option("--listen", options->listen, "own address, other than the daemon's")
        ->capture_default_str();
    command->add_option("--port", options->port, "own port, the daemon's RemotePort")
        ->capture_default_str()
        ->check(CLI::Range(1, 65535));
    command->callback([options, &run] {
        run = [options] {
            UdpClient client(*options);
            client.run();
        };
    });
}

}  // namespace app
