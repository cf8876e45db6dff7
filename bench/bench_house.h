#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/value.h"
#include "home/embedded_host.h"
#include "home/ini_user_store.h"
#include "platform/asio/asio_network.h"
#include "platform/asio/asio_pump.h"
#include "platform/asio/asio_serial_ports.h"
#include "platform/curl/curl_page_fetcher.h"
#include "platform/gd/gd_image_resizer.h"
#include "platform/system/command_speech.h"
#include "platform/system/disk_files.h"
#include "platform/system/log_desktop.h"
#include "platform/system/system_clock.h"
#include "platform/system/system_random.h"
#include "plugin/hspi.h"
#include "vbscript/control/script_control.h"

namespace bench {

// A folder for a home, removed with all that lies in it.
class TemporaryHome {
  public:
    // Lays out a home whose one unit, Kitchen, has its web server there; the plug-in has none of
    // its own.
    explicit TemporaryHome(const std::string& unit_host_and_port);
    TemporaryHome(const TemporaryHome&) = delete;
    TemporaryHome& operator=(const TemporaryHome&) = delete;
    ~TemporaryHome();

    [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }

  private:
    std::filesystem::path path_;
};

// A home and what a plug-in is started on: the machine's pump, sockets, page fetches and files, and
// the embedded host. Speech alone is left out.
class BenchMachine {
  public:
    explicit BenchMachine(const std::string& unit_host_and_port,
                          const std::string& host_version = "2.5.0");
    BenchMachine(const BenchMachine&) = delete;
    BenchMachine& operator=(const BenchMachine&) = delete;

    [[nodiscard]] const std::filesystem::path& home() const noexcept { return home_.path(); }

    [[nodiscard]] platform::AsioPump& pump() noexcept { return pump_; }

    [[nodiscard]] home::EmbeddedHost& host() noexcept { return host_; }

    [[nodiscard]] host::Platform platform() noexcept;

  private:
    TemporaryHome home_;
    platform::AsioPump pump_;
    platform::SystemClock clock_;
    platform::SystemRandom random_;
    platform::DiskFiles files_;
    home::EmbeddedHost host_;
    platform::AsioNetwork network_;
    platform::CurlPageFetcher page_fetcher_;
    platform::CommandSpeech speech_;
    platform::GdImageResizer image_resizer_{files_};
    home::IniUserStore user_store_;
    platform::LogDesktop desktop_;
    vbscript::ScriptServices script_services_{.clock = clock_, .desktop = desktop_, .classes = {}};
    vbscript::ScriptControls script_controls_{script_services_};
    platform::AsioSerialPorts serial_ports_{
        pump_, [](std::string_view) { return std::filesystem::path(); }};
};

// The plug-in as the daemon carries it. Started, and idle, once it is made.
class BenchHouse {
  public:
    explicit BenchHouse(const std::string& unit_host_and_port);
    BenchHouse(const BenchHouse&) = delete;
    BenchHouse& operator=(const BenchHouse&) = delete;
    ~BenchHouse();

    void call(std::string_view operation, std::vector<automation::Value> arguments);

    // Runs events until no command waits or is in flight. Throws: std::runtime_error after 10 s.
    void run_until_idle();

    void run_for(std::chrono::milliseconds duration);

  private:
    [[nodiscard]] bool is_idle() const;

    BenchMachine machine_;
    plugin::hspi plugin_;
};

}  // namespace bench
