#include "vbscript/objects/wscript/wscript.h"

#include "vbscript/objects/object_test.h"
#include "vbscript/objects/script_quit.h"

namespace vbscript {
namespace {

class RecordedConsole final : public Console {
  public:
    void write_output(std::u16string_view text) override { output += to_utf8(text); }

    void write_error(std::u16string_view text) override { error += to_utf8(text); }

    bool read_input(std::u16string& buffer) override {
        buffer += input;
        return !std::exchange(input, {}).empty();
    }

    void pause(std::chrono::milliseconds duration) override { paused += duration; }

    std::string output;
    std::string error;
    std::u16string input;
    std::chrono::milliseconds paused{0};
};

class WScriptTest : public ObjectTest {
  protected:
    WScriptTest() {
        object = make<WScript>(
            console, ScriptRun{.script_path = u"/home/scripts/report.vbs",
                               .program_path = u"/usr/bin/runner",
                               .arguments = {u"one", u"/Level:3", u"/home/x", u"/quiet", u"/on+",
                                             u"/off-", u"-x", u"/"},
                               .set_time_limit = [this](auto limit) { time_limit = limit; }});
    }

    [[nodiscard]] Ref<Object> part(std::u16string_view name) { return object_of(call(name)); }

    [[nodiscard]] std::string item(const Ref<Object>& list, const Value& index) {
        return noted_result(context,
                            [&] { return vbscript::call(context, list, u"Item", {index}); });
    }

    RecordedConsole console;
    std::chrono::seconds time_limit{-1};
};

TEST_F(WScriptTest, EchoJoinsItsTextsToALine) {
    EXPECT_EQ(result(u"Echo", {Value(u"n ="), integer(5), Value(true), Value()}), "Empty");
    EXPECT_EQ(result(u"Echo"), "Empty");
    EXPECT_EQ(result(u"Echo", {Value(make<Array>())}), "error 13");
    EXPECT_EQ(console.output, "n = 5 True \n\n");
}

TEST_F(WScriptTest, StandardStreamsAreTheTerminal) {
    console.input = u"first\nsecond";
    EXPECT_EQ(noted(vbscript::call(context, part(u"StdIn"), u"ReadLine")), "first");
    EXPECT_EQ(noted(vbscript::call(context, part(u"StdIn"), u"ReadAll")), "second");
    EXPECT_EQ(noted(vbscript::call(context, part(u"StdIn"), u"AtEndOfStream")), "True");
    static_cast<void>(vbscript::call(context, part(u"StdOut"), u"WriteLine", {Value(u"\u0416")}));
    static_cast<void>(vbscript::call(context, part(u"StdErr"), u"Write", {Value(u"bad")}));
    EXPECT_EQ(console.output, "\u0416\n");
    EXPECT_EQ(console.error, "bad");
}

TEST_F(WScriptTest, ArgumentsAreNamedByASlash) {
    const Ref<Object> all = part(u"Arguments");
    EXPECT_EQ(walked(context, all), "[one, /Level:3, /home/x, /quiet, /on+, /off-, -x, /]");
    EXPECT_EQ(item(all, integer(1)), "/Level:3");
    EXPECT_EQ(item(all, integer(8)), "error 9");
    EXPECT_EQ(noted(vbscript::call(context, all, u"Length")), "8");
    EXPECT_EQ(result(u"Arguments", {integer(0)}), "one");
    const Ref<Object> named = object_of(vbscript::call(context, all, u"Named"));
    EXPECT_EQ(walked(context, named), "[Level, quiet, on, off]");
    EXPECT_EQ(item(named, Value(u"LEVEL")), "3");
    EXPECT_EQ(item(named, Value(u"quiet")), "Empty");
    EXPECT_EQ(item(named, Value(u"on")), "True");
    EXPECT_EQ(item(named, Value(u"off")), "False");
    EXPECT_EQ(item(named, Value(u"none")), "Empty");
    EXPECT_EQ(noted(vbscript::call(context, named, u"Exists", {Value(u"Quiet")})), "True");
    const Ref<Object> unnamed = object_of(vbscript::call(context, all, u"Unnamed"));
    EXPECT_EQ(walked(context, unnamed), "[one, /home/x, -x, /]");
}

TEST_F(WScriptTest, QuitIsNoErrorOfTheScript) {
    try {
        static_cast<void>(call(u"Quit", {Value(u"3")}));
        FAIL();
    } catch (const ScriptQuit& quit) {
        EXPECT_EQ(quit.exit_code, 3);
    }
    EXPECT_THROW(static_cast<void>(call(u"Quit")), ScriptQuit);
}

TEST_F(WScriptTest, SleepEndsWithTheScriptsTime) {
    EXPECT_EQ(result(u"Sleep", {integer(250)}), "Empty");
    EXPECT_EQ(console.paused.count(), 250);
    EXPECT_EQ(result(u"Sleep", {integer(-1)}), "error 5");
    context.time_checks_allowed = context.time_checks + 2;
    EXPECT_EQ(result(u"Sleep", {long_number(1000000)}), "error 13028");
    EXPECT_EQ(console.paused.count(), 550);
}

TEST_F(WScriptTest, TellsAboutTheRun) {
    EXPECT_EQ(result(u"ScriptFullName"), "\\home\\scripts\\report.vbs");
    EXPECT_EQ(result(u"ScriptName"), "report.vbs");
    EXPECT_EQ(result(u"Path"), "\\usr\\bin");
    EXPECT_EQ(let(u"Timeout", {integer(30)}), "");
    EXPECT_EQ(time_limit.count(), 30);
    EXPECT_EQ(let(u"Timeout", {integer(-1)}), "error 5");
    EXPECT_EQ(let(u"Interactive", {Value(false)}), "");
    EXPECT_EQ(result(u"Interactive"), "False");
    EXPECT_EQ(result(u"CreateObject", {Value(u"No.Such")}), "error 429");
    EXPECT_EQ(result(u"GetObject", {Value(u"x")}), "error 432");
}

}  // namespace
}  // namespace vbscript
