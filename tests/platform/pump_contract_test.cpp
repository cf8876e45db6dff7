#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "host/pump.h"
#include "platform/asio/asio_pump.h"
#include "support/virtual_pump.h"

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

constexpr auto kPatience = 5000ms;  // of waits that the test ends itself
constexpr auto kRest = 12ms;        // in which a timer that does not tick could have ticked

template <typename PumpType>
class PumpContract : public testing::Test {
  protected:
    std::function<void()> note(const std::string& text) {
        return [this, text] { trace_.push_back(text); };
    }

    std::unique_ptr<host::Timer> timer(std::chrono::milliseconds interval,
                                       std::function<void()> on_tick) {
        auto timer = pump_.make_timer(std::move(on_tick));
        timer->set_interval(interval);
        timer->set_enabled(true);
        return timer;
    }

    bool run_until_traced(std::size_t entries) {
        return pump_.run_until([&] { return trace_.size() >= entries; }, kPatience);
    }

    void rest() {
        pump_.run_until([] { return false; }, kRest);
    }

    PumpType pump_;
    std::vector<std::string> trace_;
};

using Pumps = testing::Types<support::VirtualPump, platform::AsioPump>;

struct PumpNames {
    template <typename PumpType>
    static std::string GetName(int) {
        return std::is_same_v<PumpType, platform::AsioPump> ? "Asio" : "Virtual";
    }
};

TYPED_TEST_SUITE(PumpContract, Pumps, PumpNames);

TYPED_TEST(PumpContract, PostsRunInOrderBehindThePresentEvent) {
    this->pump_.post([this] {
        this->pump_.post(this->note("third"));
        this->trace_.push_back("first");
    });
    this->pump_.post(this->note("second"));
    this->run_until_traced(3);
    EXPECT_THAT(this->trace_, ElementsAre("first", "second", "third"));
}

TYPED_TEST(PumpContract, TimersTickInOrderOfDueTimesThenOfArming) {
    const auto late = this->timer(8ms, this->note("late"));
    const auto one = this->timer(4ms, this->note("one"));
    const auto two = this->timer(4ms, this->note("two"));
    this->run_until_traced(2);
    EXPECT_THAT(this->trace_, ElementsAre("one", "two"));
}

TYPED_TEST(PumpContract, TimerRepeatsAndANestedRunTicksItAgain) {
    const auto timer = this->timer(2ms, [this] {
        this->trace_.push_back("in");
        if (this->trace_.size() == 1) {
            this->run_until_traced(2);
            this->trace_.push_back("out");
        }
    });
    EXPECT_TRUE(this->run_until_traced(4));
    EXPECT_THAT(this->trace_, ElementsAre("in", "in", "out", "in"));
}

TYPED_TEST(PumpContract, TimerEndsWhenDisabledDestroyedOrGivenNoInterval) {
    std::unique_ptr<host::Timer> timer;
    const std::vector<std::function<void()>> endings = {
        [&] { timer->set_enabled(false); },
        [&] { timer->set_interval(0ms); },
        [&] { timer.reset(); },
        [&] {  // while its next tick has run nested already
            this->rest();
            timer.reset();
        },
    };
    for (const auto& ending : endings) {
        this->trace_.clear();
        bool ended = false;
        timer = this->timer(2ms, [&] {
            this->trace_.push_back("tick");
            if (!std::exchange(ended, true)) {
                ending();
                this->trace_.push_back("end");
            }
        });
        this->pump_.run_until([&] { return ended; }, kPatience);
        this->rest();
        EXPECT_EQ(this->trace_.back(), "end");
    }
}

TYPED_TEST(PumpContract, TimerDoesNotTickUnlessEnabledWithAnInterval) {
    const auto idle = this->pump_.make_timer(this->note("disabled"));
    idle->set_interval(1ms);
    const auto zero = this->timer(0ms, this->note("zero"));
    const auto negative = this->timer(-1ms, this->note("negative"));
    this->rest();
    EXPECT_THAT(this->trace_, ElementsAre());
}

TYPED_TEST(PumpContract, SettingAPropertyRestartsTheInterval) {
    const auto interval_set = this->timer(1ms, this->note("by interval"));
    const auto enabled_set = this->timer(4ms, this->note("by enabled"));
    const auto other = this->timer(4ms, this->note("other"));
    interval_set->set_interval(5000ms);
    enabled_set->set_enabled(true);
    this->run_until_traced(2);
    EXPECT_THAT(this->trace_, ElementsAre("other", "by enabled"));
}

TYPED_TEST(PumpContract, RunUntilTestsItsConditionFirstAndTellsWhetherItHeld) {
    this->pump_.post(this->note("post"));
    EXPECT_TRUE(this->pump_.run_until([] { return true; }, kPatience));
    EXPECT_THAT(this->trace_, ElementsAre());

    const auto start = this->pump_.steady_now();
    EXPECT_FALSE(this->pump_.run_until([] { return false; }, 3ms));
    EXPECT_GE(this->pump_.steady_now() - start, 3ms);
    EXPECT_THAT(this->trace_, ElementsAre("post"));
}

TYPED_TEST(PumpContract, OuterWaitEndsLateByAnInnerOne) {
    bool outer_is_due = false;
    this->pump_.post([&] {
        outer_is_due = true;
        this->run_until_traced(1);
        this->trace_.push_back("inner ends");
    });
    const auto timer = this->timer(3ms, this->note("tick"));
    EXPECT_TRUE(this->pump_.run_until([&] { return outer_is_due; }, 1ms));
    EXPECT_THAT(this->trace_, ElementsAre("tick", "inner ends"));
}

TYPED_TEST(PumpContract, RunReadyRunsWhatIsReadyAndNothingElse) {
    this->pump_.run_ready();
    const auto timer = this->timer(5000ms, this->note("tick"));
    std::function<void()> again = [&] { this->pump_.post(again); };
    this->pump_.post(again);
    this->pump_.post(this->note("post"));
    this->pump_.run_ready();
    EXPECT_THAT(this->trace_, ElementsAre("post"));
}

TYPED_TEST(PumpContract, StopUnwindsNestedRuns) {
    this->pump_.post([this] {
        try {
            this->run_until_traced(9);
        } catch (const host::PumpStopped&) {
            this->trace_.push_back("unwound");
            throw;
        }
    });
    this->pump_.post([this] { this->pump_.stop(); });
    this->pump_.post(this->note("never"));
    EXPECT_THROW(this->run_until_traced(9), host::PumpStopped);
    EXPECT_THROW(this->pump_.run_ready(), host::PumpStopped);
    EXPECT_THAT(this->trace_, ElementsAre("unwound"));
}

TYPED_TEST(PumpContract, AnExceptionLeavesThroughTheRunThatCarriesIt) {
    this->pump_.post([this] {
        const auto timer = this->timer(1ms, [] { throw std::runtime_error("tick failed"); });
        try {
            this->run_until_traced(9);
        } catch (const std::runtime_error& error) {
            this->trace_.push_back(error.what());
        }
    });
    this->pump_.post(this->note("next"));
    this->run_until_traced(2);
    EXPECT_THAT(this->trace_, ElementsAre("next", "tick failed"));
}

TEST(AsioPump, OutermostLoopReturnsWhenStoppedWhileNested) {
    platform::AsioPump pump;
    pump.post([&] { pump.run_until([] { return false; }, kPatience); });
    pump.post([&] { pump.stop(); });
    pump.run();
    EXPECT_THROW(pump.run_ready(), host::PumpStopped);
}

TEST(AsioPump, ASignalArrivesAsAnEvent) {
    platform::AsioPump pump;
    pump.on_stop_signal([&] { pump.stop(); });
    pump.post([] { std::raise(SIGTERM); });
    pump.run();
}

TEST(VirtualPump, EventsSeeTheirDueTimesAndAJumpMakesThemLate) {
    support::VirtualPump pump;
    std::vector<std::string> trace;
    const auto timer = pump.make_timer([&] { trace.push_back(pump.time_of_day() + " tick"); });
    timer->set_interval(50ms);
    timer->set_enabled(true);
    pump.call_later(120ms, [&] { trace.push_back(pump.time_of_day() + " call"); });
    pump.run_for(60ms);
    pump.jump(1h);
    pump.run_for(40ms);
    EXPECT_THAT(trace, ElementsAre("10:00:00.050 tick", "11:00:00.060 tick", "11:00:00.060 call"));
    pump.set_wall_clock(std::chrono::local_days{std::chrono::January / 1 / 2000} + 7h);
    pump.run_for(10ms);
    EXPECT_EQ(trace.back(), "07:00:00.010 tick");
}

TEST(VirtualPump, ARunThatNeverRestsFailsWithADiagnosis) {
    support::VirtualPump pump(1000);
    std::function<void()> again = [&] { pump.post(again); };
    pump.post(again);
    pump.call_later(70ms, [] {});
    try {
        pump.run_for(1s);
        FAIL();
    } catch (const support::RunawayPump& error) {
        EXPECT_STREQ(error.what(),
                     "The run does not end: 1001 events, depth 1, at 10:00:00.000, pending:\n"
                     "in 0 ms: post\nin 70 ms: call\n");
    }
}

}  // namespace
