#include "app/daemon.h"

#include <csignal>
#include <cstdlib>
#include <utility>

#include "app/home_path.h"
#include "app/speech_choice.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "home/home_layout.h"
#include "host/pump.h"
#include "vbscript/objects/files/file_system_object.h"

namespace app {
namespace {

using automation::code_page_to_utf8;
using automation::RunTimeError;

constexpr std::string_view kLogType = "Daemon";
constexpr std::string_view kHostSettings = "settings.ini";
constexpr std::string_view kPluginSettings = "zynVeloraUtilities.ini";

const std::filesystem::path& laid_out(const DaemonOptions& options) {
    home::lay_out_home(options.home, options.data, {});
    return options.home;
}

std::string plain_setting(host::Settings& settings, std::string_view section, std::string_view key,
                          std::string_view fallback, std::string_view file) {
    std::string text = settings.GetIniSetting(section, key, fallback, file);
    std::erase(text, '"');
    return automation::trim(text);
}

// Of all servers of the daemon.
constexpr std::string_view kListenAddress = "ListenAddress";

std::string listen_address(host::Settings& settings) {
    return plain_setting(settings, "Settings", kListenAddress, platform::AsioNetwork::kLoopback,
                         kHostSettings);
}

platform::AsioNetwork make_network(platform::AsioPump& pump, host::Settings& settings) {
    try {
        return platform::AsioNetwork(pump, listen_address(settings));
    } catch (const RunTimeError& error) {
        throw error.with_description(std::string(kHostSettings) + ", " +
                                     std::string(kListenAddress) + ": " + error.description());
    }
}

// The device of a serial port, by its number: what section "Serial Ports" says, below the home if
// it is no whole path, else the machine's own port of that number.
std::filesystem::path serial_device(host::Settings& settings, const std::filesystem::path& home,
                                    std::string_view port) {
    const std::string device = automation::code_page_to_utf8(
        plain_setting(settings, "Serial Ports", port, "", kHostSettings));
    if (!device.empty()) {
        return home / device;
    }
    const double number = automation::numeric_prefix(port);
    return number < 1 ? std::filesystem::path()
                      : std::filesystem::path("/dev/ttyS" + automation::text_of(number - 1));
}

home::EmbeddedHostOptions host_options(const std::filesystem::path& home, HomeProgram program) {
    home::EmbeddedHostOptions options{.home = home};
    if (program == HomeProgram::XapNode) {
        options.type_name = "Setup";  // by which the plug-in knows the program
        options.database = "xap_home.db";
    }
    return options;
}

// Runs a last step when the scope ends, however it ends.
class AtTheEnd {
  public:
    explicit AtTheEnd(std::function<void()> step) : step_(std::move(step)) {}

    AtTheEnd(const AtTheEnd&) = delete;
    AtTheEnd& operator=(const AtTheEnd&) = delete;

    ~AtTheEnd() { step_(); }

  private:
    std::function<void()> step_;
};

}  // namespace

Daemon::Daemon(const DaemonOptions& options, const PluginFactory& make_plugin)
    : home_(laid_out(options)),
      program_(options.program),
      lock_(home_, program_ == HomeProgram::Daemon ? "daemon.lock" : "xap.lock"),
      host_(pump_, clock_, host_options(home_, program_)),
      network_(make_network(pump_, host_)),
      serial_ports_(pump_,
                    [this](std::string_view port) { return serial_device(host_, home_, port); }),
      page_fetcher_(pump_),
      user_store_(host_),
      speech_(choose_speech(host_, files_)),
      image_resizer_(files_),
      desktop_([this](const std::string& line) { host_.Writelog("Desktop", line); }),
      script_services_(script_services()),
      script_controls_(script_services_),
      web_site_(home_, script_controls_, host_),
      script_lines_(script_controls_, host_, files_),
      messenger_(pump_, host_),
      power_wiring_(
          host_, host_.x10_line(), host_, home_,
          [this](const std::filesystem::path& unit, const std::string& command,
                 const std::string& occasion) { messenger_.tell(unit, command, occasion); }),
      plugin_(make_plugin(platform(options.protection))),
      service_(*plugin_, host_),
      service_manager_(std::getenv("NOTIFY_SOCKET")) {
    wire_host();
    if (program_ == HomeProgram::XapNode) {
        open_xap();
    }
}

// Messages go both ways between the plug-in and the network.
void Daemon::open_xap() {
    if (plain_setting(host_, "Velora Utilities", "RunAsXapNode", "", kPluginSettings).empty()) {
        throw RunTimeError(automation::ErrorNumber::InvalidProcedureCall,
                           "RunAsXapNode of " + std::string(kPluginSettings) +
                               " is empty, and so the daemon has the units; set it to 1 and start "
                               "the daemon anew");
    }
    xap_.emplace(
        pump_, read_xap_settings(host_), "zynVelora", xapnet::HeartbeatDelivery::CountOnly,
        [this](const host::XapMessage& message) { plugin_->VeloraOnXapMessage(message); },
        [this](xapnet::LogLevel level, std::string_view line) { log_xap(level, line); });
    host_.set_xap_sink([this](const home::OutgoingXapMessage& message) {
        xap_->send({.target = message.target,
                    .message_class = message.message_class,
                    .section = message.section,
                    .data = message.body,
                    .sub_address = message.sub_address,
                    .uid = message.uid});
    });
}

// Anybody on the network can cause the lines of the lower level, so they wait to be wanted.
void Daemon::log_xap(xapnet::LogLevel level, std::string_view line) {
    if (level == xapnet::LogLevel::Info) {
        host_.Writelog("xAP", line);
    } else if (plain_setting(host_, "Velora Utilities", "DebugLog", "0", kPluginSettings) == "1") {
        host_.Writelog("xAP Debug", line);
    }
}

// What happens in the host reaches the plug-in by these ways.
void Daemon::wire_host() {
    constexpr std::int16_t kSetValue = 19;
    host_.carry(*plugin_);
    host_.set_command_sink(plugin_->Name(), [this](const home::DeviceCommand& command) {
        plugin_->SetIO(0, command.house_code, command.device_code, kSetValue, command.value, 0, 0);
    });
    home::EventRunner& runner = host_.event_engine().runner();
    runner.set_plugin_action([this](const std::string& action) { plugin_->TriggerAction(action); });
    runner.set_button_press([this](const std::string& button) { plugin_->ButtonPress(button); });
    runner.set_script_runner([this](const std::string& line) { script_lines_.run(line); });
}

// What scripts of the house get by `CreateObject`.
vbscript::ScriptServices Daemon::script_services() {
    vbscript::ScriptServices services{
        .clock = clock_,
        .desktop = desktop_,
        .classes = {},
        .lend = [this](std::string_view name) -> std::shared_ptr<automation::Object> {
            if (automation::equals_ignoring_case(name, "zynVelora.hspi")) {
                return plugin_->object();
            }
            return nullptr;
        }};
    vbscript::add_standard_classes(services.classes);
    vbscript::add_file_classes(services.classes, home_, nullptr);
    return services;
}

host::Platform Daemon::platform(const host::Protection& protection) {
    return {.pump = pump_,
            .clock = clock_,
            .random = random_,
            .files = files_,
            .network = network_,
            .page_fetcher = page_fetcher_,
            .speech = *speech_,
            .image_resizer = image_resizer_,
            .user_store = user_store_,
            .desktop = desktop_,
            .script_controls = script_controls_,
            .serial_ports = serial_ports_,
            .protection = protection};
}

void Daemon::run(const std::function<void()>& when_up) {
    pump_.on_stop_signal([this] { on_signal(); });
    const AtTheEnd last_step([this] { shut_down(); });
    try {
        start();
        tell_service_manager();
        when_up();
        serve();
    } catch (const host::PumpStopped&) {
        // A signal while the plug-in was still starting.
    }
}

// The pump stops first, so that no operation is left waiting underneath when the plug-in ends.
// From now on nobody is there to take a signal as an event.
void Daemon::on_signal() {
    stopping_ = true;
    pump_.stop();
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

// The signs of life come from the pump, so that a pump that no longer turns gives none.
void Daemon::tell_service_manager() {
    service_manager_.is_ready();
    if (const auto interval = platform::ServiceManager::alive_interval(
            std::getenv("WATCHDOG_USEC"), std::getenv("WATCHDOG_PID"))) {
        sign_of_life_ = pump_.make_timer([this] { service_manager_.is_alive(); });
        sign_of_life_->set_interval(*interval);
        sign_of_life_->set_enabled(true);
    }
}

void Daemon::start() {
    if (xap_) {
        plugin_->RegisterCallback(host_);
        xap_->start();
        plugin_->InitIO(0);
    } else {
        power_wiring_.switch_all_on();
        plugin_->RegisterCallback(host_);
        plugin_->InitIO(0);
        open_host_web_server();
        host_.event_engine().start();
    }
    control_socket_.emplace(pump_, control_socket_path(home_, program_), service_);
}

// A house without its web site is better than none. Port 0 wants none.
void Daemon::open_host_web_server() {
    const std::string port = plain_setting(host_, "Settings", "svrport", "81", kHostSettings);
    try {
        const std::optional<double> number = automation::parse_number(port);
        if (!number) {
            throw RunTimeError(automation::ErrorNumber::InvalidProcedureCall,
                               "no port '" + port + "'");
        }
        if (*number != 0) {
            host_web_server_.emplace(pump_, web_site_, listen_address(host_),
                                     automation::checked_int32(*number));
        }
    } catch (const RunTimeError& error) {
        host_.Writelog("Web server", "The host's web server does not run (svrport of " +
                                         std::string(kHostSettings) + "): " + error.description());
    }
}

// An error that an event lets through ends that event, not the daemon.
void Daemon::serve() {
    while (!stopping_) {
        try {
            pump_.run();
        } catch (const RunTimeError& error) {
            log_error(error.description());
        } catch (const std::exception& error) {
            log_error(automation::utf8_to_code_page(error.what()));
        }
    }
}

void Daemon::shut_down() {
    service_manager_.is_stopping();
    control_socket_.reset();
    host_web_server_.reset();
    try {
        plugin_->ShutdownIO();
    } catch (const host::PumpStopped&) {
        // It wanted to wait for something, and there is no time left.
    } catch (const RunTimeError& error) {
        log_error(error.description());
    }
    if (xap_) {
        xap_->stop();
    }
}

void Daemon::log_error(const std::string& text) {
    host_.Writelog(kLogType, "Error in an event: " + text);
}

// --- what it looks like from outside ------------------------------------------------------------

std::string Daemon::web_server() {
    const auto setting = [this](std::string_view key, std::string_view fallback) {
        return plain_setting(host_, "Velora Utilities", key, fallback, kPluginSettings);
    };
    const std::string port = setting("ServerPort", "");
    if (setting("TCPServerOption", "0") == "1" || !automation::is_numeric(port)) {
        return "no web server";
    }
    return "web server http://" + setting("HomeseerIP", "192.168.0.1") + ":" + port + "/";
}

std::string Daemon::host_web_server() {
    if (!host_web_server_) {
        return "no host's web server";
    }
    std::string address = listen_address(host_);
    if (address == "0.0.0.0" || address == "::") {
        address = plain_setting(host_, "Velora Utilities", "HomeseerIP", address, kPluginSettings);
    }
    return "host's web server http://" + address + ":" + std::to_string(host_web_server_->port()) +
           "/";
}

std::string Daemon::summary() {
    std::vector<std::string> names;
    const host::PluginStatus status = plugin_->status();
    for (const host::UnitStatus& unit : status.units) {
        names.push_back(unit.name);
    }
    const std::string units = names.empty() ? "no units" : "units " + automation::join(names, ", ");
    if (status.role == "shim") {
        return "home " + home_.string() + ", " + code_page_to_utf8(host_web_server()) +
               ", the units are left to \"zynvelora xap\"";
    }
    return "home " + home_.string() + ", " + code_page_to_utf8(web_server()) + ", " +
           (xap_ ? xap_->summary() : code_page_to_utf8(host_web_server())) + ", " +
           code_page_to_utf8(units);
}

}  // namespace app
