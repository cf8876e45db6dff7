#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "appliance/queue_bench.h"

// Commands that wait, and the gap behind datagrams.
namespace appliance {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

TEST(DirectWait, ReturnsAtOnceAndEndsWithTheTimer) {
    for (const char* command : {"waitsecs 5", "WaitSecs5", "waitsecs   5  "}) {
        QueueBench bench;
        EXPECT_NE(bench.send(command), "");
        EXPECT_EQ(bench.state(), "delay") << command;
        bench.run_for(4999ms);
        EXPECT_EQ(bench.state(), "delay") << command;
        bench.run_for(1ms);
        EXPECT_EQ(bench.state(), "idle") << command;
        EXPECT_FALSE(bench.command_timer().enabled());
    }
}

TEST(DirectWait, LetsACommandThatFindsTheUnitIdlePassAndTheNextOneQueue) {
    QueueBench bench;
    bench.send("waitsecs 3");
    bench.run_for(1s);
    bench.send("cmd.shtml?1");
    bench.send("cmd.shtml?2");
    bench.run_for(10s);
    // The page is there at once, but the wait ends only with the time-out of the command.
    EXPECT_THAT(bench.trace(), ElementsAre("10:00:01.000 hall GET /cmd.shtml?1",
                                           "10:00:06.000 hall GET /cmd.shtml?2"));
}

TEST(DirectWait, ForNoNumberLeavesNothingBehind) {
    QueueBench bench;
    for (const char* command : {"waitsecs x", "waitsecs", "waitsecs 5 s"}) {
        EXPECT_NE(bench.send(command), "");
        EXPECT_EQ(bench.state(), "idle") << command;
        EXPECT_FALSE(bench.command_timer().enabled());
    }
    EXPECT_EQ(bench.queue().state().CurrentTag, "");
    EXPECT_THAT(bench.events(), IsEmpty());
}

TEST(DirectWait, CountsAsATimeOut) {
    QueueBench bench;
    bench.cycles_on_silence();
    const std::size_t objects = bench.machine.units.objects_made();
    bench.send("waitsecs 1");
    bench.run_for(2s);
    EXPECT_EQ(bench.queue().state().TimeoutCount, 1);
    EXPECT_EQ(bench.machine.units.objects_made(), objects + 1);
}

TEST(QueuedWait, HoldsThePumpForItsTime) {
    QueueBench bench;
    bench.send("cmd.shtml?1");
    bench.send("WAITSECS 5");
    bench.send("cmd.shtml?2");
    bench.run_for(1s);
    EXPECT_THAT(bench.trace(), ElementsAre("10:00:00.000 hall GET /cmd.shtml?1",
                                           "10:00:05.050 hall GET /cmd.shtml?2"));
    EXPECT_EQ(bench.machine.pump.time_of_day(), "10:00:05.050");
}

TEST(QueuedWait, PassesOnTheTimeOutOfTheCommandBefore) {
    QueueBench bench;
    bench.unit().goes_silent();
    bench.send("cmd.shtml?1", 2000);
    bench.send("waitsecs 3");
    bench.send("cmd.shtml?2");
    bench.run_for(2s);
    EXPECT_THAT(bench.trace(), ElementsAre("10:00:00.000 hall GET /cmd.shtml?1",
                                           "10:00:05.000 hall GET /cmd.shtml?2"));
}

TEST(QueuedWait, LetsWhatArrivesMeanwhilePassOrQueue) {
    QueueBench bench;
    bench.send("cmd.shtml?1");
    bench.send("waitsecs 3");
    bench.machine.pump.call_later(1s, [&] { bench.send_pages(2, 2); });
    bench.run_for(20s);
    EXPECT_THAT(bench.trace(), ElementsAre("10:00:00.000 hall GET /cmd.shtml?1",
                                           "10:00:01.000 hall GET /cmd.shtml?2",
                                           "10:00:03.050 hall GET /cmd.shtml?3"));
}

TEST(QueuedWait, ForNoNumberIsAPage) {
    QueueBench bench;
    bench.send("cmd.shtml?1");
    bench.send("waitsecs x");
    bench.run_for(1s);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1", "hall GET /waitsecs x"));
}

TEST(QueuedWait, OnTopOfAnotherWaitOfTheUnitIsAnError) {
    QueueBench bench;
    bench.unit().goes_silent();
    const std::string tag = bench.send("cmd.shtml?1", 1000);
    bench.send("waitsecs 1");
    EXPECT_FALSE(bench.queue().WaitForCommandComplete(tag, 30));
    EXPECT_THAT(bench.host.log(),
                ElementsAre(MatchesRegex("zynVelora hall: Velora SendTheCommand  Line [0-9]+ This "
                                         "function is not reentrant. If you want to wait for a "
                                         "second period use a new object")));
    EXPECT_EQ(bench.state(), "delay");  // as far as the routine had got
}

TEST(UdpGap, KeepsTheNextCommandAwayAndIsNoTimeOut) {
    QueueBench bench;
    bench.cycles_on_silence();
    bench.settings().UDPDelay = 300;
    bench.send("beepcmd1");
    EXPECT_EQ(bench.state(), "UDP gap");
    bench.run_for(301ms);
    EXPECT_EQ(bench.state(), "idle");
    EXPECT_EQ(bench.queue().state().TimeoutCount, 0);

    bench.send("cmd.shtml?1");
    bench.send("beepcmd2");
    bench.send("beepcmd3");
    bench.send("cmd.shtml?2");
    bench.run_for(5s);
    EXPECT_THAT(bench.trace(), ElementsAre("10:00:00.000 UDP Beep(1) to 192.168.0.20",
                                           "10:00:00.301 hall GET /cmd.shtml?1",
                                           "10:00:00.351 UDP Beep(2) to 192.168.0.20",
                                           "10:00:00.651 UDP Beep(3) to 192.168.0.20",
                                           "10:00:00.951 hall GET /cmd.shtml?2"));
    EXPECT_EQ(bench.queue().state().TimeoutCount, 0);
}

TEST(Waits, WithinWhichAPowerCycleBeginsLeaveTheQueueToRest) {
    for (const char* wait : {"waitsecs 30", "beepcmd1"}) {
        QueueBench bench;
        bench.settings().UDPDelay = 30000;
        bench.send(wait);
        bench.send("power");  // finds the unit idle
        bench.send("cmd.shtml?1");
        bench.run_for(1h);
        EXPECT_FALSE(bench.queue().state().PowerCycleInProgress);
        EXPECT_TRUE(bench.queue().state().WaitActive) << wait;
        EXPECT_THAT(bench.queue().waiting_commands(), ElementsAre("cmd.shtml?1")) << wait;
        EXPECT_FALSE(bench.command_timer().enabled());
    }
}

TEST(UdpGap, IsOverForACommandThatFindsTheUnitIdle) {
    QueueBench bench;
    bench.settings().UDPDelay = 300;
    bench.settings().CommandRetries = 2;
    bench.unit().goes_silent();
    bench.send("beepcmd1");
    bench.send("cmd.shtml?1");  // its silence is a time-out, and no end of a gap
    bench.run_for(1min);
    EXPECT_THAT(bench.trace(), ElementsAre("10:00:00.000 UDP Beep(1) to 192.168.0.20",
                                           "10:00:00.000 hall GET /cmd.shtml?1",
                                           "10:00:05.000 hall GET /cmd.shtml?1"));
}

TEST(UdpGap, IsKeptForADatagramThatLackedItsFields) {
    QueueBench bench;
    bench.settings().UDPDelay = 300;
    bench.send("sendcmdShow");
    EXPECT_EQ(bench.state(), "UDP gap");
}

}  // namespace
}  // namespace appliance
