#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "appliance/queue_bench.h"

// A unit that is switched off and on again, on command, on silence and for good.
namespace appliance {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(PowerCycle, TakesItsTimeAndThenSendsWhatWaited) {
    QueueBench bench;
    bench.send("power");
    bench.send("cmd.shtml?1");
    EXPECT_THAT(bench.queue().waiting_commands(), ElementsAre("cmd.shtml?1"));
    bench.run_for(5min);
    EXPECT_THAT(bench.trace(), ElementsAre("10:00:00.000 X10 A1 off", "10:00:05.000 X10 A1 on",
                                           "10:00:05.000 power came back", "10:01:20.005 booted",
                                           "10:01:20.005 hall GET /cmd.shtml?1"));
    EXPECT_EQ(bench.host.DeviceStatus("A1"), 0);  // switching is the owner's
}

TEST(PowerCycle, BootsForWholeMinutesBehindTheRest) {
    const struct {
        std::int32_t power_up_ms;
        std::chrono::milliseconds boot;
    } rows[] = {
        {0, 5ms},         {1000, 1005ms},   {59999, 60004ms},
        {60000, 60005ms}, {75000, 75005ms}, {180000, 180005ms},
    };

    for (const auto& row : rows) {
        QueueBench bench;
        bench.settings().PowerUpTime = row.power_up_ms;
        bench.send("power");
        bench.run_for(5s + row.boot - 1ms);
        EXPECT_EQ(bench.state(), "boot") << row.power_up_ms;
        bench.run_for(1ms);
        EXPECT_EQ(bench.state(), "idle") << row.power_up_ms;
    }
}

TEST(PowerCycle, RunsWithoutAPowerDeviceToo) {
    QueueBench bench;
    bench.power_device.clear();
    bench.send("power");
    bench.run_for(5s);
    EXPECT_THAT(bench.events(), ElementsAre("X10  off", "X10  on", "power came back"));
}

TEST(PowerCycle, FromTheQueueKeepsWhatWaitsBehindIt) {
    QueueBench bench;
    bench.send("cmd.shtml?1");
    bench.send("Power");
    bench.send("cmd.shtml?2");
    bench.run_for(5min);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1", "X10 A1 off", "X10 A1 on",
                                            "power came back", "booted", "hall GET /cmd.shtml?2"));
}

TEST(PowerCycle, HearsOfAPageButSendsNothing) {
    QueueBench bench;
    bench.unit().answers(2s);
    bench.send("cmd.shtml?1");
    bench.send("cmd.shtml?2");
    bench.queue().set_power_cycle_count(1);
    bench.machine.pump.call_later(1s, [&] { bench.send_pages(22, 3); });  // one too many
    bench.run_for(4s);
    EXPECT_EQ(bench.state(), "power off");
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1", "X10 A1 off"));
}

TEST(FlagFile, EndsTheBootAtTheNextTick) {
    const struct {
        const char* content;
        bool ends;
    } rows[] = {{"BROWSER", true}, {"the browser is up", true}, {"Booting", false}, {"", false}};

    for (const auto& row : rows) {
        QueueBench bench;
        bench.settings().WindowsShare = "\\\\pc\\share";
        bench.settings().PowerUpTime = 200000;
        bench.send("power");
        bench.run_for(6s);
        bench.machine.files.put(bench.flag_file, row.content);
        bench.run_for(20s);  // the first tick comes 20.005 s after power-on
        EXPECT_EQ(bench.state(), row.ends ? "idle" : "boot") << row.content;
        bench.run_for(1s);
    }
}

TEST(FlagFile, OfTheLastBootIsDeletedWithoutPower) {
    QueueBench bench;
    bench.settings().WindowsShare = "\\\\pc\\share";
    bench.machine.files.put(bench.flag_file, "BROWSER");
    bench.send("power");
    bench.run_for(4s);
    EXPECT_TRUE(bench.machine.files.FileExists(bench.flag_file));
    bench.run_for(1s);
    EXPECT_FALSE(bench.machine.files.FileExists(bench.flag_file));
    bench.run_for(20s);
    EXPECT_EQ(bench.state(), "boot");
}

TEST(FlagFile, IsNoSignalWithoutAShare) {
    QueueBench bench;
    bench.machine.files.put(bench.flag_file, "BROWSER");
    bench.send("power");
    bench.run_for(30s);
    EXPECT_EQ(bench.state(), "boot");
    EXPECT_TRUE(bench.machine.files.FileExists(bench.flag_file));
}

// A unit that has died: a command with 5 s time-out each minute and a half.
void command_in_vain(QueueBench& bench, int times) {
    for (int i = 0; i < times; ++i) {
        bench.send_pages(1);
        bench.run_for(90s);
    }
}

TEST(Silence, CyclesAtTheSixthTimeOutAndThenAtTheNextAndThenGivesUp) {
    QueueBench bench;
    bench.cycles_on_silence();
    bench.unit().goes_silent();
    command_in_vain(bench, 9);
    EXPECT_THAT(
        bench.trace(),
        ElementsAre("10:00:00.000 hall GET /cmd.shtml?1", "10:01:30.000 hall GET /cmd.shtml?1",
                    "10:03:00.000 hall GET /cmd.shtml?1", "10:04:30.000 hall GET /cmd.shtml?1",
                    "10:06:00.000 hall GET /cmd.shtml?1", "10:07:30.000 hall GET /cmd.shtml?1",
                    "10:07:35.000 X10 A1 off", "10:07:40.000 X10 A1 on",
                    "10:07:40.000 power came back", "10:08:55.005 booted",
                    "10:09:00.000 hall GET /cmd.shtml?1", "10:09:05.000 X10 A1 off",
                    "10:09:10.000 X10 A1 on", "10:09:10.000 power came back", "10:10:25.005 booted",
                    "10:10:30.000 hall GET /cmd.shtml?1", "10:12:00.000 hall GET /cmd.shtml?1"));
    EXPECT_THAT(bench.host.log(),
                ElementsAre("zynVelora: hall Velora has been disabled following three power "
                            "cylces without response"));
    EXPECT_EQ(bench.queue().state().PowerCycleCount, 4);
    EXPECT_EQ(bench.state(), "given up");
}

TEST(Silence, EmptiesTheQueueWithEachCycle) {
    QueueBench bench;
    bench.cycles_on_silence();
    bench.unit().goes_silent();
    bench.send_pages(10);
    bench.run_for(31s);
    EXPECT_EQ(bench.state(), "power off");
    EXPECT_THAT(bench.queue().waiting_commands(), IsEmpty());
    EXPECT_EQ(bench.unit().in_flight(), 0);
    EXPECT_THAT(bench.events(), SizeIs(8));  // the seventh had just been sent
    EXPECT_EQ(bench.queue_device_text(), "Queue: 0) ");
}

TEST(GivenUp, UnitTakesOneProbeAndDropsWhatWouldWait) {
    QueueBench bench;
    bench.cycles_on_silence();
    bench.unit().goes_silent();
    command_in_vain(bench, 8);
    bench.machine.trace.clear();
    bench.send_pages(2);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1"));
    EXPECT_THAT(bench.queue().waiting_commands(), IsEmpty());
    EXPECT_EQ(bench.queue_device_text(), "");
    // The dropped command has left the queue marked as empty, so the next one is a probe again.
    bench.send_pages(2, 3);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1", "hall GET /cmd.shtml?3"));
    EXPECT_LE(bench.unit().most_in_flight(), 1);
}

TEST(GivenUp, UnitIsMarkedIdleThoughItsLastCommandsWereUnderWay) {
    QueueBench bench;
    bench.cycles_on_silence();
    bench.unit().goes_silent();
    command_in_vain(bench, 7);
    bench.send_pages(3);
    bench.run_for(5s);  // the second command had just been sent
    EXPECT_EQ(bench.state(), "given up");
    EXPECT_THAT(bench.queue().waiting_commands(), IsEmpty());
    command_in_vain(bench, 4);
    EXPECT_EQ(bench.queue().state().PowerCycleCount, 4);
    EXPECT_THAT(bench.host.log(), SizeIs(1));
}

TEST(GivenUp, UnitComesBackWithTheFirstPage) {
    QueueBench bench;
    bench.cycles_on_silence();
    bench.unit().goes_silent();
    command_in_vain(bench, 9);
    bench.unit().answers();
    bench.machine.trace.clear();
    bench.send_pages(1);
    bench.run_for(1s);
    EXPECT_EQ(bench.state(), "idle");
    bench.send_pages(2, 2);
    bench.run_for(1s);
    EXPECT_THAT(bench.events(), SizeIs(3));
    // Its time-outs still stand at more than five: one more silence and it is cycled.
    bench.unit().goes_silent();
    command_in_vain(bench, 1);
    EXPECT_THAT(bench.events(), testing::Contains("X10 A1 off"));
}

TEST(Silence, StartsAnewWhenTheTimeOutCountIsCleared) {
    QueueBench bench;
    bench.cycles_on_silence();
    bench.unit().goes_silent();
    command_in_vain(bench, 5);
    bench.queue().clear_timeout_count();
    command_in_vain(bench, 5);
    EXPECT_THAT(bench.events(), testing::Each(testing::HasSubstr("GET")));
    command_in_vain(bench, 1);
    EXPECT_THAT(bench.events(), testing::Contains("X10 A1 off"));
}

}  // namespace
}  // namespace appliance
