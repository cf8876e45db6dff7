#include "platform/system/system_clock.h"

#include <ctime>

#include "platform/system/local_time.h"

namespace platform {

using std::chrono::milliseconds;
using std::chrono::seconds;

automation::DateTime local_time(std::chrono::sys_time<milliseconds> moment) {
    const auto since_epoch = std::chrono::floor<seconds>(moment.time_since_epoch());
    const std::time_t whole_seconds = since_epoch.count();
    std::tm local{};
    ::localtime_r(&whole_seconds, &local);
    return automation::DateTime(moment.time_since_epoch() + seconds(local.tm_gmtoff));
}

automation::DateTime SystemClock::now() const {
    // localtime_r alone need not read TZ; a daemon that runs for months has to notice a move.
    ::tzset();
    return local_time(std::chrono::floor<milliseconds>(std::chrono::system_clock::now()));
}

}  // namespace platform
