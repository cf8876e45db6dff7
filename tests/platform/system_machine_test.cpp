#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "platform/system/child_process.h"
#include "platform/system/local_time.h"
#include "platform/system/log_desktop.h"
#include "platform/system/system_clock.h"
#include "platform/system/system_random.h"

namespace platform {
namespace {

using namespace std::chrono_literals;

TEST(SystemClock, LocalTimeFollowsTheZoneOfTheMoment) {
    ASSERT_EQ(::setenv("TZ", "EST5EDT,M3.2.0,M11.1.0", 1), 0);
    (void)SystemClock().now();
    const auto winter = std::chrono::sys_days(2026y / 1 / 15) + 12h;
    const auto summer = std::chrono::sys_days(2026y / 7 / 15) + 12h + 250ms;
    EXPECT_EQ(local_time(winter), automation::DateTime(winter.time_since_epoch() - 5h));
    EXPECT_EQ(local_time(summer), automation::DateTime(summer.time_since_epoch() - 4h));
    ::unsetenv("TZ");
}

TEST(SystemRandom, NumbersFillTheRangeBelowOne) {
    SystemRandom random;
    float lowest = 1;
    float highest = 0;
    for (int draw = 0; draw < 10'000; ++draw) {
        const float number = random.next();
        lowest = std::min(lowest, number);
        highest = std::max(highest, number);
    }
    EXPECT_GE(lowest, 0.0F);
    EXPECT_LT(lowest, 0.01F);
    EXPECT_GT(highest, 0.99F);
    EXPECT_LT(highest, 1.0F);
}

TEST(LogDesktop, TellsWhatWouldBeShown) {
    std::vector<std::string> lines;
    LogDesktop desktop([&](const std::string& line) { lines.push_back(line); });
    desktop.message_box("No units");
    desktop.start_browser("http://127.0.0.1/status");
    EXPECT_THAT(lines,
                testing::ElementsAre("Message: No units", "Browser: http://127.0.0.1/status"));
}

TEST(ChildProcess, EndsInOneOfFourWays) {
    const struct {
        std::vector<std::string> words;
        std::chrono::milliseconds limit;
        ChildEnd end;
    } rows[] = {
        {{"sh", "-c", "exit 0"}, 1min, ChildEnd::Success},
        {{"sh", "-c", "read line"}, 1min, ChildEnd::Failure},  // nothing to read
        {{"sh", "-c", "kill -9 $$"}, 1min, ChildEnd::Failure},
        {{"sleep", "3600"}, 5ms, ChildEnd::TimedOut},
        {{"no-such-program"}, 1min, ChildEnd::NotStarted},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(run_child(row.words, row.limit), row.end) << row.words.back();
    }
}

}  // namespace
}  // namespace platform
