#include "app/script_lines.h"

#include <chrono>
#include <memory>

#include "automation/run_time_error.h"
#include "host/files.h"
#include "host/host_interface.h"
#include "host/script_control.h"

namespace app {

namespace {

constexpr std::chrono::minutes kTimeout{1};

// "Division by zero (line 3, column 7: x = 1 / 0)"
std::string description_of(const host::ScriptFailure& failure) {
    return failure.Description + " (line " + std::to_string(failure.Line) + ", column " +
           std::to_string(failure.Column) + ": " + failure.Text + ")";
}

}  // namespace

void ScriptLines::run(const std::string& line) {
    const std::string code = line.starts_with('&')
                                 ? line.substr(1)
                                 : files_.read(hs_.GetAppPath() + "\\Scripts\\" + line);
    const std::unique_ptr<host::ScriptControl> control = controls_.create();
    control->set_Timeout(kTimeout);
    control->AddObject("hs", hs_.object(), true);
    try {
        control->AddCode(code);
    } catch (const automation::RunTimeError& error) {
        throw error.with_description(description_of(control->Error()));
    }
}

}  // namespace app
