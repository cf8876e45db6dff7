#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "appliance/queue_bench.h"

// Every state of a queue with what leads out of it.
namespace appliance {
namespace {

using namespace std::chrono_literals;

struct Transition {
    const char* name;
    const char* from;
    std::function<void(QueueBench&)> prepare;
    std::function<void(QueueBench&)> event;
    const char* to;
};

void PrintTo(const Transition& row, std::ostream* output) {
    *output << row.name;
}

void nothing(QueueBench&) {}

void fetch_silently(QueueBench& bench) {
    bench.unit().goes_silent();
    bench.send_pages(1);
}

void fetch_and_queue(QueueBench& bench) {
    fetch_silently(bench);
    bench.send_pages(1, 2);
}

void open_gap(QueueBench& bench) {
    bench.settings().UDPDelay = 100;
    bench.send("beepcmd1");
}

void wait_directly(QueueBench& bench) {
    bench.send("waitsecs 1");
}

void cut_power(QueueBench& bench) {
    bench.send("power");
}

void boot(QueueBench& bench) {
    cut_power(bench);
    bench.run_for(5s);
}

// Silent time-outs of one second each, one after the other.
void time_out(QueueBench& bench, int times) {
    bench.cycles_on_silence();
    bench.unit().goes_silent();
    for (int i = 0; i < times; ++i) {
        bench.send("cmd.shtml?1", 1000);
        bench.run_for(1s);
    }
}

void give_up(QueueBench& bench) {
    time_out(bench, 6);
    bench.run_for(2min);
    time_out(bench, 1);
    bench.run_for(2min);
    time_out(bench, 1);
}

const Transition kTransitions[] = {
    {"IdleByPage", "idle", nothing, fetch_silently, "fetching"},
    {"IdleByWait", "idle", nothing, wait_directly, "delay"},
    {"IdleByDatagramWithGap", "idle", nothing, open_gap, "UDP gap"},
    {"IdleByDatagramWithoutGap", "idle", nothing, [](QueueBench& b) { b.send("beepcmd1"); },
     "idle"},
    {"IdleByPower", "idle", nothing, [](QueueBench& b) { b.send("POWERful"); }, "power off"},
    {"FetchingByPage", "fetching", [](QueueBench& b) { b.send_pages(1); },
     [](QueueBench& b) { b.run_for(50ms); }, "idle"},
    {"FetchingByPageWithMore", "fetching",
     [](QueueBench& b) {
         b.unit().answers(1s);
         b.send_pages(2);
     },
     [](QueueBench& b) { b.run_for(1500ms); }, "fetching"},
    {"FetchingByTickWithTries", "fetching",
     [](QueueBench& b) {
         b.settings().CommandRetries = 2;
         fetch_silently(b);
     },
     [](QueueBench& b) { b.run_for(5s); }, "fetching"},
    {"FetchingByTickWithMore", "fetching", fetch_and_queue, [](QueueBench& b) { b.run_for(5s); },
     "fetching"},
    {"FetchingByTickWithoutMore", "fetching", fetch_silently, [](QueueBench& b) { b.run_for(5s); },
     "idle"},
    {"FetchingByFifthTimeOut", "idle", nothing, [](QueueBench& b) { time_out(b, 5); }, "idle"},
    {"FetchingBySixthTimeOut", "idle", nothing, [](QueueBench& b) { time_out(b, 6); }, "power off"},
    {"FetchingByThirdCycle", "idle", nothing, give_up, "given up"},
    {"FetchingByOverflow", "fetching", fetch_silently, [](QueueBench& b) { b.send_pages(22, 2); },
     "power off"},
    {"GapByTick", "UDP gap", open_gap, [](QueueBench& b) { b.run_for(100ms); }, "idle"},
    {"GapByTickWithMore", "UDP gap",
     [](QueueBench& b) {
         b.send_pages(1);
         b.unit().goes_silent();
         b.settings().UDPDelay = 100;
         b.send("beepcmd1");
         b.send_pages(1, 2);
         b.unit().answers();
         b.run_for(60ms);
         b.unit().goes_silent();
     },
     [](QueueBench& b) { b.run_for(100ms); }, "fetching"},
    {"DelayByTick", "delay", wait_directly, [](QueueBench& b) { b.run_for(1s); }, "idle"},
    {"PowerOffByTick", "power off", cut_power, [](QueueBench& b) { b.run_for(5s); }, "boot"},
    {"PowerOffByCommand", "power off", cut_power, [](QueueBench& b) { b.send_pages(1); },
     "power off"},
    {"BootByTickWithMinutesLeft", "boot", boot, [](QueueBench& b) { b.run_for(15005ms); }, "boot"},
    {"BootByLastTick", "boot", boot, [](QueueBench& b) { b.run_for(75005ms); }, "idle"},
    {"BootByLastTickWithMore", "boot", boot,
     [](QueueBench& b) {
         b.unit().goes_silent();
         b.send_pages(1);
         b.run_for(75005ms);
     },
     "fetching"},
    {"GivenUpByPage", "given up", give_up,
     [](QueueBench& b) {
         b.unit().answers();
         b.send_pages(1);
         b.run_for(50ms);
     },
     "idle"},
    {"GivenUpByHand", "given up", give_up,
     [](QueueBench& b) { b.queue().set_power_cycle_count(0); }, "idle"},
    {"DisabledByHand", "disabled",
     [](QueueBench& b) {
         fetch_silently(b);
         b.queue().set_disabled(true);
     },
     [](QueueBench& b) { b.queue().set_disabled(false); }, "fetching"},
};

class QueueStates : public testing::TestWithParam<Transition> {};

TEST_P(QueueStates, Go) {
    const Transition& row = GetParam();
    QueueBench bench;
    row.prepare(bench);
    ASSERT_EQ(bench.state(), row.from);
    row.event(bench);
    EXPECT_EQ(bench.state(), row.to);
    EXPECT_LE(bench.unit().most_in_flight(), 1);
}

INSTANTIATE_TEST_SUITE_P(All, QueueStates, testing::ValuesIn(kTransitions),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace appliance
