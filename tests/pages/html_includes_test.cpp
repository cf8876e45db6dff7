#include "pages/html_includes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/asp_house.h"

namespace pages {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class HTMLIncludesTest : public testing::Test {
  protected:
    void load(AspHouse& in, std::string_view file) {
        in.includes->AccumulateHTMLReferences(file, engine);
    }

    AspHouse house;
    RecordingControl engine{house.record};
};

TEST_F(HTMLIncludesTest, AnIncludeFileBecomesCodeThatWritesToTheGlobalObject) {
    house.put_html("a.asp", "<%\r\nx = \"<% %>\"\r\n<!-- note\r\nRESPONSE.WRITE x\r\n%>");
    load(house, "a.asp");
    EXPECT_THAT(house.record.code, ElementsAre("\r\nx = \" \"\r\n' note\r\nfsg.Add x\r\n"));
}

TEST_F(HTMLIncludesTest, IncludesAreLoadedFirstFromHtmlOrScripts) {
    house.put_html("a.asp",
                   "<!--#include file=\" lib/b.asp \"-->\r\n"
                   "<!--#include file=\"../SCRIPTS/c.txt\"-->\r\n"
                   "<!--#include file=\"absent.asp\"-->\r\na");
    house.put_html("lib\\b.asp", "Response.Write b");
    house.machine.files.put("C:\\House\\Scripts\\c.txt", "'#include \"d.txt\"\r\nResponse.Write c");
    house.machine.files.put("C:\\House\\Scripts\\d.txt", "d");
    load(house, "\\a.asp");
    EXPECT_THAT(house.record.code, ElementsAre("fsg.Add b", "d", "'\r\nResponse.Write c",
                                               "'-->\r\n'-->\r\n'-->\r\na"));
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST_F(HTMLIncludesTest, AFileIncludedTwiceIsAddedTwice) {
    house.put_html("a.asp", "'#include \"b.asp\"'#include \"b.asp\"");
    house.put_html("b.asp", "b");
    load(house, "a.asp");
    EXPECT_THAT(house.record.code, ElementsAre("b", "b", "''"));
}

TEST_F(HTMLIncludesTest, GeneratedSourceLosesItsDirectives) {
    house.put_html("b.asp", "b");
    house.includes->AccumulateHTMLString(
        "<!--#include file=\"b.asp\"-->\r\nx = \"\\\\server\"\r\n<!-- -->", engine);
    EXPECT_THAT(house.record.code, ElementsAre("b", "\r\nx = \"\\\\server\"\r\n<!-- -->"));
}

TEST_F(HTMLIncludesTest, AScriptInGeneratedSourceReducesItsDoubledBackslashes) {
    house.machine.files.put("C:\\House\\Scripts\\c.txt", "c");
    house.includes->AccumulateHTMLString(
        "<!--#include file=\"..\\Scripts\\\\c.txt\"-->\r\nx = \"a\\\\b\"", engine);
    EXPECT_THAT(house.record.code, ElementsAre("c", "\r\nx = \"a\\b\""));
}

TEST_F(HTMLIncludesTest, FailuresAreLoggedForTheirFileAlone) {
    house.record.broken_code = "broken";
    house.put_html("a.asp", "'#include \"b.asp\"\r\n'#include \"..\\Scripts\\c.txt\"\r\na");
    house.put_html("b.asp", "broken");
    house.machine.files.put("C:\\House\\Scripts\\c.txt", "broken");
    load(house, "a.asp");
    EXPECT_THAT(house.host.log(), ElementsAre(HasSubstr("AccumulateHTMLReferences:  Line "),
                                              HasSubstr("AccumulateReferences:  Line ")));
    EXPECT_THAT(house.record.code, ElementsAre("'\r\n'\r\na"));
}

TEST_F(HTMLIncludesTest, AFileThatIncludesItselfIsAnErrorAndNoEnd) {
    house.put_html("a.asp", "'#include \"a.asp\"");
    load(house, "a.asp");
    EXPECT_THAT(house.host.log(), ElementsAre(HasSubstr("Out of stack space")));
}

// Each of the files would be read twice as often as the one above it.
TEST_F(HTMLIncludesTest, FilesThatIncludeThemselvesTwiceAreReadAThousandTimes) {
    house.put_html("a.asp",
                   "'#include \"a.asp\"'#include \"a.asp\"'#include \"..\\Scripts\\c.txt\"");
    house.machine.files.put("C:\\House\\Scripts\\c.txt", "'#include \"c.txt\"'#include \"c.txt\"");
    load(house, "a.asp");
    EXPECT_THAT(house.host.log(),
                testing::Contains(HasSubstr("#include names too many files")).Times(1));
    EXPECT_LE(house.record.code.size(), 1000U);

    house.put_html("b.asp", "b");
    load(house, "b.asp");
    EXPECT_EQ(house.record.code.back(), "b");
}

TEST_F(HTMLIncludesTest, WithTheProtectionABrokenIncludeIsReportedAndThePageGoesOn) {
    AspHouse hardened({.broken_include_is_an_error = true});
    hardened.put_html("b.asp", "b");
    hardened.includes->AccumulateHTMLString("'#include \"b.asp\"\r\n'#include none", engine);
    EXPECT_THAT(hardened.host.log(),
                ElementsAre(AllOf(HasSubstr("AccumulateHTMLString:  Line "),
                                  HasSubstr(" #include without a name in quotes"))));
    EXPECT_THAT(house.record.code, ElementsAre("b", "'\r\n'#include none"));
}

TEST_F(HTMLIncludesTest, DecorationsComeFromTheProgramUnlessTheScriptsAreChosen) {
    house.put_html("tail.htm", "<img src=\"Powered.jpg\">");
    EXPECT_EQ(house.includes->FormatCell("x", "left", "1", "c"),
              "<td class=c colspan=1 align=left>x</td>");
    EXPECT_THAT(house.includes->CustomHeader({.title = "T"}), HasSubstr("<title>T</title>"));
    EXPECT_THAT(house.includes->CustomFooter(), HasSubstr("<img src=\"/powered.jpg\">"));
    EXPECT_THAT(house.record.calls, IsEmpty());

    house.includes->set_decoration(HTMLIncludes::Decoration::Scripts);
    EXPECT_EQ(house.includes->CustomHeader({.title = "T"}), "") << "no engine yet";
    EXPECT_THAT(house.host.log(), ElementsAre(HasSubstr("CustomHeader:  Line ")));
    house.pages->HTMLInit();
    house.record.results["CustomFooter"] = "\"powered.jpg\"";
    EXPECT_EQ(house.includes->CustomFooter(), "\"/powered.jpg\"");
    static_cast<void>(house.includes->FormatCell("x", "left", "1", "c"));
    static_cast<void>(house.includes->CustomHeader({"T", "a", "b", "c", "d"}));
    EXPECT_THAT(house.record.calls, ElementsAre("CustomFooter()", "FormatCell(x, left, 1, c)",
                                                "CustomHeader(T, a, b, c, d)"));
}

}  // namespace
}  // namespace pages
