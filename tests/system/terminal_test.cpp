#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "system/house_process.h"

// What a person at a terminal sees: output, errors and exit codes.
namespace system_tests {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

struct Row {
    std::vector<std::string> arguments;
    int exit_code;
    std::string out;  // a part of it; "" for nothing at all
    std::string err;
};

void expect_outcome(House& house, const Row& row, const Environment& environment) {
    const Outcome outcome = house.run(row.arguments, environment);
    const auto shows = [](const std::string& text) {
        return text.empty() ? testing::Matcher<const std::string&>(IsEmpty()) : HasSubstr(text);
    };
    const std::string command = testing::PrintToString(row.arguments);
    EXPECT_EQ(outcome.exit_code, row.exit_code) << command;
    EXPECT_THAT(outcome.out, shows(row.out)) << command;
    EXPECT_THAT(outcome.err, shows(row.err)) << command;
}

TEST(Terminal, EachCommandTellsItsResultOrWhatIsWrong) {
    House house({"Kitchen"});
    house.start();
    const std::string nowhere = (house.home() / "nowhere").string();
    const Environment environment = {"ZYNVELORA_HOME=" + house.home().string()};

    for (const Row& row : std::vector<Row>{
             {{"call", "VeloraNames"}, 0, "kitchen\n", ""},
             {{"call", "veloravolumestatus", "kitchen"}, 0, "-1\n", ""},
             {{"call", "VeloraSpeek", "Kitchen", "x"},
              1,
              "",
              "'VeloraSpeek'; the nearest are VeloraSpeak, "},
             {{"call", "VeloraSpeak", "Kitchen"}, 1, "", "wanted VeloraSpeak(whichVeloras, sText)"},
             {{"call", "VeloraSounds", "Kitchen", "loud"}, 1, "", "Type mismatch: 'iSound'"},
             {{"call", "VeloraSounds", "Kitchen", "40000"}, 1, "", "Overflow"},
             {{"call"}, 2, "", "OPERATION is required"},
             {{"call", "--list", "VeloraSpeak"}, 2, "", "--list takes no operation"},
             {{"log", "-n", "some"}, 2, "", "some"},
             {{"spek"}, 2, "", "there is no sub-command 'spek'; there are serve, call"},
             {{}, 2, "", "subcommand is required"},
             {{"unit", "--name", "x", "--listen", "here"}, 1, "", "IP:PORT: here"},
             {{"tell-unit", nowhere, "normal"}, 1, "", "no unit is running in " + nowhere},
             {{"tell-unit", house.unit_folder("Kitchen").string(), "loud"}, 1, "", "silent"},
             {{"call", "VeloraNames", "--home", nowhere}, 1, "", "no daemon answers in " + nowhere},
             {{"status", "--home", house.home().string()}, 0, "Queue: 0)", ""},
         }) {
        expect_outcome(house, row, environment);
    }
    expect_outcome(house,
                   {{"call", "VeloraNames", "--home", house.home().string()}, 0, "kitchen\n", ""},
                   {"ZYNVELORA_HOME=" + nowhere});
    EXPECT_EQ(house.unit("Kitchen").err(), "");
}

TEST(Terminal, StatusShowsWhatIsInFlightAndWhatWaits) {
    House house({"Kitchen"});
    house.start();
    house.tell("Kitchen", "slow 3000");
    house.call({"VeloraTopLed", "Kitchen", "on"});
    house.call({"VeloraMailLed", "Kitchen", "on"});
    const std::string text = house.run({"status", "--home", house.home().string()}).out;
    EXPECT_THAT(text, AllOf(HasSubstr("role   normal\n"), HasSubstr("StartupReady"),
                            HasSubstr("kitchen  " + house.address_of("Kitchen")),
                            HasSubstr("    in flight  led.shtml?t1\n"),
                            HasSubstr("    Queue: 1)  | led.shtml?m1\n"), HasSubstr("Timer1(0)")));
}

TEST(Terminal, LogFollowsUntilTheDaemonEnds) {
    House house({"Kitchen"});
    house.start();
    const auto log = house.spawn({"log", "-f", "-n", "1", "--home", house.home().string()});
    EXPECT_TRUE(eventually([&] { return log->out().ends_with("Initialization Complete\n"); }));
    const std::size_t seen = log->out().size();
    house.call({"VeloraCyclePower", "Kitchen"});
    EXPECT_TRUE(eventually([&] { return log->out().ends_with("A1 on\n"); }));
    EXPECT_THAT(log->out().substr(seen), AllOf(HasSubstr("  A1 off\n"), HasSubstr("  A1 on\n")));
    EXPECT_TRUE(log->is_running());
    EXPECT_EQ(house.daemon().stop(), 0);
    EXPECT_EQ(log->wait(), 1);
    EXPECT_EQ(log->err(), "zynvelora: the daemon has ended\n");
}

}  // namespace
}  // namespace system_tests
