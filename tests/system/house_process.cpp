#include "system/house_process.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace system_tests {

namespace {

constexpr std::string_view kUp = " is up: ";

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

}  // namespace

std::uint16_t free_port(const std::string& address) {
    const int probe = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = ::inet_addr(address.c_str());
    socklen_t size = sizeof place;
    auto* const generic = reinterpret_cast<sockaddr*>(&place);
    const bool bound =
        ::bind(probe, generic, size) == 0 && ::getsockname(probe, generic, &size) == 0;
    const int error = errno;
    ::close(probe);
    if (!bound) {
        throw std::system_error(error, std::generic_category(), "no port of " + address);
    }
    return ntohs(place.sin_port);
}

House::House(std::initializer_list<std::string> unit_names)
    : names_(unit_names),
      settings_{{"HomeseerIP", "127.0.0.1"},
                {"ServerPort", std::to_string(free_port("127.0.0.1"))},
                {"PhJukeCommandPort", std::to_string(free_port("127.0.1.1"))},
                {"CommandRetries", "1"},
                {"noResponseAction", "1"},
                {"PowerCycleTime", "1"},
                {"PowerUpTime", "2"},
                {"PowerCycleInterval", ""},  // no cycles at midnight
                {"SleepMonitorInterval", "0"}},
      host_port_(std::to_string(free_port("127.0.0.1"))),
      client_port_(std::to_string(free_port("127.0.0.1"))) {
    for (const std::string& name : names_) {
        const std::string number = std::to_string(units_.size() + 1);
        const std::string ip = "127.0.1." + number;
        HouseUnit& unit = units_[name];
        unit.address = ip + ":" + std::to_string(free_port(ip));
        unit.power_device = "A" + number;
        unit.motion_device = "B" + number;
        std::filesystem::create_directories(unit_folder(name));
    }
    std::filesystem::create_directories(folder_.path() / "output");
}

House::~House() {
    if (testing::Test::HasFailure() && daemon_ && daemon_->is_running()) {
        std::cerr << "--- log\n" << run({"log", "--home", home().string()}).out;
    }
    xap_process_.reset();
    daemon_.reset();
}

// --- processes ----------------------------------------------------------------------------------

void House::write_settings() const {
    std::string host = "[Settings]\nsvrport=" + host_port_ + "\n" + xap_ + "[Serial Ports]\n" +
                       serial_ports_ + "[X10 Modules]\n";
    std::string plugin = "[Velora Utilities]\n";
    for (const auto& [key, value] : settings_) {
        plugin.append(key).append("=").append(value).append("\n");
    }
    plugin += before_units_ + "[Velora Names]\n";
    for (const std::string& name : names_) {
        const HouseUnit& unit = units_.at(name);
        const std::string ip = unit.address.substr(0, unit.address.find(':'));
        host += unit.power_device + "=../units/" + name + "\n";
        plugin += ip + "/" + unit.address + "=" + name + ",," + unit.power_device + "," +
                  unit.motion_device + "," + slideshow_group_ + (wants_callers_ ? ",1,\n" : ",,\n");
    }
    folder_.write("home/Config/settings.ini", host);
    folder_.write("home/Config/zynVeloraUtilities.ini", plugin + more_settings_);
    folder_.write("home/Config/user_store.ini", "[zynVelora.Options]\nLocalPort=" + client_port_ +
                                                    "\nRemotePort=" + client_port_ + "\n");
}

std::filesystem::path House::next_output(const std::string& title) {
    return folder_.path() / "output" / (std::to_string(++outputs_) + "-" + title);
}

void House::wait_until_up(Process& process) {
    static_cast<void>(eventually(
        [&] { return process.out().find(kUp) != std::string::npos || !process.is_running(); }));
    if (!process.is_running() || process.out().find(kUp) == std::string::npos) {
        throw std::runtime_error("did not come up: " + process.err());
    }
}

void House::start(const std::vector<std::string>& daemon_options) {
    for (const std::string& name : names_) {
        start_unit(name);
    }
    start_daemon(daemon_options);
}

void House::start_unit(const std::string& name) {
    HouseUnit& unit = units_.at(name);
    std::vector<std::string> arguments{"unit",
                                       "--name",
                                       name,
                                       "--listen",
                                       unit.address,
                                       "--jukebox",
                                       jukebox_port(),
                                       "--state-dir",
                                       unit_folder(name).string(),
                                       "--boot-time",
                                       "1"};
    if (wants_callers_) {
        arguments.insert(arguments.end(), {"--client-of", "127.0.0.1:" + client_port_,
                                           "--client-port", client_port_});
    }
    unit.process = spawn(arguments);
    wait_until_up(*unit.process);
}

void House::start_daemon(const std::vector<std::string>& options) {
    if (!std::filesystem::exists(home())) {
        write_settings();
    }
    std::vector<std::string> arguments = {"serve", "--home", home().string()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    daemon_ = spawn(arguments);
    wait_until_up(*daemon_);
}

void House::start_xap() {
    xap_process_ = spawn({"xap", "--home", home().string()});
    wait_until_up(*xap_process_);
}

std::unique_ptr<Process> House::spawn(const std::vector<std::string>& arguments,
                                      const Environment& environment) {
    const std::string title = arguments.empty() ? "nothing" : arguments.front();
    return std::make_unique<Process>(arguments, next_output(title), environment);
}

Outcome House::run(const std::vector<std::string>& arguments, const Environment& environment) {
    Process process(arguments, next_output("run"), environment);
    const std::optional<int> exit_code = process.wait();
    if (!exit_code) {
        process.kill();
        throw std::runtime_error("does not end: " + arguments.front());
    }
    return {*exit_code, process.out(), process.err()};
}

void House::call(std::vector<std::string> operation_and_arguments) {
    operation_and_arguments.insert(operation_and_arguments.begin(), "call");
    told(operation_and_arguments);
}

Outcome House::ask(std::vector<std::string> words) {
    words.insert(words.end(), {"--home", home().string()});
    return run(words);
}

std::string House::told(const std::vector<std::string>& words) {
    const Outcome outcome = ask(words);
    EXPECT_EQ(outcome.exit_code, 0) << testing::PrintToString(words) << ": " << outcome.err;
    return outcome.out;
}

void House::tell(const std::string& unit, const std::string& command) {
    const Outcome outcome = run({"tell-unit", unit_folder(unit).string(), command});
    EXPECT_EQ(outcome.out, "ok\n") << unit << ": " << outcome.err;
}

// --- what can be seen ---------------------------------------------------------------------------

std::string House::address_of(const std::string& unit) const {
    return units_.at(unit).address;
}

Json House::state(const std::string& unit) const {
    return Json::parse(content_of(unit_folder(unit) / "state.json"));
}

bool House::shows(const std::string& unit, const std::string& key, const Json& value,
                  std::chrono::milliseconds limit) const {
    return eventually([&] { return state(unit).at(key) == value; }, limit);
}

// Each line: time, method, target, answer, separated by tabs.
std::vector<std::string> House::requests(const std::string& unit) const {
    std::vector<std::string> pages;
    for (const std::string& line : lines_of(content_of(unit_folder(unit) / "requests.log"))) {
        const auto begin = line.find("\t/") + 2;
        pages.push_back(line.substr(begin, line.find('\t', begin) - begin));
    }
    return pages;
}

Json House::status(const std::string& unit) {
    const Json whole = Json::parse(run({"status", "--json", "--home", home().string()}).out);
    for (const Json& entry : whole.at("units")) {
        if (entry.at("address") == address_of(unit)) {
            return entry;
        }
    }
    throw std::runtime_error("the daemon knows no " + unit);
}

Json House::device(const std::string& code) {
    const Outcome outcome = ask({"device", code, "--json"});
    return outcome.exit_code == 0 ? Json::parse(outcome.out) : Json();
}

std::string House::settings() const {
    return content_of(home() / "Config" / "zynVeloraUtilities.ini");
}

void House::replace_settings(const std::string& text) const {
    folder_.write("home/Config/new.ini", text);
    std::filesystem::rename(home() / "Config" / "new.ini",
                            home() / "Config" / "zynVeloraUtilities.ini");
}

// Each line: time, type, message, with two blanks or more between them.
std::vector<std::string> House::log(std::string_view type) {
    std::vector<std::string> messages;
    const std::string beginning = std::string(type) + "  ";
    for (const std::string& line :
         lines_of(run({"log", "-n", "1000", "--home", home().string()}).out)) {
        const std::string rest = line.substr(line.find("  ") + 2);
        if (rest.starts_with(beginning)) {
            messages.push_back(rest.substr(rest.find_first_not_of(' ', type.size())));
        }
    }
    return messages;
}

}  // namespace system_tests
