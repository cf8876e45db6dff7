#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/control_service.h"
#include "app/control_socket.h"
#include "app/home_path.h"
#include "app/power_wiring.h"
#include "app/script_lines.h"
#include "app/unit_messenger.h"
#include "app/xap_transport.h"
#include "home/embedded_host.h"
#include "home/home_lock.h"
#include "home/ini_user_store.h"
#include "home/web/web_site.h"
#include "host/platform.h"
#include "host/plugin.h"
#include "host/speech.h"
#include "platform/asio/asio_network.h"
#include "platform/asio/asio_pump.h"
#include "platform/asio/asio_serial_ports.h"
#include "platform/beast/http_server.h"
#include "platform/curl/curl_page_fetcher.h"
#include "platform/gd/gd_image_resizer.h"
#include "platform/system/disk_files.h"
#include "platform/system/log_desktop.h"
#include "platform/system/service_manager.h"
#include "platform/system/system_clock.h"
#include "platform/system/system_random.h"
#include "vbscript/control/script_control.h"

namespace app {

using PluginFactory = std::function<std::unique_ptr<host::Plugin>(const host::Platform&)>;

struct DaemonOptions {
    std::filesystem::path home;
    std::filesystem::path data;  // what a fresh home gets
    host::Protection protection;
    HomeProgram program = HomeProgram::Daemon;
};

// One home's running system: the machine's platform, the embedded host and the plug-in that it
// carries, with the control socket beside them. Owned by the sub-command.
//
// As the separate program of the xAP network it has devices, lock and control socket of its own,
// shares settings and log with the daemon of the home, and leaves events, power switches and the
// host's web server to that one.
class Daemon {
  public:
    // Lays the home out where something is missing and takes it. Nothing runs yet.
    // Throws: RunTimeError for a home that cannot be written or is in use, or a setting that the
    // program cannot start with; for xAP's program also a home that does not want one.
    Daemon(const DaemonOptions& options, const PluginFactory& make_plugin);
    Daemon(const Daemon&) = delete;
    Daemon& operator=(const Daemon&) = delete;

    // Starts the plug-in, calls `when_up`, serves until SIGINT or SIGTERM, and shuts it down. A
    // second signal ends the process at once. Throws: RunTimeError when the control socket cannot
    // be opened; the plug-in is then shut down all the same. Requires: called once.
    void run(const std::function<void()>& when_up);

    // What a person wants to know of it: "home /x, web server http://...:8088/, host's web server
    // http://...:8081/, units kitchen".
    [[nodiscard]] std::string summary();

  private:
    [[nodiscard]] host::Platform platform(const host::Protection& protection);
    [[nodiscard]] vbscript::ScriptServices script_services();
    [[nodiscard]] std::string web_server();
    [[nodiscard]] std::string host_web_server();
    void open_host_web_server();
    void wire_host();
    void open_xap();
    void log_xap(xapnet::LogLevel level, std::string_view line);
    void on_signal();
    void start();
    void tell_service_manager();
    void serve();
    void shut_down();
    void log_error(const std::string& text);

    std::filesystem::path home_;
    HomeProgram program_;
    home::HomeLock lock_;
    platform::AsioPump pump_;
    platform::SystemClock clock_;
    platform::SystemRandom random_;
    platform::DiskFiles files_;
    home::EmbeddedHost host_;
    platform::AsioNetwork network_;
    platform::AsioSerialPorts serial_ports_;
    platform::CurlPageFetcher page_fetcher_;
    home::IniUserStore user_store_;
    std::unique_ptr<host::Speech> speech_;
    platform::GdImageResizer image_resizer_;
    platform::LogDesktop desktop_;
    vbscript::ScriptServices script_services_;
    vbscript::ScriptControls script_controls_;
    home::WebSite web_site_;
    ScriptLines script_lines_;
    UnitMessenger messenger_;
    PowerWiring power_wiring_;
    std::unique_ptr<host::Plugin> plugin_;
    ControlService service_;
    std::optional<XapTransport> xap_;                      // in xAP's program
    std::optional<platform::HttpServer> host_web_server_;  // once the plug-in is up
    std::optional<ControlSocket> control_socket_;          // likewise
    platform::ServiceManager service_manager_;
    std::unique_ptr<host::Timer> sign_of_life_;  // where a watchdog wants one
    bool stopping_ = false;
};

}  // namespace app
