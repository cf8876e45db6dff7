#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "appliance/queue_bench.h"

// What goes in, what comes out, and what a caller can ask.
namespace appliance {
namespace {

using namespace std::chrono_literals;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(Commands, AreSentOneByOneEach50MillisecondsAfterThePageBefore) {
    QueueBench bench;
    bench.unit().answers(100ms);
    bench.send_pages(3);
    bench.run_for(10s);
    EXPECT_THAT(bench.trace(), ElementsAre("10:00:00.000 hall GET /cmd.shtml?1",
                                           "10:00:00.150 hall GET /cmd.shtml?2",
                                           "10:00:00.300 hall GET /cmd.shtml?3"));
    EXPECT_EQ(bench.state(), "idle");
    EXPECT_FALSE(bench.command_timer().enabled());
}

TEST(Commands, LeaveAsDatagramsWithTheirArguments) {
    const struct {
        const char* command;
        std::vector<std::string> sent;
    } rows[] = {
        {"beepcmd7", {"UDP Beep(7) to 192.168.0.20"}},
        {"screencmdoff", {"UDP Screen(off) to 192.168.0.20"}},
        {"mailledblink", {"UDP MailLed(blink) to 192.168.0.20"}},
        {"topledon", {"UDP TopLed(on) to 192.168.0.20"}},
        {"executecalc.exe /a~b", {"UDP Execute(calc.exe /a~b) to 192.168.0.20"}},
        {"sendcmdShow~text~rest", {"UDP Show(text) to 192.168.0.20"}},
        {"sendcmd~", {"UDP () to 192.168.0.20"}},
        {"sendcmdShow", {}},
        {"sendcidSmith~555 1234", {"UDP caller(Smith,555 1234) to 192.168.0.20"}},
        {"sendcidSmith", {}},
        {"BeepCmd7", {"hall GET /BeepCmd7"}},
        {"TOPLEDon", {"hall GET /TOPLEDon"}},
    };

    for (const auto& row : rows) {
        QueueBench bench;
        bench.send(row.command);
        bench.send("next.shtml");
        bench.run_for(1s);
        std::vector<std::string> expected = row.sent;
        expected.emplace_back("hall GET /next.shtml");
        EXPECT_EQ(bench.events(), expected) << row.command;
        EXPECT_EQ(bench.state(), "idle") << row.command;
    }
}

TEST(Commands, OfFewerThanEightCharactersAreNeitherSentNorArmed) {
    for (const char* command : {"", "a", "topled", "execute", "waitsec"}) {
        QueueBench bench;
        EXPECT_NE(bench.send(command), "");
        EXPECT_EQ(bench.state(), "idle") << command;
        EXPECT_FALSE(bench.command_timer().enabled()) << command;
        EXPECT_THAT(bench.events(), IsEmpty()) << command;
    }
    QueueBench bench;
    bench.send("12345678");
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /12345678"));
}

TEST(Commands, BehindAShortOneRestUntilTheQueueIsReset) {
    QueueBench bench;
    bench.send("cmd.shtml?1");
    bench.send("short");
    bench.send("cmd.shtml?2");
    bench.run_for(1h);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1"));
    bench.send("cmd.shtml?3");
    bench.run_for(1h);
    EXPECT_THAT(bench.queue().waiting_commands(), ElementsAre("cmd.shtml?2", "cmd.shtml?3"));
    bench.queue().ResetQueue();
    EXPECT_THAT(bench.queue().waiting_commands(), IsEmpty());
}

TEST(Tags, AreMadeForEachCommandWhateverTheCallerGives) {
    QueueBench bench;
    bench.unit().goes_silent();
    const std::string first = bench.queue().AsyncCommand("cmd.shtml?1", 5000, "abc");
    const std::string second = bench.queue().AsyncCommand("cmd.shtml?2", 5000, "abc");
    EXPECT_EQ(first, "1.1001");
    EXPECT_EQ(second, "1.1002");
    EXPECT_FALSE(bench.queue().CommandBusy("abc"));
}

TEST(Tags, AreBusyWhileTheirCommandRunsOrWaits) {
    QueueBench bench;
    bench.unit().answers(1s);
    const std::string first = bench.send("cmd.shtml?1");
    const std::string second = bench.send("cmd.shtml?2");
    EXPECT_TRUE(bench.queue().CommandBusy(first));
    EXPECT_TRUE(bench.queue().CommandBusy(second));
    EXPECT_TRUE(bench.queue().CommandBusy(""));
    EXPECT_TRUE(bench.queue().CommandBusy(second.substr(1, 4)));  // a part of a waiting tag
    EXPECT_FALSE(bench.queue().CommandBusy(first.substr(0, 6) + "9"));
    bench.run_for(1500ms);
    EXPECT_FALSE(bench.queue().CommandBusy(first));
    EXPECT_TRUE(bench.queue().CommandBusy(second));
    bench.run_for(5s);
    EXPECT_FALSE(bench.queue().CommandBusy(second));
    EXPECT_TRUE(bench.queue().CommandBusy(""));
    EXPECT_TRUE(bench.queue().CommandBusy("0"));  // the mark of an idle unit
}

TEST(WaitForCommandComplete, PollsTenTimes) {
    const struct {
        std::chrono::milliseconds answer;
        bool still_busy;
        std::chrono::milliseconds waited;
    } rows[] = {{0ms, false, 200ms},
                {900ms, false, 1000ms},
                {1700ms, false, 1800ms},
                {1800ms, true, 2000ms}};  // the last look is at 1800 ms

    for (const auto& row : rows) {
        QueueBench bench;
        bench.unit().answers(row.answer);
        const std::string tag = bench.send("cmd.shtml?1");
        const auto start = bench.machine.pump.steady_now();
        EXPECT_EQ(bench.queue().WaitForCommandComplete(tag, 2), row.still_busy);
        EXPECT_EQ(bench.machine.pump.steady_now() - start, row.waited) << row.answer.count();
    }
}

TEST(WaitForCommandComplete, LeavesSixteenBitsAt328Seconds) {
    QueueBench bench;
    bench.unit().goes_silent();
    const std::string tag = bench.send("cmd.shtml?1", 60000);
    EXPECT_FALSE(bench.queue().WaitForCommandComplete(tag, 328));
    EXPECT_THAT(bench.host.log(),
                ElementsAre(testing::MatchesRegex(
                    "zynVelora hall: Velora WaitForCommandComplete  Line [0-9]+ Overflow")));
}

TEST(QueueDevice, ShowsWhatWaits) {
    QueueBench bench;
    bench.unit().answers(1s);
    bench.send("cmd.shtml?1");
    EXPECT_EQ(bench.queue_device_text(), "");
    bench.send("cmd.shtml?2");
    EXPECT_EQ(bench.queue_device_text(), "Queue: 1)  | cmd.shtml?2");
    bench.send("cmd.shtml?3");
    EXPECT_EQ(bench.queue_device_text(), "Queue: 2)  | cmd.shtml?2 | cmd.shtml?3");
    bench.run_for(1500ms);
    EXPECT_EQ(bench.queue_device_text(), "Queue: 1)  | cmd.shtml?3");
    EXPECT_EQ(bench.host.device("[10").last_change, bench.machine.pump.now() - 450ms);
    bench.queue().ResetQueue();
    EXPECT_EQ(bench.queue_device_text(), "Queue: 0) ");
}

TEST(QueueDevice, IsNotNeeded) {
    QueueBench bench;
    bench.queue_device_code.clear();
    bench.send_pages(3);
    bench.run_for(1s);
    bench.queue().ShowQueue();
    EXPECT_THAT(bench.events(), SizeIs(3));
    EXPECT_THAT(bench.host.device_calls(), IsEmpty());
}

TEST(ResetQueue, ForgetsWaitingCommandsAndTheRunningFetchButNoFlag) {
    QueueBench bench;
    bench.settings().CommandRetries = 2;
    bench.unit().goes_silent();
    bench.send_pages(3);
    bench.queue().ResetQueue();
    EXPECT_EQ(bench.unit().in_flight(), 0);
    EXPECT_EQ(bench.state(), "fetching");
    bench.run_for(5s);  // the timer still runs: one more try
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1", "hall GET /cmd.shtml?1"));
    bench.run_for(5s);
    EXPECT_EQ(bench.state(), "idle");
}

TEST(Overflow, IsTheCommandBehind21WaitingOnes) {
    QueueBench bench;
    bench.power_device.clear();  // it looks at neither switch nor setting
    bench.unit().goes_silent();
    bench.send_pages(22);
    EXPECT_THAT(bench.queue().waiting_commands(), SizeIs(21));
    EXPECT_EQ(bench.state(), "fetching");
    bench.send("cmd.shtml?23");
    EXPECT_EQ(bench.state(), "power off");
    EXPECT_THAT(bench.queue().waiting_commands(), IsEmpty());
    EXPECT_EQ(bench.unit().in_flight(), 0);
    EXPECT_EQ(bench.queue_device_text(), "Queue: 0) ");
    bench.unit().answers();
    bench.run_for(1h);
    EXPECT_THAT(bench.events(), ElementsAre("hall GET /cmd.shtml?1", "X10  off", "X10  on",
                                            "power came back", "booted"));
}

TEST(DebugLines, TellTheRoadOfACommand) {
    QueueBench bench;
    bench.instance.log.set_debug_log(true);
    bench.send("cmd.shtml?1");
    EXPECT_THAT(bench.host.log(),
                ElementsAre("zynVelora Debug hall: Async Command, cmd.shtml?1,1.1001",
                            "zynVelora Debug hall: SendTheCommand=cmd.shtml?1",
                            "zynVelora Debug hall: IE Navigate to http://hall/cmd.shtml?1 on "
                            "192.168.0.20 using InternetExplorer"));
    bench.host.forget();
    bench.send("cmd.shtml?2");
    EXPECT_THAT(bench.host.log(),
                ElementsAre("zynVelora Debug hall: Async Command, cmd.shtml?2,1.1002",
                            "zynVelora Debug hall: PutQue cmd.shtml?2,1.1002,1.1002"));
    bench.host.forget();
    bench.run_for(60ms);
    EXPECT_THAT(bench.host.log(),
                ElementsAre("zynVelora Debug hall: IEObj_Complete to http://hall/cmd.shtml?1",
                            "zynVelora Debug hall: DoNextCOmmand, questat=False, powerupWait=False",
                            "zynVelora Debug hall: GetFromQueueUpdatePending= False",
                            "zynVelora Debug hall: GetFromQue Command Obtained Status=True",
                            "zynVelora Debug hall: SendTheCommand=cmd.shtml?2",
                            testing::HasSubstr("IE Navigate to http://hall/cmd.shtml?2"),
                            testing::HasSubstr("IEObj_Complete to http://hall/cmd.shtml?2")));
    bench.host.forget();
    static_cast<void>(bench.queue().CommandBusy("x"));
    EXPECT_THAT(bench.host.log(),
                ElementsAre("zynVelora Debug hall: CommandBusyStatus=, False, on Command Tag=x, "
                            "From Command Que containing="));
}

}  // namespace
}  // namespace appliance
