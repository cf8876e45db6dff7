#include "vbscript/control/script_control.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <string>
#include <vector>

#include "automation/convert.h"
#include "automation/members.h"
#include "automation/run_time_error.h"
#include "support/fake_platform.h"

namespace vbscript {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

// An object of the program: members with and without a value, one by reference, one that fails.
class Lamp final : public automation::TableObject {
  public:
    [[nodiscard]] std::string type_name() const override { return "Lamp"; }

    [[nodiscard]] std::span<const automation::Member> members() const override {
        using automation::method;
        using automation::property;
        static constexpr auto kMembers = std::to_array<automation::Member>({
            property<&Lamp::name>("Name"),
            property<&Lamp::level, &Lamp::set_level>("Level"),
            method<&Lamp::dim>("Dim2", "by"),
            method<&Lamp::read>("Read", "level"),
            method<&Lamp::fail>("Fail"),
        });
        return kMembers;
    }

    std::string name() { return "lamp"; }

    std::int32_t level() { return level_; }

    void set_level(std::int32_t level) { level_ = level; }

    std::int32_t dim(std::int32_t by) { return level_ -= by; }

    void read(std::int32_t& level) { level = level_; }

    void fail() { throw automation::RunTimeError(70, "Permission denied", "Lamp"); }

  protected:
    [[nodiscard]] std::string_view default_member() const override { return "Name"; }

  private:
    std::int32_t level_ = 50;
};

class ScriptControlTest : public testing::Test {
  protected:
    ScriptControlTest() { add_standard_classes(services.classes); }

    [[nodiscard]] std::string eval(std::string_view expression) {
        return automation::to_text(control.Eval(expression));
    }

    // What `AddCode` throws: "number description".
    [[nodiscard]] std::string failure_of(std::string_view code) {
        try {
            control.AddCode(code);
        } catch (const automation::RunTimeError& error) {
            return std::to_string(error.number()) + " " + error.description();
        }
        return "none";
    }

    support::FakeMachine machine;
    std::shared_ptr<Lamp> lamp = std::make_shared<Lamp>();
    ScriptServices services{
        .clock = machine.pump,
        .desktop = machine.desktop,
        .classes = {},
        .lend = [this](std::string_view name) -> std::shared_ptr<automation::Object> {
            if (name == "House.Lamp") return lamp;
            return nullptr;
        }};
    ScriptControl control{services};
};

TEST_F(ScriptControlTest, AProcedureRunsWithArgumentsOfTheProgram) {
    control.AddCode("Function Join2(a, b)\r\nJoin2 = a & \"/\" & b\r\nEnd Function");
    const std::vector<automation::Value> arguments{automation::Value("left"),
                                                   automation::Value(std::int32_t{7})};
    EXPECT_EQ(automation::to_text(control.Run("join2", arguments)), "left/7");
}

TEST_F(ScriptControlTest, MembersOfAnAddedObjectNeedNoPrefix) {
    control.AddObject("lamp", lamp, true);
    EXPECT_EQ(eval("Level"), "50");
    EXPECT_EQ(eval("lamp.Level & Name"), "50lamp");
    control.AddCode("lamp.Level = 80\r\nDim2 30");
    EXPECT_EQ(lamp->level(), 50);
    EXPECT_EQ(eval("lamp & \"!\""), "lamp!");
}

TEST_F(ScriptControlTest, AnObjectWithoutItsMembersKeepsThemBehindItsName) {
    control.AddObject("lamp", lamp, false);
    EXPECT_EQ(eval("lamp.Level"), "50");
    EXPECT_EQ(eval("IsEmpty(Level)"), "True");
}

TEST_F(ScriptControlTest, AMemberWritesAnArgumentBack) {
    control.AddObject("lamp", lamp, false);
    control.AddCode("Dim seen\r\nlamp.Read seen");
    EXPECT_EQ(eval("seen"), "50");
}

TEST_F(ScriptControlTest, AnErrorOfTheProgramIsAnErrorOfTheScript) {
    control.AddObject("lamp", lamp, false);
    control.AddCode(
        "Dim told\r\nOn Error Resume Next\r\nlamp.Fail\r\n"
        "told = Err.Number & Err.Description & Err.Source");
    EXPECT_EQ(eval("told"), "70Permission deniedLamp");
    EXPECT_EQ(failure_of("lamp.Fail"), "70 Permission denied");
}

TEST_F(ScriptControlTest, ScriptsGetObjectsOfTheProgramByName) {
    EXPECT_EQ(eval("CreateObject(\"House.Lamp\").Level"), "50");
    EXPECT_EQ(eval("TypeName(CreateObject(\"Scripting.Dictionary\"))"), "Dictionary");
    EXPECT_EQ(failure_of("Set x = CreateObject(\"No.Such\")").substr(0, 4), "429 ");
}

TEST_F(ScriptControlTest, AFailureIsRecordedWithItsPlaceUntilItIsCleared) {
    EXPECT_EQ(failure_of("Dim a\r\na = 1 / 0"), "11 Division by zero");
    EXPECT_EQ(control.Error().Number, 11);
    EXPECT_EQ(control.Error().Line, 2);
    EXPECT_EQ(failure_of("a = 1\r\nIf a Them"), "1017 Expected 'Then'");
    EXPECT_EQ(control.Error().Line, 2);
    EXPECT_EQ(control.Error().Column, 6);
    EXPECT_EQ(control.Error().Text, "If a Them");
    control.Clear();
    EXPECT_EQ(control.Error().Number, 0);
}

TEST_F(ScriptControlTest, ModulesKeepTheirNamesApartAndSeeThoseOfTheEngine) {
    control.AddCode("Function Who()\r\nWho = \"engine\"\r\nEnd Function\r\ncommon = 1");
    host::ScriptModule& first = control.add_module("First");
    host::ScriptModule& second = control.add_module("Second");
    first.AddCode("Function Who()\r\nWho = \"first\"\r\nEnd Function");
    second.AddCode("Function Ask()\r\nAsk = Who() & common\r\nEnd Function");
    EXPECT_EQ(automation::to_text(first.Run("Who", {})), "first");
    EXPECT_EQ(automation::to_text(second.Run("Ask", {})), "engine1");
    EXPECT_EQ(&control.module("FIRST"), &first);
    EXPECT_THROW(control.add_module("first"), automation::RunTimeError);
    EXPECT_THROW(static_cast<void>(control.module("third")), automation::RunTimeError);
}

TEST_F(ScriptControlTest, AnEndlessScriptIsStoppedAlsoWithinABuiltIn) {
    control.set_Timeout(50ms);
    for (const char* code :
         {"Do\r\nLoop", "On Error Resume Next\r\nDo\r\nx = 1 / 0\r\nLoop",
          "Sub Recur\r\nFor i = 1 To 2000000000\r\nNext\r\nEnd Sub\r\nRecur",
          "s = String(1000000, \"a\")\r\nDo\r\nt = Replace(s, \"a\", \"bb\")\r\nLoop"}) {
        EXPECT_THROW(control.AddCode(code), automation::RunTimeError) << code;
    }
}

TEST_F(ScriptControlTest, MessagesGoToTheDesktopAndTheirPreferredButtonIsTheAnswer) {
    EXPECT_EQ(eval("MsgBox(\"Sure?\", vbYesNo + vbDefaultButton2, \"House\")"), "7");
    EXPECT_EQ(eval("InputBox(\"Name?\", , \"Kitchen\")"), "Kitchen");
    EXPECT_THAT(machine.desktop.messages(), ElementsAre("House: Sure?", "VBScript: Name?"));
    control.set_AllowUI(false);
    control.AddCode("MsgBox \"unseen\"");
    EXPECT_EQ(machine.desktop.messages().size(), 2U);
}

TEST_F(ScriptControlTest, OtherLanguagesAreRefused) {
    control.set_Language("vbscript");
    EXPECT_THROW(control.set_Language("JScript"), automation::RunTimeError);
}

}  // namespace
}  // namespace vbscript
