#include "pages/user_script.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "automation/convert.h"
#include "host/pump.h"
#include "host/script_control.h"
#include "pages/pages_house.h"

namespace pages {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using namespace std::chrono_literals;

class UserScriptTest : public testing::Test {
  protected:
    // What the script's `Main` would leave behind for a later call: its module's own memory.
    [[nodiscard]] std::string run(std::string_view procedure) {
        Script script(house.instance, engine);
        script.Add("zynVelora.txt", "Test");
        return automation::to_text(script.Run(procedure, "argument"));
    }

    PagesHouse house;
    std::shared_ptr<host::ScriptControl> engine = house.machine.script_controls.create();
    std::unique_ptr<host::Timer> timer =
        house.machine.pump.make_timer([this] { user_script.ScriptQueueTimer_Timer(); });
    UserScript user_script{house.instance, [this] { return timer.get(); }};
};

TEST_F(UserScriptTest, ARunGivesTheResultOfTheProcedure) {
    house.put_script("zynVelora.txt",
                     "Function Main(text)\r\nMain = \"got \" & text\r\nEnd Function");
    EXPECT_EQ(run("Main"), "got argument");
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST_F(UserScriptTest, AnIncludeIsLoadedBeforeTheFileThatNamesIt) {
    house.put_script("base.txt", "Const kWord = \"base\"\r\n'#include \"absent.txt\"");
    house.put_script("zynVelora.txt",
                     "'#include \"base.txt\"\r\nDim word\r\nword = kWord\r\n"
                     "Function Main(text)\r\nMain = word\r\nEnd Function");
    EXPECT_EQ(run("Main"), "base");
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST_F(UserScriptTest, ASyntaxErrorLosesItsFileAndKeepsWhatWasAddedBefore) {
    house.put_script("good.txt", "Function Main(text)\r\nMain = \"good\"\r\nEnd Function");
    house.put_script("zynVelora.txt", "'#include \"good.txt\"\r\nIf x Them");
    EXPECT_EQ(run("Main"), "good");
    EXPECT_THAT(house.host.log(),
                ElementsAre(AllOf(StartsWith("zynVelora: Error in script syntax Expected 'Then'"),
                                  HasSubstr(" / zynVelora.txt Expected 'Then'@ Line 2 col "))));
}

TEST_F(UserScriptTest, ARunTimeErrorIsReportedAndGivesNothing) {
    house.put_script("zynVelora.txt",
                     "Function Main(text)\r\nMain = 1\r\nx = 1 / 0\r\nEnd Function");
    EXPECT_EQ(run("Main"), "");
    EXPECT_THAT(house.host.log(),
                ElementsAre(AllOf(HasSubstr("Script Run Error Division by zero"),
                                  HasSubstr(" / 11 - Division by zero@ Line 3 col "))));
}

TEST_F(UserScriptTest, AFileThatIncludesItselfIsAnErrorAndNoEnd) {
    house.put_script("zynVelora.txt", "'#include \"zynVelora.txt\"");
    EXPECT_EQ(run("Main"), "");
    EXPECT_THAT(house.host.log(), Contains(HasSubstr("Script-AccumulateReferences  Line ")));
}

TEST_F(UserScriptTest, ABrokenIncludeIsReportedWithTheProtection) {
    house.machine.protection.broken_include_is_an_error = true;
    core::Instance hardened{house.machine.platform()};
    hardened.attach(house.host, &house.host);
    hardened.log.attach(&house.host);
    hardened.application_path = "C:\\House";
    house.put_script("zynVelora.txt", "'#include broken");
    Script(hardened, engine).Add("zynVelora.txt", "Test");
    EXPECT_THAT(house.host.log(), ElementsAre(HasSubstr("#include without a name in quotes")));
}

TEST_F(UserScriptTest, WaitingCallsRunInOrderFromTheNextTickOn) {
    house.put_script("zynVelora.txt",
                     "Dim seen\r\nSub Main(text)\r\nseen = seen & text & \" \"\r\n"
                     "If text = \"last\" Then Err.Raise 1000, \"\", seen\r\nEnd Sub");
    user_script.load();
    ASSERT_TRUE(user_script.is_loaded());
    user_script.add("first");
    user_script.add("last");
    EXPECT_THAT(house.host.log(), IsEmpty());
    house.machine.pump.run_for(5ms);
    EXPECT_THAT(house.host.log(), ElementsAre(HasSubstr("1000 - first last @ Line 4 col ")));
    EXPECT_FALSE(timer->enabled());
}

TEST_F(UserScriptTest, WithoutAScriptWaitingCallsAreDropped) {
    user_script.load();
    EXPECT_FALSE(user_script.is_loaded());
    user_script.add("lost");
    house.machine.pump.run_for(5ms);
    EXPECT_FALSE(timer->enabled());
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST_F(UserScriptTest, AReloadStartsAnewWithTheFileAsItIsNow) {
    house.put_script("zynVelora.txt", "Dim n\r\nSub Main(text)\r\nn = n + 1\r\nEnd Sub");
    user_script.load();
    user_script.add("x");
    house.machine.pump.run_for(5ms);
    house.put_script("zynVelora.txt",
                     "Dim n\r\nSub Main(text)\r\nErr.Raise 1000, \"\", \"n=\" & n\r\nEnd Sub");
    user_script.load();
    user_script.add("x");
    house.machine.pump.run_for(5ms);
    EXPECT_THAT(house.host.log(), ElementsAre(HasSubstr("1000 - n=@ Line 3")));
}

}  // namespace
}  // namespace pages
