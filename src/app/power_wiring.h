#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "home/subscriptions.h"

namespace host {
class Log;
class Settings;
}  // namespace host

namespace home {
class X10Line;
}

namespace app {

// The plugs between the power line and the simulated units: section "X10 Modules" of settings.ini
// names the X10 code of a module and the state directory of the unit behind it, relative to the
// home ("A1=../units/kitchen"), or nothing for a module without one. Owned by the daemon.
class PowerWiring {
  public:
    // Passes a unit's command on, at once and without waiting; `occasion` is "A1 off".
    using Tell = std::function<void(const std::filesystem::path& state_directory,
                                    const std::string& command, const std::string& occasion)>;

    // Attaches the modules. The line must outlive them. A name that is no X10 code is one line in
    // the log.
    PowerWiring(host::Settings& settings, home::X10Line& line, host::Log& log,
                std::filesystem::path home, Tell tell);

    PowerWiring(const PowerWiring&) = delete;
    PowerWiring& operator=(const PowerWiring&) = delete;

    // The state in which a house's modules stand when it comes up: a unit whose module is not
    // known to be on gets no commands.
    void switch_all_on();

  private:
    void attach(const std::string& code, const std::string& directory);
    void pass_on(const std::string& code, const std::filesystem::path& state_directory,
                 std::string_view command) const;

    home::X10Line& line_;
    std::filesystem::path home_;
    Tell tell_;
    std::vector<std::string> codes_;
    std::vector<home::Subscription> modules_;
};

}  // namespace app
