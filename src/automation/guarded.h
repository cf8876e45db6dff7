#pragma once

#include <string_view>
#include <type_traits>
#include <utility>

#include "automation/run_time_error.h"

namespace automation {

// Runs `body` as a routine that has an error handler: a RunTimeError is reported once, as
// `log.report(where, error)`, and the routine's default value ("" or 0 or false or no object) is
// returned. `where` is the routine's name as the log shows it, with its trailing blank. Any other
// exception is a fault of ours or the end of the program, and passes.
template <typename Log, typename Body>
auto guarded(Log& log, std::string_view where, Body&& body) -> std::invoke_result_t<Body> {
    using Result = std::invoke_result_t<Body>;
    try {
        return std::forward<Body>(body)();
    } catch (const RunTimeError& error) {
        log.report(where, error);
        if constexpr (!std::is_void_v<Result>) {
            return Result{};
        }
    }
}

}  // namespace automation
