#include "unit/unit.h"

#include <boost/asio.hpp>
#include <csignal>
#include <iostream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "automation/whole_number.h"
#include "unit/appliance.h"
#include "unit/client_program.h"
#include "unit/connection.h"
#include "unit/control_socket.h"
#include "unit/jukebox.h"
#include "unit/port_listener.h"
#include "unit/tell_unit.h"
#include "unit/unit_command.h"

namespace unit {
namespace {

namespace asio = boost::asio;
namespace fs = std::filesystem;
using asio::ip::tcp;

// Between two tries to open the ports after a boot, when something else has taken one.
constexpr std::chrono::seconds kListenRetry{1};
constexpr std::int64_t kHighestPort = 65535;

tcp::endpoint parse_address(const std::string& text) {
    const auto colon = text.rfind(':');
    std::string host = text.substr(0, colon);
    if (host.starts_with('[') && host.ends_with(']')) {
        host = host.substr(1, host.size() - 2);
    }
    boost::system::error_code error;
    const auto address = asio::ip::make_address(host, error);
    const auto port =
        colon == std::string::npos
            ? std::nullopt
            : automation::whole_number(std::string_view{text}.substr(colon + 1), 0, kHighestPort);
    if (error || !port) {
        throw std::runtime_error("not an address as IP:PORT: " + text);
    }
    return {address, static_cast<std::uint16_t>(*port)};
}

asio::ip::udp::endpoint datagram_address(const tcp::endpoint& address) {
    return {address.address(), address.port()};
}

fs::path made_directory(const fs::path& directory) {
    fs::create_directories(directory);
    return directory;
}

ApplianceState named(const std::string& name) {
    ApplianceState state;
    state.name = name;
    return state;
}

}  // namespace

class Unit::Implementation {
  public:
    explicit Implementation(const UnitOptions& options);

    [[nodiscard]] const tcp::endpoint& address() const { return web_.address(); }

    [[nodiscard]] std::uint16_t jukebox_port() const { return jukebox_.address().port(); }

    void run();
    void stop();
    void stop_on_signals();

  private:
    void close_all();
    void open_ports();
    void start_ports();
    void close_ports() noexcept;
    std::string answer_line(std::string_view line);
    std::string carry_out(const UnitCommand& command);
    void switch_power(PowerSwitch position);
    void subscribe(Subscription subscription);
    void boot(std::chrono::milliseconds time);
    void finish_boot();

    asio::io_context loop_{1};
    asio::signal_set signals_{loop_};
    asio::steady_timer boot_timer_{loop_};
    TaskGroup browsing_{loop_.get_executor()};
    std::chrono::milliseconds boot_time_;
    tcp::endpoint listen_;
    ControlSocket control_;  // before all that writes: it keeps a second unit out
    Appliance appliance_;
    PortListener web_;
    PortListener jukebox_;
    std::optional<ClientProgram> client_;
};

Unit::Implementation::Implementation(const UnitOptions& options)
    : boot_time_(options.boot_time),
      listen_(parse_address(options.listen)),
      control_(loop_, made_directory(options.state_directory) / kControlSocketName,
               [this](std::string_view line) { return answer_line(line); }),
      appliance_(named(options.name), Recorder(options.state_directory),
                 FetchIdentity{listen_.address(), options.name}, browsing_),
      web_(loop_, listen_,
           [this](tcp::socket socket) { return serve_connection(std::move(socket), appliance_); }),
      jukebox_(loop_, {listen_.address(), options.jukebox_port}, [this](tcp::socket socket) {
          return serve_jukebox(std::move(socket), appliance_);
      }) {
    if (!options.daemon.empty()) {
        client_.emplace(loop_, asio::ip::udp::endpoint{listen_.address(), options.client_port},
                        datagram_address(parse_address(options.daemon)), appliance_);
    }
    open_ports();
}

void Unit::Implementation::open_ports() {
    web_.open();
    jukebox_.open();
    if (client_) {
        client_->open();
    }
}

void Unit::Implementation::start_ports() {
    web_.start();
    jukebox_.start();
    if (client_) {
        client_->start();
    }
}

void Unit::Implementation::close_ports() noexcept {
    web_.close();
    jukebox_.close();
    if (client_) {
        client_->close();
    }
}

void Unit::Implementation::run() {
    asio::post(loop_, [this] {
        control_.start();
        start_ports();
    });
    loop_.run();
}

void Unit::Implementation::stop() {
    asio::post(loop_, [this] { close_all(); });
}

void Unit::Implementation::stop_on_signals() {
    signals_.add(SIGINT);
    signals_.add(SIGTERM);
    signals_.async_wait([this](const boost::system::error_code& error, int) {
        if (!error) {
            close_all();
        }
    });
}

void Unit::Implementation::close_all() {
    if (client_) {
        client_->unsubscribe();
    }
    boost::system::error_code ignored;
    signals_.cancel(ignored);
    boot_timer_.cancel(ignored);
    control_.close();
    close_ports();
    browsing_.cancel_all();
}

std::string Unit::Implementation::answer_line(std::string_view line) {
    try {
        return carry_out(parse_unit_command(line));
    } catch (const std::exception& error) {
        return std::string("error: ") + error.what();
    }
}

std::string Unit::Implementation::carry_out(const UnitCommand& command) {
    if (std::holds_alternative<AskState>(command)) {
        return appliance_.state_line();
    }
    if (const auto* fault = std::get_if<Fault>(&command)) {
        appliance_.set_fault(*fault);
    } else if (const auto* position = std::get_if<PowerSwitch>(&command)) {
        switch_power(*position);
    } else if (const auto* subscription = std::get_if<Subscription>(&command)) {
        subscribe(*subscription);
    } else {
        boot_time_ = std::get<SetBootTime>(command).boot_time;
    }
    return "ok";
}

void Unit::Implementation::switch_power(PowerSwitch position) {
    if (position == PowerSwitch::On) {
        if (appliance_.power() == Power::Off) {
            appliance_.set_power(Power::Booting);
            boot(boot_time_);
        }
        return;
    }
    boot_timer_.cancel();
    close_ports();
    appliance_.set_power(Power::Off);
}

void Unit::Implementation::subscribe(Subscription subscription) {
    if (!client_) {
        throw std::runtime_error("this unit runs no client program; start it with --client-of");
    }
    if (appliance_.power() != Power::On) {
        throw std::runtime_error("this unit is not on");
    }
    if (subscription == Subscription::Start) {
        client_->subscribe();
    } else {
        client_->unsubscribe();
    }
}

void Unit::Implementation::boot(std::chrono::milliseconds time) {
    if (time == std::chrono::milliseconds::zero()) {
        finish_boot();
        return;
    }
    boot_timer_.expires_after(time);
    boot_timer_.async_wait([this](const boost::system::error_code& error) {
        if (!error) {
            finish_boot();
        }
    });
}

void Unit::Implementation::finish_boot() {
    // The power may have failed when this was already on its way.
    if (appliance_.power() != Power::Booting) {
        return;
    }
    try {
        open_ports();
        appliance_.set_power(Power::On);
        start_ports();
    } catch (const std::runtime_error& error) {
        std::cerr << "unit: " << error.what() << '\n';
        close_ports();
        boot(kListenRetry);
    }
}

Unit::Unit(const UnitOptions& options)
    : implementation_(std::make_unique<Implementation>(options)) {}

Unit::~Unit() = default;

std::string Unit::address() const {
    std::ostringstream text;
    text << implementation_->address();
    return text.str();
}

std::uint16_t Unit::port() const noexcept {
    return implementation_->address().port();
}

std::uint16_t Unit::jukebox_port() const noexcept {
    return implementation_->jukebox_port();
}

void Unit::run() {
    implementation_->run();
}

void Unit::stop() {
    implementation_->stop();
}

void Unit::stop_on_signals() {
    implementation_->stop_on_signals();
}

}  // namespace unit
