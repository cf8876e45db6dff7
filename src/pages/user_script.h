#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "pages/script.h"

namespace host {
class Timer;
}

namespace pages {

// The script of the user, Scripts\zynVelora.txt, with the calls that wait for its procedure `Main`.
// Owned by the plug-in.
class UserScript {
  public:
    // The timer that works the calls off; none before start-up and after shut-down.
    using ScriptQueueTimer = std::function<host::Timer*()>;

    UserScript(core::Instance& instance, ScriptQueueTimer timer);
    UserScript(const UserScript&) = delete;
    UserScript& operator=(const UserScript&) = delete;

    // Loads the file, if it is there, into an engine of its own; what was loaded before is gone.
    void load();
    void unload() noexcept;

    // Adds a call of `Main` with this argument. It runs from the next tick on, never within.
    void add(std::string_view argument);

    // One tick: works off all calls that wait. Without a script they are dropped. May pump.
    void ScriptQueueTimer_Timer();

    [[nodiscard]] bool is_loaded() const noexcept { return script_ != nullptr; }

  private:
    core::Instance& instance_;
    ScriptQueueTimer timer_;
    std::shared_ptr<Script> script_;    // shared with a call that runs
    std::deque<std::string> messages_;  // ScriptMessages
};

}  // namespace pages
