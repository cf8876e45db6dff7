#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "home/temporary_folder.h"
#include "system/process.h"

namespace system_tests {

using Json = nlohmann::json;

// What a program that has ended leaves behind.
struct Outcome {
    int exit_code = 0;
    std::string out;
    std::string err;
};

// A port of this machine's address on which nobody listens.
[[nodiscard]] std::uint16_t free_port(const std::string& address);

// A daemon and its units as processes, in a folder and on ports of their own. Boots and power
// cycles take a second or two. The first unit's power switch is A1 and its motion sensor B1, the
// next one's A2 and B2, and so on. Its end stops all; when the test has failed, it shows what they
// said.
class House {
  public:
    explicit House(std::initializer_list<std::string> unit_names);
    House(const House&) = delete;
    House& operator=(const House&) = delete;
    ~House();

    // --- before the start of the daemon

    // A setting of section "Velora Utilities", in the place of the one it has.
    void set(const std::string& key, const std::string& value) { settings_[key] = value; }

    // The group of slides that all units show, in the place of none.
    void set_slideshow_group(int group) { slideshow_group_ = std::to_string(group); }

    // All units run the client program and want callers.
    void want_callers() { wants_callers_ = true; }

    // The port of the host's own web server, in the place of a free one.
    void take_host_port(const std::string& port) { host_port_ = port; }

    // Text behind all other settings.
    void append_settings(const std::string& lines) { more_settings_ += lines; }

    // The units become a node of an xAP network at this port, as "zyn.zynVelora.<instance>".
    void join_xap(const std::string& port, const std::string& instance) {
        set("RunAsXapNode", "1");
        xap_ = "[xAP]\nPort=" + port + "\nInstance=" + instance + "\nHeartbeatSeconds=1\n";
    }

    // The device of a serial port.
    void map_serial_port(const std::string& number, const std::string& device) {
        serial_ports_ += number + "=" + device + "\n";
    }

    // A line in front of the list of units.
    void put_before_units(const std::string& line) { before_units_ += line; }

    // --- processes

    // Starts the units and the daemon, and waits until they are up.
    void start(const std::vector<std::string>& daemon_options = {});
    void start_unit(const std::string& name);
    void start_daemon(const std::vector<std::string>& options = {});

    // The separate program of the xAP network, beside a daemon that has been started.
    void start_xap();

    [[nodiscard]] Process& daemon() { return *daemon_; }

    [[nodiscard]] Process& xap() { return *xap_process_; }

    [[nodiscard]] Process& unit(const std::string& name) { return *units_.at(name).process; }

    // Starts one more program of this house, the arguments as they stand.
    [[nodiscard]] std::unique_ptr<Process> spawn(const std::vector<std::string>& arguments,
                                                 const Environment& environment = {});

    // The same, and waits for its end.
    Outcome run(const std::vector<std::string>& arguments, const Environment& environment = {});

    // An operation, which is expected to succeed.
    void call(std::vector<std::string> operation_and_arguments);

    // A sub-command that asks the daemon of this house.
    Outcome ask(std::vector<std::string> words);

    // The same for one that is expected to succeed; gives its output.
    std::string told(const std::vector<std::string>& words);

    // Gives a unit a fault, or takes it away.
    void tell(const std::string& unit, const std::string& command);

    // --- what can be seen

    [[nodiscard]] std::filesystem::path home() const { return folder_.path() / "home"; }

    [[nodiscard]] std::filesystem::path unit_folder(const std::string& name) const {
        return folder_.path() / "units" / name;
    }

    [[nodiscard]] std::string server_port() const { return settings_.at("ServerPort"); }

    // Of the host's own web server.
    [[nodiscard]] std::string host_port() const { return host_port_; }

    // Of client programs: the daemon's own port and theirs.
    [[nodiscard]] const std::string& client_port() const { return client_port_; }

    // Of the music players of all units.
    [[nodiscard]] std::string jukebox_port() const { return settings_.at("PhJukeCommandPort"); }

    [[nodiscard]] std::string address_of(const std::string& unit) const;

    // state.json of a unit.
    [[nodiscard]] Json state(const std::string& unit) const;

    // True as soon as the unit's state shows so.
    [[nodiscard]] bool shows(const std::string& unit, const std::string& key, const Json& value,
                             std::chrono::milliseconds limit = kPatience) const;

    // The pages that were asked of a unit, oldest first, without the slash.
    [[nodiscard]] std::vector<std::string> requests(const std::string& unit) const;

    // What the daemon says of a unit.
    [[nodiscard]] Json status(const std::string& unit);

    // A device as the daemon shows it, null without one.
    [[nodiscard]] Json device(const std::string& code);

    // zynVeloraUtilities.ini as it is now, and with another text, at once as a whole.
    [[nodiscard]] std::string settings() const;
    void replace_settings(const std::string& text) const;

    // Messages of one type in the host's log, oldest first.
    [[nodiscard]] std::vector<std::string> log(std::string_view type);

  private:
    struct HouseUnit {
        std::string address;
        std::string power_device;
        std::string motion_device;
        std::unique_ptr<Process> process;
    };

    void write_settings() const;
    [[nodiscard]] std::filesystem::path next_output(const std::string& title);
    static void wait_until_up(Process& process);

    TemporaryFolder folder_;
    std::vector<std::string> names_;
    std::map<std::string, std::string> settings_;
    std::string slideshow_group_ = "0";
    bool wants_callers_ = false;
    std::string host_port_;
    std::string client_port_;
    std::string before_units_;
    std::string more_settings_;
    std::string serial_ports_;
    std::string xap_;
    int outputs_ = 0;
    std::map<std::string, HouseUnit> units_;
    std::unique_ptr<Process> daemon_;       // ends before its units
    std::unique_ptr<Process> xap_process_;  // likewise
};

}  // namespace system_tests
