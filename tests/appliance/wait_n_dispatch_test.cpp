#include "appliance/wait_n_dispatch.h"

#include <gtest/gtest.h>

#include <memory>

#include "automation/run_time_error.h"
#include "support/virtual_pump.h"

namespace appliance {
namespace {

using namespace std::chrono_literals;

class WaitTest : public testing::Test {
  protected:
    [[nodiscard]] auto passed() const { return pump_.steady_now(); }

    support::VirtualPump pump_;
    int ends_ = 0;
    CWaitNDispatch wait_{pump_, [this] { ++ends_; }};
};

TEST_F(WaitTest, KeepsThePumpRunning) {
    bool seen = false;
    pump_.call_later(300ms, [&] { seen = wait_.IsWaiting(); });
    wait_.Wait(1000);
    EXPECT_EQ(passed(), 1000ms);
    EXPECT_TRUE(seen);
    EXPECT_FALSE(wait_.IsWaiting());
    EXPECT_EQ(ends_, 1);
}

TEST_F(WaitTest, ForNoTimeReturnsWithoutAWord) {
    wait_.Wait(0);
    wait_.Wait(-5);
    EXPECT_EQ(passed(), 0ms);
    EXPECT_EQ(ends_, 0);
}

TEST_F(WaitTest, EndsAtOnceWhenCancelled) {
    pump_.call_later(300ms, [&] { wait_.Cancel(); });
    wait_.Wait(1000);
    EXPECT_EQ(passed(), 300ms);
    EXPECT_EQ(ends_, 1);
    wait_.Cancel();  // no wait runs, and the next is not touched
    wait_.Wait(100);
    EXPECT_EQ(passed(), 400ms);
}

TEST_F(WaitTest, WithinItselfIsAnErrorAndTheFirstGoesOn) {
    pump_.call_later(300ms, [&] {
        try {
            wait_.Wait(10);
            ADD_FAILURE();
        } catch (const automation::RunTimeError& error) {
            EXPECT_EQ(error.number(), static_cast<std::int32_t>(0x800403E9));
            EXPECT_EQ(error.description(),
                      "This function is not reentrant. If you want to wait for a second period "
                      "use a new object");
            EXPECT_EQ(error.source(), "CWaitNDispatch");
        }
        EXPECT_TRUE(wait_.IsWaiting());
    });
    wait_.Wait(1000);
    EXPECT_EQ(passed(), 1000ms);
    EXPECT_EQ(ends_, 1);
}

TEST_F(WaitTest, OfAnotherObjectOnTopDelaysTheFirst) {
    CWaitNDispatch other(pump_);
    pump_.call_later(900ms, [&] { other.Wait(500); });
    wait_.Wait(1000);
    EXPECT_EQ(passed(), 1400ms);
}

TEST_F(WaitTest, EndsWithItsObject) {
    auto wait = std::make_unique<CWaitNDispatch>(pump_, [this] { ++ends_; });
    pump_.call_later(300ms, [&] { wait.reset(); });
    wait->Wait(1000);
    EXPECT_EQ(passed(), 300ms);
    EXPECT_EQ(ends_, 1);
}

TEST_F(WaitTest, IsFreeAgainAfterAnEventHasThrownThroughIt) {
    pump_.call_later(100ms,
                     [] { throw automation::RunTimeError(automation::ErrorNumber::Overflow); });
    EXPECT_THROW(wait_.Wait(1000), automation::RunTimeError);
    EXPECT_FALSE(wait_.IsWaiting());
    wait_.Wait(50);
    EXPECT_EQ(passed(), 150ms);
}

}  // namespace
}  // namespace appliance
