#include "app/command_line.h"

#include <gtest/gtest.h>

#include "home/temporary_folder.h"

namespace app {
namespace {

struct Outcome {
    int exit_code;
    std::string output;
    std::string errors;
};

Outcome run(std::vector<const char*> words) {
    words.insert(words.begin(), "zynvelora");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int exit_code =
        run_command_line(static_cast<int>(words.size()), words.data(),
                         [](const host::Platform&) { return std::unique_ptr<host::Plugin>(); });
    return {exit_code, testing::internal::GetCapturedStdout(),
            testing::internal::GetCapturedStderr()};
}

// Exit code 2 is wrong usage, which nobody has tried to carry out.
TEST(CommandLine, WrongUsageIsToldOnStderr) {
    const struct {
        std::vector<const char*> words;
        std::string part;
    } kCases[] = {
        {{}, "subcommand"},
        {{"dance"}, "dance"},
        {{"call"}, "OPERATION"},
        {{"call", "--home"}, "--home"},
        {{"call", "--list", "VeloraSpeak"}, "--list"},
        {{"status", "now"}, "now"},
        {{"log", "-n", "-1"}, "-n"},
        {{"log", "-n", "many"}, "-n"},
        {{"unit", "--name", "x"}, "--listen"},
        {{"unit", "--name", "x", "--listen", "127.0.0.1:0", "--boot-time", "3601"}, "--boot-time"},
        {{"tell-unit", "/tmp"}, "COMMAND"},
        {{"devices", "[4"}, "[4"},
        {{"device"}, "CODE [VALUE]"},
        {{"device", "[4", "1", "2"}, "CODE [VALUE]"},
        {{"device", "[4", "--jason"}, "--jason"},
        {{"x10", "B2"}, "CODE on|off"},
        {{"press"}, "BUTTON"},
        {{"menu", "Test", "now"}, "[ENTRY]"},
        {{"event"}, "ubcommand"},
        {{"event", "add", "dusk", "--when", "at 17:30"}, "--do"},
        {{"event", "add", "--when", "at 17:30", "--do", "set [4 = 1"}, "NAME"},
        {{"event", "run"}, "NAME"},
    };

    for (const auto& test : kCases) {
        const Outcome outcome = run(test.words);
        EXPECT_EQ(outcome.exit_code, 2);
        EXPECT_EQ(outcome.output, "");
        EXPECT_NE(outcome.errors.find(test.part), std::string::npos) << outcome.errors;
    }
}

TEST(CommandLine, AFailureIsExitCode1AndSaysWhy) {
    const TemporaryFolder folder;
    folder.write("file", "");
    const std::string home = folder.path().string();
    const std::string file = home + "/file";

    const struct {
        std::vector<const char*> words;
        std::string part;
    } kCases[] = {
        {{"status", "--home", home.c_str()}, "no daemon answers in " + home},
        {{"call", "VeloraVolume", "", "-5", "--home", home.c_str()}, "no daemon answers"},
        {{"log", "--home", home.c_str(), "-f"}, "no daemon answers"},
        {{"device", "[4", "-5", "--home", home.c_str()}, "no daemon answers"},
        {{"event", "run", "dusk", "--home", home.c_str()}, "no daemon answers"},
        {{"serve", "--home", file.c_str()}, "Cannot make " + file},
        {{"tell-unit", home.c_str(), "power", "off"}, "no unit is running in " + home},
        {{"unit", "--name", "x", "--listen", "here", "--state-dir", home.c_str()}, "here"},
    };

    for (const auto& test : kCases) {
        const Outcome outcome = run(test.words);
        EXPECT_EQ(outcome.exit_code, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_NE(outcome.errors.find("zynvelora: "), std::string::npos);
        EXPECT_NE(outcome.errors.find(test.part), std::string::npos) << outcome.errors;
    }
}

TEST(CommandLine, HelpIsNoError) {
    const Outcome outcome = run({"--help"});
    EXPECT_EQ(outcome.exit_code, 0);
    for (const char* command : {"serve", "call", "status", "log", "devices", "device", "x10",
                                "press", "menu", "events", "event", "unit", "tell-unit"}) {
        EXPECT_NE(outcome.output.find(command), std::string::npos);
    }
}

}  // namespace
}  // namespace app
