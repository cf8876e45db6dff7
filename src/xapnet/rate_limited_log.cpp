#include "xapnet/rate_limited_log.h"

#include <string>

#include "automation/run_time_error.h"

namespace xapnet {

void RateLimitedLog::write(std::string_view text) {
    const std::chrono::nanoseconds now = pump_.steady_now();
    if (last_line_ && now - *last_line_ < kPause) {
        ++left_out_;
        return;
    }
    last_line_ = now;
    std::string line(text);
    if (const std::uint64_t left_out = std::exchange(left_out_, 0); left_out > 0) {
        line += " (" + std::to_string(left_out) + " more were left out before)";
    }
    log_(level_, line);
}

void RateLimitedLog::report(std::string_view where, const automation::RunTimeError& error) {
    write(std::string(where) + error.description());
}

}  // namespace xapnet
