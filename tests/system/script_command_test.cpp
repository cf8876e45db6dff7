#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "system/house_process.h"

// `zynvelora script` as a terminal shows it: output, error line and exit code, and the way of a
// script to the plug-in of the running daemon.
namespace system_tests {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

using Words = std::vector<std::string>;

class ScriptCommand : public testing::Test {
  protected:
    // Runs a script of these bytes. "FILE" in the error output stands for its path.
    Outcome run(const std::string& bytes, const Words& arguments = {},
                const Environment& environment = {}) {
        folder_.write("script.vbs", bytes);
        Words words = {"script", file()};
        words.insert(words.end(), arguments.begin(), arguments.end());
        return run_words(words, environment);
    }

    Outcome run_words(const Words& words, const Environment& environment = {}) {
        Process process(words, folder_.path() / "output", environment);
        const std::optional<int> exit_code = process.wait();
        EXPECT_TRUE(exit_code) << testing::PrintToString(words);
        if (!exit_code) {
            process.kill();
        }
        Outcome outcome{exit_code.value_or(-1), process.out(), process.err()};
        if (outcome.err.starts_with(file())) {
            outcome.err.replace(0, file().size(), "FILE");
        }
        return outcome;
    }

    [[nodiscard]] std::string file() const { return (folder_.path() / "script.vbs").string(); }

    [[nodiscard]] std::string folder() const { return folder_.path().string(); }

  private:
    TemporaryFolder folder_;
};

TEST_F(ScriptCommand, GivesOutputErrorLineAndExitCode) {
    const struct {
        const char* rule;
        std::string source;
        int exit_code;
        std::string out;
        std::string err;
    } rows[] = {
        {"an empty file", "", 0, "", ""},
        {"each Echo is a line", "WScript.Echo \"a\", 1\r\nWScript.Echo", 0, "a 1\n\n", ""},
        {"a run-time error ends it with its place",
         "WScript.Echo 1\n\n  x = 5 \\ 0\nWScript.Echo 2", 1, "1\n",
         "FILE(3, 3) Microsoft VBScript runtime error: Division by zero\n"},
        {"a name at fault is told", "Option Explicit\nx = 1", 1, "",
         "FILE(2, 1) Microsoft VBScript runtime error: Variable is undefined: 'x'\n"},
        {"a syntax error comes before all output", "WScript.Echo 1\nx = (2\n", 1, "",
         "FILE(2, 7) Microsoft VBScript compilation error: Expected ')'\n"},
        {"an error of the script's own", "Err.Raise 1000, \"House\", \"t\xC3\xBCr\"", 1, "",
         "FILE(1, 1) House: t\xC3\xBCr\n"},
        {"a handled error is none", "On Error Resume Next\nx = 5 \\ 0\nWScript.Echo Err.Number", 0,
         "11\n", ""},
        {"the exit code is the script's", "WScript.Echo 1\nWScript.Quit 7\nWScript.Echo 2", 7,
         "1\n", ""},
        {"from deep inside, past handlers",
         "On Error Resume Next\nSub f : Execute \"WScript.Quit 3\" : End Sub\nf\nWScript.Echo 2", 3,
         "", ""},
        {"Quit alone", "WScript.Quit", 0, "", ""},
    };

    for (const auto& row : rows) {
        const Outcome outcome = run(row.source);
        EXPECT_EQ(outcome.exit_code, row.exit_code) << row.rule;
        EXPECT_EQ(outcome.out, row.out) << row.rule;
        EXPECT_EQ(outcome.err, row.err) << row.rule;
    }
}

TEST_F(ScriptCommand, ReadsAllEncodingsAndEchoesUtf8) {
    const std::string utf8 = "WScript.Echo \"\xC3\xA4\xE2\x82\xAC\", Len(\"\xC3\xA4\xE2\x82\xAC\")";
    const std::string code_page = "WScript.Echo \"\xE4\x80\", Len(\"\xE4\x80\")";
    std::string little("\xFF\xFE");
    std::string big("\xFE\xFF");
    for (const char16_t unit :
         std::u16string(u"WScript.Echo \"\u00E4\u20AC\", Len(\"\u00E4\u20AC\")")) {
        const auto low = static_cast<char>(unit & 0xFFU);
        const auto high = static_cast<char>(unit >> 8U);
        little += {low, high};
        big += {high, low};
    }

    const struct {
        const char* encoding;
        std::string bytes;
    } rows[] = {{"UTF-8", utf8},
                {"UTF-8 with a mark", "\xEF\xBB\xBF" + utf8},
                {"UTF-16, low byte first", little},
                {"UTF-16, high byte first", big},
                {"code page 1252", code_page}};

    for (const auto& row : rows) {
        const Outcome outcome = run(row.bytes);
        EXPECT_EQ(outcome.out, "\xC3\xA4\xE2\x82\xAC 2\n") << row.encoding;
        EXPECT_EQ(outcome.exit_code, 0) << row.encoding << outcome.err;
    }
}

TEST_F(ScriptCommand, AllWordsBehindTheFileAreTheScripts) {
    const std::string source =
        "For Each word In WScript.Arguments\nWScript.Echo \"[\" & word & \"]\"\nNext";
    EXPECT_EQ(run(source).out, "");
    EXPECT_EQ(run(source, {"one", "", "two words", "\xC3\xA4", "--home", "-h", "/level:3"}).out,
              "[one]\n[]\n[two words]\n[\xC3\xA4]\n[--home]\n[-h]\n[/level:3]\n");
    EXPECT_EQ(run("WScript.Echo WScript.Arguments.Named(\"Level\"), WScript.Arguments.Unnamed(0)",
                  {"/level:3", "x"})
                  .out,
              "3 x\n");
}

TEST_F(ScriptCommand, SaysWhichFileItCannotRead) {
    for (const std::string& words : {folder() + "/absent.vbs", folder()}) {
        const Outcome outcome = run_words({"script", words});
        EXPECT_EQ(outcome.exit_code, 1) << words;
        EXPECT_EQ(outcome.err, "zynvelora: cannot read the script " + words + "\n");
    }
    const Outcome without = run_words({"script"});
    EXPECT_EQ(without.exit_code, 2);
    EXPECT_THAT(without.err, HasSubstr("FILE is required"));
}

TEST_F(ScriptCommand, WithoutADaemonThePlugInCannotBeMade) {
    const Environment nowhere = {"ZYNVELORA_HOME=" + folder()};
    const Outcome outcome = run("Set h = CreateObject(\"zynVelora.hspi\")", {}, nowhere);
    EXPECT_EQ(outcome.exit_code, 1);
    EXPECT_THAT(outcome.err, AllOf(StartsWith("FILE(1, 1) zynVelora.hspi: "),
                                   HasSubstr("no daemon answers in " + folder())));
    EXPECT_EQ(run("On Error Resume Next\nSet h = CreateObject(\"zynvelora.HSPI\")\n"
                  "WScript.Echo Err.Number, IsObject(h)",
                  {}, nowhere)
                  .out,
              "429 False\n");
}

TEST_F(ScriptCommand, ThePlugInOfTheRunningDaemonIsAnObjectOfScripts) {
    House house({"Kitchen"});
    house.start();
    const Environment home = {"ZYNVELORA_HOME=" + house.home().string()};
    const Outcome outcome =
        run("Set h = CreateObject(\"zynVelora.hspi\")\n"
            "WScript.Echo h.VeloraNames, h.veloravolumestatus(\"Kitchen\") + 1\n"
            "h.VeloraTopLed WScript.Arguments(0), \"on\"\n",
            {"Kitchen"}, home);
    EXPECT_EQ(outcome.out, "kitchen 0\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(house.shows("Kitchen", "top_led", "on"));

    const Outcome mistakes =
        run("Set h = CreateObject(\"zynVelora.hspi\")\n"
            "On Error Resume Next\n"
            "h.VeloraSpeek \"Kitchen\", \"x\" : WScript.Echo Err.Number : Err.Clear\n"
            "h.VeloraSounds \"Kitchen\", \"loud\" : WScript.Echo Err.Number, Err.Description\n"
            "On Error GoTo 0\n"
            "h.VeloraSounds \"Kitchen\", 40000\n",
            {}, home);
    EXPECT_THAT(mistakes.out, AllOf(StartsWith("438\n13 "), HasSubstr("Type mismatch: 'iSound'")));
    EXPECT_EQ(mistakes.exit_code, 1);
    EXPECT_THAT(mistakes.err,
                AllOf(StartsWith("FILE(6, 1) zynVelora.hspi: "), HasSubstr("Overflow")));

    EXPECT_EQ(house.daemon().stop(), 0);
    EXPECT_THAT(run("Set h = CreateObject(\"zynVelora.hspi\")", {}, home).err,
                HasSubstr("no daemon answers in "));
}

}  // namespace
}  // namespace system_tests
