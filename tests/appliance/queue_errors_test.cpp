#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "appliance/queue_bench.h"

// Failures under way, and calls that come on top of one another.
namespace appliance {
namespace {

using namespace std::chrono_literals;
using support::MemoryHost;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::StartsWith;

TEST(FetchThatFails, IsRecoveredByTheTimer) {
    QueueBench bench;
    bench.computer.clear();  // no URL
    bench.send_pages(1);
    EXPECT_THAT(bench.host.log(),
                ElementsAre(StartsWith("zynVelora hall: Velora SendTheCommand  Line ")));
    EXPECT_EQ(bench.state(), "fetching");
    bench.computer = "hall";
    bench.send_pages(1, 2);
    bench.run_for(6s);
    EXPECT_THAT(bench.trace(), ElementsAre("10:00:05.000 hall GET /cmd.shtml?2"));
}

TEST(FetchObjectThatCannotBeMade, LeavesEachFetchAnError) {
    QueueBench bench;
    bench.machine.units.set_unavailable(true);
    EXPECT_THROW(bench.queue().ResetQueue(), automation::RunTimeError);
    bench.send_pages(1);
    EXPECT_THAT(bench.host.log(), ElementsAre(MatchesRegex("zynVelora hall: Velora SendTheCommand  "
                                                           "Line [0-9]+ Object variable.*")));
    bench.machine.units.set_unavailable(false);
    bench.run_for(5s);
    bench.queue().ResetQueue();
    bench.send_pages(1, 2);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?2"));
}

TEST(HostThatFails, WhileACommandIsPutInTheQueueLeavesItResting) {
    QueueBench bench;
    bench.host.fail(MemoryHost::Operation::SetDeviceString, 1);
    bench.send_pages(2);
    EXPECT_THAT(bench.host.log(),
                ElementsAre(StartsWith("zynVelora hall: Velora PutInQueue  Line ")));
    EXPECT_TRUE(bench.queue().state().QueueUpdating);
    bench.run_for(1h);
    EXPECT_THAT(bench.queue().waiting_commands(), ElementsAre("cmd.shtml?2"));
    bench.send_pages(1, 3);  // sets the mark right; the next page moves the queue
    bench.queue().DoNextCommand();
    bench.run_for(1h);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1", "hall GET /cmd.shtml?2",
                                            "hall GET /cmd.shtml?3"));
}

TEST(LogThatFails, StopsTheRoutineButNotTheTimer) {
    QueueBench bench;
    bench.instance.log.set_debug_log(true);
    bench.unit().goes_silent();
    bench.send_pages(1);
    bench.host.fail(MemoryHost::Operation::Writelog, 1);
    bench.run_for(5s);  // the tick's debug line fails, and the tick with it
    EXPECT_EQ(bench.state(), "fetching");
    bench.run_for(5s);
    EXPECT_EQ(bench.state(), "idle");
}

TEST(PageThatComesWhileACommandIsPutInTheQueue, LeavesTheQueueToRest) {
    QueueBench bench;
    const std::string first = bench.send("cmd.shtml?1");
    bench.host.on_set_device_string = [&](std::string_view, std::string_view) {
        bench.host.on_set_device_string = nullptr;
        bench.run_for(100ms);  // a host that pumps
    };
    bench.send_pages(1, 2);
    EXPECT_EQ(bench.queue().state().QueueUpdating, false);
    EXPECT_EQ(bench.state(), "fetching");
    EXPECT_FALSE(bench.command_timer().enabled());
    EXPECT_EQ(bench.command_timer().interval(), 100ms);
    EXPECT_FALSE(bench.queue().CommandBusy(first));
    bench.run_for(1h);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1"));
    bench.queue().DoNextCommand();
    bench.run_for(1s);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1", "hall GET /cmd.shtml?2"));
    EXPECT_EQ(bench.state(), "idle");
}

TEST(CommandGivenWhileTheQueueIsShown, IsKeptInOrder) {
    QueueBench bench;
    bench.unit().answers(100ms);
    bench.send_pages(1);
    bench.host.on_set_device_string = [&](std::string_view, std::string_view) {
        bench.host.on_set_device_string = nullptr;
        bench.send_pages(1, 3);
    };
    bench.send_pages(1, 2);
    bench.run_for(10s);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1", "hall GET /cmd.shtml?2",
                                            "hall GET /cmd.shtml?3"));
}

TEST(UnitWithoutTimers, SendsOneCommandAndThenStalls) {
    QueueBench bench;
    bench.queue().set_timers({}, {});
    bench.send("waitsecs 1");
    EXPECT_EQ(bench.state(), "idle");
    bench.send_pages(2);
    bench.run_for(1h);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1"));
    EXPECT_EQ(bench.state(), "fetching");
    EXPECT_THAT(bench.host.log(),
                ElementsAre(MatchesRegex("zynVelora hall: Velora IEObj  Timer is Nothing Line "
                                         "[0-9]+ Object variable.*")));
}

TEST(QueueThatEnds, HearsOfNothingMore) {
    QueueBench bench;
    bench.unit().answers(1s);
    bench.send_pages(2);
    bench.queue().drop_all();
    bench.run_for(1h);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1"));
    EXPECT_FALSE(bench.command_timer().enabled());
    EXPECT_THAT(bench.host.log(), IsEmpty());
}

}  // namespace
}  // namespace appliance
