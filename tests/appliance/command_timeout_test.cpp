#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "appliance/queue_bench.h"

// Silence without a power cycle: tries, time-outs, late pages.
namespace appliance {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Tries, AreAsManyAsSetAndAtLeastOne) {
    const struct {
        std::int16_t retries;
        std::vector<std::string> trace;
    } rows[] = {
        {-5, {"10:00:00.000 hall GET /cmd.shtml?1", "10:00:05.000 hall GET /cmd.shtml?2"}},
        {0, {"10:00:00.000 hall GET /cmd.shtml?1", "10:00:05.000 hall GET /cmd.shtml?2"}},
        {1, {"10:00:00.000 hall GET /cmd.shtml?1", "10:00:05.000 hall GET /cmd.shtml?2"}},
        {3,
         {"10:00:00.000 hall GET /cmd.shtml?1", "10:00:05.000 hall GET /cmd.shtml?1",
          "10:00:10.000 hall GET /cmd.shtml?1", "10:00:15.000 hall GET /cmd.shtml?2",
          "10:00:20.000 hall GET /cmd.shtml?2", "10:00:25.000 hall GET /cmd.shtml?2"}},
    };

    for (const auto& row : rows) {
        QueueBench bench;
        bench.settings().CommandRetries = row.retries;
        bench.unit().goes_silent();
        bench.send_pages(2);
        bench.run_for(1h);
        EXPECT_EQ(bench.trace(), row.trace) << row.retries;
        EXPECT_EQ(bench.state(), "idle");
        EXPECT_FALSE(bench.command_timer().enabled());
        EXPECT_THAT(bench.host.log(), IsEmpty());
    }
}

TEST(Tries, EndWithTheFirstAnswer) {
    QueueBench bench;
    bench.settings().CommandRetries = 3;
    bench.unit().goes_silent();
    bench.send_pages(2);
    bench.run_for(6s);
    bench.unit().answers();
    bench.run_for(1min);
    EXPECT_THAT(
        bench.trace(),
        ElementsAre("10:00:00.000 hall GET /cmd.shtml?1", "10:00:05.000 hall GET /cmd.shtml?1",
                    "10:00:10.000 hall GET /cmd.shtml?1", "10:00:10.050 hall GET /cmd.shtml?2"));
}

TEST(TimeOut, IsThatOfTheCommandAndAMinuteAtMost) {
    const struct {
        std::int32_t timeout_ms;
        const char* next;
    } rows[] = {
        {250, "10:00:00.250 hall GET /cmd.shtml?2"},
        {59999, "10:00:59.999 hall GET /cmd.shtml?2"},
        {60000, "10:01:00.000 hall GET /cmd.shtml?2"},
        {60001, "10:01:00.000 hall GET /cmd.shtml?2"},
        {2000000000, "10:01:00.000 hall GET /cmd.shtml?2"},
    };

    for (const auto& row : rows) {
        QueueBench bench;
        bench.unit().goes_silent();
        bench.send("cmd.shtml?1", row.timeout_ms);
        bench.send("cmd.shtml?2");
        bench.run_for(1h);
        EXPECT_EQ(bench.trace().at(1), row.next);
    }
}

TEST(TimeOut, ComesForARefusedConnectionToo) {
    QueueBench bench;
    bench.unit().refuses();
    bench.send_pages(2);
    bench.run_for(5s);
    EXPECT_THAT(bench.trace(), ElementsAre("10:00:00.000 hall GET /cmd.shtml?1",
                                           "10:00:05.000 hall GET /cmd.shtml?2"));
}

TEST(LatePage, OfADroppedCommandIsTakenForTheOneThatRuns) {
    QueueBench bench;
    bench.unit().answers(5200ms);
    bench.send_pages(1);
    bench.run_for(5100ms);
    EXPECT_EQ(bench.state(), "idle");
    bench.queue().set_power_cycle_count(2);
    bench.run_for(200ms);
    EXPECT_EQ(bench.queue().state().PowerCycleCount, 0);
    EXPECT_EQ(bench.state(), "idle");
}

TEST(PageWithFrames, IsOnePage) {
    QueueBench bench;
    bench.unit().completes_pages(3);
    bench.send_pages(3);
    bench.run_for(1s);
    EXPECT_THAT(bench.trace(), ElementsAre("10:00:00.000 hall GET /cmd.shtml?1",
                                           "10:00:00.050 hall GET /cmd.shtml?2",
                                           "10:00:00.100 hall GET /cmd.shtml?3"));
}

TEST(Silence, IsCountedOnlyForAUnitThatCanAndMayBePowerCycled) {
    const struct {
        bool wanted;
        const char* power_device;
        std::int16_t count;
        std::size_t new_objects;
    } rows[] = {{false, "", 0, 0}, {false, "A1", 0, 0}, {true, "", 0, 0}, {true, "A1", 2, 2}};

    for (const auto& row : rows) {
        QueueBench bench;
        bench.settings().noResponseAction = row.wanted;
        bench.power_device = row.power_device;
        bench.unit().goes_silent();
        const std::size_t objects = bench.machine.units.objects_made();
        bench.send_pages(2);
        bench.run_for(1h);
        EXPECT_EQ(bench.queue().state().TimeoutCount, row.count);
        EXPECT_EQ(bench.machine.units.objects_made(), objects + row.new_objects);
    }
}

TEST(Silence, KillsTheTryThatItsOwnTickHasStarted) {
    QueueBench bench;
    bench.cycles_on_silence();
    bench.settings().CommandRetries = 2;
    bench.unit().goes_silent();
    bench.send_pages(1);
    bench.run_for(5s);
    bench.unit().answers();  // too late for the second try: its object is gone
    EXPECT_EQ(bench.unit().in_flight(), 0);
    bench.run_for(5s);
    EXPECT_EQ(bench.queue().state().TimeoutCount, 2);
    EXPECT_EQ(bench.state(), "idle");
}

TEST(Speaking, LastsUntilAPageComesWhileTheSoundIsTheCommand) {
    QueueBench bench;
    bench.unit().answers(1s);
    bench.send("loadWav.shtml?http://10.0.0.2/a.wav");
    EXPECT_TRUE(bench.queue().state().isSpeaking);
    bench.run_for(1s);
    EXPECT_FALSE(bench.queue().state().isSpeaking);

    bench.unit().goes_silent();
    bench.send("loadWav.shtml?http://10.0.0.2/a.wav");
    bench.run_for(1min);
    EXPECT_EQ(bench.state(), "idle");
    EXPECT_TRUE(bench.queue().state().isSpeaking);  // nobody has told otherwise
    bench.send("loadWAV.shtml?http://10.0.0.2/a.wav");
    bench.unit().answers();
    bench.run_for(1min);
    EXPECT_TRUE(bench.queue().state().isSpeaking);
}

TEST(Disabled, UnitTakesNoCommandAndItsTimerHasNoEffect) {
    QueueBench bench;
    bench.settings().CommandRetries = 2;
    bench.unit().goes_silent();
    bench.send_pages(2);
    bench.queue().set_disabled(true);
    EXPECT_EQ(bench.send("cmd.shtml?3"), "");
    bench.run_for(12s);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1"));
    EXPECT_TRUE(bench.command_timer().enabled());
    bench.queue().set_disabled(false);
    bench.run_for(1h);
    EXPECT_THAT(
        bench.trace(),
        ElementsAre("10:00:00.000 hall GET /cmd.shtml?1", "10:00:15.000 hall GET /cmd.shtml?1",
                    "10:00:20.000 hall GET /cmd.shtml?2", "10:00:25.000 hall GET /cmd.shtml?2"));
}

}  // namespace
}  // namespace appliance
