#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "automation/date.h"
#include "automation/value.h"

namespace core {
class Instance;
}

namespace host {
class ScriptControl;
class ScriptModule;
}  // namespace host

namespace pages {

// A script file of the user with all that it includes, as one module of an engine. Owned by the
// user script's queue. A fault in a script is reported in the log and ends nothing.
class Script {
  public:
    Script(core::Instance& instance, std::shared_ptr<host::ScriptControl> engine);

    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    // Loads a file of the folder Scripts, or one whose name has a drive letter or a share, into a
    // new module. Throws: RunTimeError 457 for a module that is there already.
    void Add(std::string_view file, std::string_view module);

    // Runs a procedure with one argument; Empty after a failure. May pump.
    automation::Value Run(std::string_view procedure, std::string_view argument);

    [[nodiscard]] const std::string& Filename() const noexcept { return file_; }

    // 1 January 1980, whatever the file says.
    [[nodiscard]] automation::DateTime FileDate() const noexcept;

  private:
    void AccumulateReferences(std::string_view file);
    void add_code(const std::string& text, std::string_view file);

    core::Instance& instance_;
    std::shared_ptr<host::ScriptControl> engine_;  // lives as long as a call that runs
    host::ScriptModule* module_ = nullptr;
    std::string file_;
};

}  // namespace pages
