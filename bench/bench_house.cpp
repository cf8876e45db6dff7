#include "bench_house.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include "automation/object.h"
#include "home/home_layout.h"

namespace bench {
namespace {

namespace fs = std::filesystem;

constexpr auto kLongestWait = std::chrono::seconds(10);

fs::path make_folder() {
    std::string name = (fs::temp_directory_path() / "zynvelora_bench_XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), name);
    }
    return name;
}

}  // namespace

TemporaryHome::TemporaryHome(const std::string& unit_host_and_port) : path_(make_folder()) {
    fs::create_directories(path_ / "Config");
    std::ofstream(path_ / "Config" / "zynVeloraUtilities.ini")
        << "[Velora Utilities]\r\nTCPServerOption=1\r\nSleepMonitorInterval=0\r\n"
        << "[Velora Names]\r\n127.0.0.31/" << unit_host_and_port << "=Kitchen,,,,0,0,\r\n";
    home::lay_out_home(path_, ZYN_DATA_FOLDER, {});
}

TemporaryHome::~TemporaryHome() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

BenchMachine::BenchMachine(const std::string& unit_host_and_port, const std::string& host_version)
    : home_(unit_host_and_port),
      host_(pump_, clock_, {.home = home_.path(), .version = host_version}),
      network_(pump_),
      page_fetcher_(pump_),
      speech_(files_, "false", {}),
      user_store_(host_),
      desktop_([](const std::string&) {}) {}

host::Platform BenchMachine::platform() noexcept {
    return {.pump = pump_,
            .clock = clock_,
            .random = random_,
            .files = files_,
            .network = network_,
            .page_fetcher = page_fetcher_,
            .speech = speech_,
            .image_resizer = image_resizer_,
            .user_store = user_store_,
            .desktop = desktop_,
            .script_controls = script_controls_,
            .serial_ports = serial_ports_,
            .protection = host::Protection::hardened()};
}

BenchHouse::BenchHouse(const std::string& unit_host_and_port)
    : machine_(unit_host_and_port), plugin_(machine_.platform()) {
    plugin_.RegisterCallback(machine_.host());
    plugin_.InitIO(0);
    run_until_idle();
}

BenchHouse::~BenchHouse() {
    plugin_.ShutdownIO();
}

void BenchHouse::call(std::string_view operation, std::vector<automation::Value> arguments) {
    plugin_.object()->call(operation, arguments);
}

void BenchHouse::run_until_idle() {
    if (!machine_.pump().run_until([this] { return is_idle(); }, kLongestWait)) {
        throw std::runtime_error("the unit's queue does not become idle");
    }
}

void BenchHouse::run_for(std::chrono::milliseconds duration) {
    machine_.pump().run_until([] { return false; }, duration);
}

bool BenchHouse::is_idle() const {
    const std::vector<host::UnitStatus> units = plugin_.status().units;
    return units.size() == 1 && std::ranges::count(units.front().flags, "QueueEmpty") == 1;
}

}  // namespace bench
