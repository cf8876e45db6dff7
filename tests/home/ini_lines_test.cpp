#include "home/ini/ini_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace home {
namespace {

using namespace std::string_literals;

using testing::ElementsAre;
using testing::IsEmpty;

struct Edit {
    const char* name;
    std::string before;
    const char* section;
    const char* key;
    const char* value;
    std::string after;
};

class EditedFile : public testing::TestWithParam<Edit> {};

TEST_P(EditedFile, KeepsEveryOtherByte) {
    const Edit& edit = GetParam();
    IniLines lines(edit.before);
    EXPECT_EQ(lines.content(), edit.before);
    lines.set(edit.section, edit.key, edit.value);
    EXPECT_EQ(lines.content(), edit.after);
}

const Edit kEdits[] = {
    {"Empty", "", "A", "k", "1", "[A]\nk=1\n"},
    {"OtherCase", "[Velora Names]\nServerPort=80\n", "velora names", "SERVERPORT", "81",
     "[Velora Names]\nServerPort=81\n"},
    {"BlanksAroundEquals", "[A]\n  k  =  1  \n", "A", "k", "2", "[A]\n  k  =  2\n"},
    {"EmptyValue", "[A]\nk=\nl=1\n", "A", "k", "2", "[A]\nk=2\nl=1\n"},
    {"CommentsAndOrder", "; top\n[A]\nk=1 ; no comment\n\n# between\nl=2\n", "A", "k", "9",
     "; top\n[A]\nk=9\n\n# between\nl=2\n"},
    {"NewKeyBehindLastOfSection", "[A]\nk=1\n\n; of B\n[B]\n", "A", "l", "2",
     "[A]\nk=1\nl=2\n\n; of B\n[B]\n"},
    {"NewKeyInEmptySection", "[A]\n[B]\nk=1\n", "A", "l", "2", "[A]\nl=2\n[B]\nk=1\n"},
    {"NewSection", "[A]\nk=1", "B", "k", "2", "[A]\nk=1\n\n[B]\nk=2\n"},
    {"CarriageReturns", "[A]\r\nk=1\r\n", "A", "l", "2", "[A]\r\nk=1\r\nl=2\r\n"},
    {"UnknownLines", "[A]\nwhat is this\n=1\nk=1\n", "A", "k", "2", "[A]\nwhat is this\n=1\nk=2\n"},
    {"FirstOfTwo", "[A]\nk=1\nK=2\n", "A", "k", "3", "[A]\nk=3\nK=2\n"},
    {"OpenHeader", "[A\nk=1\n", "A", "k", "2", "[A\nk=2\n"},
    {"OddKey", "[Velora Names]\n192.168.0.20/kitchen=\"Kitchen,~11,A1\"\n", "Velora Names",
     "192.168.0.20/Kitchen", "\"Kitchen,~21\"",
     "[Velora Names]\n192.168.0.20/kitchen=\"Kitchen,~21\"\n"},
    {"NoSection", "\xEF\xBB\xBF[A]\nk=1\n", "", "l", "2", "\xEF\xBB\xBFl=2\n[A]\nk=1\n"},
    {"Utf8", "[A]\nk=M\xC3\xBCller\n", "A", "l", "\xFC", "[A]\nk=M\xC3\xBCller\nl=\xC3\xBC\n"},
    {"CodePage", "[A]\nk=M\xFCller\n", "A", "l", "\xFC", "[A]\nk=M\xFCller\nl=\xFC\n"},
    {"OutsideCodePage", "; \xD0\x96\n[A]\nk=1\n", "A", "k", "2", "; \xD0\x96\n[A]\nk=2\n"},
};

INSTANTIATE_TEST_SUITE_P(IniLines, EditedFile, testing::ValuesIn(kEdits),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(IniLines, ASectionTakesNewEntriesAndKeepsItsComments) {
    const std::string before = "[A]\nk=1\n[N]\n; mine\nold=1\n; behind\nb=2\n\n[B]\nold=3\n";
    const auto after = [&](const std::string& section,
                           const std::vector<std::pair<std::string, std::string>>& entries) {
        IniLines lines(before);
        lines.replace_section(section, entries);
        return lines.content();
    };
    EXPECT_EQ(after("n", {{"b", "9"}, {"new", ""}, {"x", "y"}}),
              "[A]\nk=1\n[N]\n; mine\nb=9\nnew=\nx=y\n; behind\n\n[B]\nold=3\n");
    EXPECT_EQ(after("N", {}), "[A]\nk=1\n[N]\n; mine\n; behind\n\n[B]\nold=3\n");
    EXPECT_EQ(after("C", {{"k", "1"}}), before + "\n[C]\nk=1\n");
    EXPECT_EQ(after("C", {}), before);
}

std::vector<std::string> problems_of(const std::string& content) {
    std::vector<std::string> problems;
    const IniLines lines(content);
    for (const IniProblem& problem : lines.problems()) {
        problems.push_back(std::to_string(problem.line) + ": " + problem.text);
    }
    return problems;
}

TEST(IniLines, WhatWasAddedCountsForTheNextEdit) {
    IniLines lines("[A]\nk=1");
    lines.set("B", "first", "1");
    lines.set("b", "second", "2");
    lines.set("B", "First", "");
    EXPECT_EQ(lines.content(), "[A]\nk=1\n\n[B]\nfirst=\nsecond=2\n");
    EXPECT_EQ(lines.settings_text(), "[A]\nk=1\n[B]\nfirst=\nsecond=2\n");
}

TEST(IniLines, NamesEachLineThatItCannotTake) {
    EXPECT_THAT(problems_of("; fine\n\n[A]\nk=1\n  # fine\nl=\n"), IsEmpty());
    EXPECT_THAT(problems_of("[A]\r\nabc\r\n=1\r\nk=1\r\nK=2\r\nx\0=1\r\n[B\r\n"s),
                ElementsAre("2: no '=' in 'abc'", "3: no key in '=1'",
                            "5: 'K' stands in the section already, the first one counts",
                            "6: a NUL byte", "7: no ']' in '[B'"));
}

TEST(IniLines, TellsWhatCountsAfterAProblem) {
    const std::string content = "k=0\n[A]\nk=1\nK=2\nabc\nx\0=1\n[ B \nk = \"3\" \n[a]\nl=4\n"s;
    EXPECT_EQ(IniLines(content).settings_text(), "k=0\n[A]\nk=1\n[B]\nk=\"3\"\n[a]\nl=4\n");
}

TEST(IniEncoding, ChoosesByWellFormedUtf8) {
    for (const char* text : {"", "plain", "\xC3\xBC", "\xE2\x82\xAC", "\xF0\x9F\x8E\xB5"}) {
        EXPECT_EQ(encoding_of(text), IniEncoding::Utf8) << text;
    }
    for (const char* text : {"\xFC", "\xC3", "\xC0\xAF", "\xED\xA0\x80", "\xF5\x80\x80\x80"}) {
        EXPECT_EQ(encoding_of(text), IniEncoding::CodePage) << text;
    }
}

}  // namespace
}  // namespace home
