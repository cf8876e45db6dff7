#include "app/power_wiring.h"

#include <algorithm>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "home/x10_line.h"
#include "host/log.h"
#include "host/settings.h"

namespace app {

PowerWiring::PowerWiring(host::Settings& settings, home::X10Line& line, host::Log& log,
                         std::filesystem::path home, Tell tell)
    : line_(line), home_(std::move(home)), tell_(std::move(tell)) {
    std::string section = settings.GetINISection("X10 Modules", "settings.ini");
    std::erase(section, '"');
    for (const std::string& entry : automation::split(section, '\0')) {
        const std::size_t equals = entry.find('=');
        if (equals == std::string::npos) {
            continue;
        }
        try {
            attach(automation::trim(entry.substr(0, equals)),
                   automation::trim(entry.substr(equals + 1)));
        } catch (const automation::RunTimeError& error) {
            log.Writelog("Settings", "settings.ini, section X10 Modules: " + error.description());
        }
    }
}

void PowerWiring::attach(const std::string& code, const std::string& directory) {
    const std::filesystem::path state_directory =
        directory.empty() ? std::filesystem::path()
                          : (home_ / automation::code_page_to_utf8(directory)).lexically_normal();
    modules_.push_back(line_.attach(code, [this, code, state_directory](std::string_view command) {
        pass_on(code, state_directory, command);
    }));
    codes_.push_back(code);
}

void PowerWiring::pass_on(const std::string& code, const std::filesystem::path& state_directory,
                          std::string_view command) const {
    const bool is_switch = command == "on" || command == "off";
    if (is_switch && !state_directory.empty()) {
        tell_(state_directory, "power " + std::string(command), code + " " + std::string(command));
    }
}

void PowerWiring::switch_all_on() {
    for (const std::string& code : codes_) {
        line_.ExecX10(code, "on");
    }
}

}  // namespace app
