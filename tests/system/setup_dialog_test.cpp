#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "system/house_process.h"
#include "system/terminal_process.h"

// The two dialogs at a terminal, and without one.
namespace system_tests {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kDown = "\x1BOB";
constexpr const char* kF7 = "\x1B[18~";
constexpr const char* kF10 = "\x1B[21~";
constexpr const char* kEscape = "\x1B";
constexpr const char* kComment = "; seconds, as the manual of the switch says\n";

// A house whose settings file has a comment between two settings.
class DialogHouse : public House {
  public:
    DialogHouse() : House({"Kitchen"}) {
        put_before_units(kComment);
        start();
    }

    TerminalProcess open(std::vector<std::string> words) {
        words.insert(words.end(), {"--home", home().string()});
        return TerminalProcess(words);
    }
};

TEST(SetupDialog, OkStoresWhatWasTypedAndKeepsComments) {
    DialogHouse house;
    TerminalProcess terminal = house.open({"setup", "--page", "Power"});
    ASSERT_TRUE(terminal.shows("Seconds between power off and power on"));
    terminal.type("\x7F");
    terminal.type("9\t12,13");
    terminal.type(kF7);
    ASSERT_TRUE(terminal.shows("Location"));
    terminal.type(std::string(kDown) + "Hall\t127.0.0.77");
    terminal.type(kF10);
    EXPECT_EQ(terminal.wait(), 0);
    EXPECT_THAT(house.settings(), AllOf(HasSubstr("PowerCycleTime=9\n"), HasSubstr(kComment),
                                        HasSubstr("12,13\n"), HasSubstr("127.0.0.77=\"Hall,")));
    EXPECT_EQ(house.told({"call", "VeloraNames"}), "kitchen,hall\n");
}

TEST(SetupDialog, CancelChangesNothing) {
    DialogHouse house;
    const std::string before = house.settings();
    TerminalProcess terminal = house.open({"setup"});
    ASSERT_TRUE(terminal.shows("Jukebox Port"));
    terminal.type("99");
    terminal.type(kEscape);
    ASSERT_TRUE(terminal.shows("Esc once more"));
    terminal.type(kEscape);
    EXPECT_EQ(terminal.wait(), 0);
    EXPECT_EQ(house.settings(), before);
}

TEST(SetupDialog, FollowsTheSizeOfTheWindow) {
    DialogHouse house;
    TerminalProcess terminal = house.open({"setup"});
    ASSERT_TRUE(terminal.shows("Jukebox Port"));
    terminal.resize(10, 40);
    EXPECT_TRUE(terminal.shows("too small"));
    terminal.resize(30, 120);
    EXPECT_TRUE(terminal.shows("Appliance behaviour"));
    terminal.type(kEscape);
    EXPECT_EQ(terminal.wait(), 0);
}

TEST(SetupDialog, WithoutATerminal) {
    DialogHouse house;
    EXPECT_THAT(house.told({"setup"}), HasSubstr("aFontColor"));
    EXPECT_EQ(house.told({"setup", "--set", "FontColor=red", "--set", "aname.1=Attic", "--set",
                          "aIP.1=127.0.0.78"}),
              "saved\n");
    EXPECT_THAT(house.settings(), HasSubstr("FontColor=\"red\"\n"));
    EXPECT_EQ(house.told({"call", "VeloraNames"}), "kitchen,attic\n");
    const std::string before = house.settings();
    const Outcome wrong =
        house.ask({"setup", "--set", "FontColor=blue", "--set", "DebugLog=often"});
    EXPECT_EQ(wrong.exit_code, 1);
    EXPECT_THAT(wrong.err, HasSubstr("Type mismatch: 'often' for aDebugLog"));
    EXPECT_EQ(house.settings(), before);
    EXPECT_EQ(house.told({"setup", "--set", "PushDelay=6"}), "saved\n");
    EXPECT_THAT(house.settings(), Not(HasSubstr("blue")));
}

TEST(ServerDialog, TestsTheLinkAtATerminalAndWithoutOne) {
    DialogHouse house;
    TerminalProcess terminal = house.open({"server-options"});
    ASSERT_TRUE(terminal.shows("Registered CID clients:"));
    terminal.type("\t ");
    EXPECT_TRUE(terminal.shows("Sending Test Message."));
    terminal.type(kEscape);
    EXPECT_EQ(terminal.wait(), 0);
    EXPECT_THAT(house.told({"server-options"}), HasSubstr("~!~Sending Test Message.\n"));
    EXPECT_THAT(house.told({"server-options", "--press", "AdvancedInfoButton"}),
                HasSubstr("                  Velora Server\n"));
    EXPECT_EQ(house.ask({"server-options", "--press", "Nothing"}).exit_code, 1);
}

}  // namespace
}  // namespace system_tests
