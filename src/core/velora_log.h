#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "automation/run_time_error.h"

namespace host {
class Log;
}

namespace core {

inline constexpr std::string_view kLogType = "zynVelora";
inline constexpr std::string_view kDebugLogType = "zynVelora Debug";

// The one way into the host's log, and the state of the last error. Part of the plug-in instance;
// all subsystems write through it.
class VeloraLog {
  public:
    // The host's log, from the moment that the host has handed itself over; none detaches.
    void attach(host::Log* target) noexcept { target_ = target; }

    // Debug lines are written, and built, only while this is on.
    [[nodiscard]] bool DebugLog() const noexcept { return debug_; }

    void set_debug_log(bool enabled) noexcept { debug_ = enabled; }

    // Writes one line. While an error is pending, the line gets its mark and description behind
    // it, and the error is settled. Before a host is there the line is lost, the error kept.
    // Throws: RunTimeError when the host cannot store the line.
    void VeloraWriteLog(std::string_view type, std::string_view message);

    // Reports an error of the routine `where`, a name with its trailing blank; what guarded()
    // calls.
    void report(std::string_view where, const automation::RunTimeError& error) {
        report_as(kLogType, where, error);
    }

    void report_as(std::string_view type, std::string_view where,
                   const automation::RunTimeError& error);

    // Leaves an error behind for the next line, as a step does whose failure is passed over.
    void leave_pending(const automation::RunTimeError& error) { pending_ = error; }

    void clear_pending() noexcept { pending_.reset(); }

    // Writes a debug line with the text that `make_text` builds, which runs only when it is on.
    template <typename MakeText>
    void debug(MakeText&& make_text) {
        debug_as(kDebugLogType, std::forward<MakeText>(make_text));
    }

    template <typename MakeText>
    void debug_as(std::string_view type, MakeText&& make_text) {
        if (debug_) {
            VeloraWriteLog(type, std::forward<MakeText>(make_text)());
        }
    }

  private:
    host::Log* target_ = nullptr;
    bool debug_ = false;
    std::optional<automation::RunTimeError> pending_;
};

// Runs `step` with failures passed over: a RunTimeError stays pending for the next log line.
template <typename Step>
void ignoring_errors(VeloraLog& log, Step&& step) {
    try {
        std::forward<Step>(step)();
    } catch (const automation::RunTimeError& error) {
        log.leave_pending(error);
    }
}

}  // namespace core
