#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

#include "host/pump.h"

namespace automation {
class RunTimeError;
}

namespace xapnet {

enum class LogLevel : std::uint8_t { Info, Debug };

// Where a node's log lines go, in code page 1252.
using LogFunction = std::function<void(LogLevel level, std::string_view text)>;

// A log for what anybody on the network can cause: one line a second at most, so that a flood of
// datagrams is none of the log. Owned by the node. What the log function throws passes.
class RateLimitedLog {
  public:
    static constexpr std::chrono::seconds kPause{1};

    // The pump must outlive the log.
    RateLimitedLog(host::Pump& pump, LogLevel level, LogFunction log)
        : pump_(pump), level_(level), log_(std::move(log)) {}

    // A line tells how many were left out since the line before.
    void write(std::string_view text);

    // The line of an error, for `automation::guarded`.
    void report(std::string_view where, const automation::RunTimeError& error);

  private:
    host::Pump& pump_;
    LogLevel level_;
    LogFunction log_;
    std::optional<std::chrono::nanoseconds> last_line_;  // on the pump's clock
    std::uint64_t left_out_ = 0;
};

}  // namespace xapnet
