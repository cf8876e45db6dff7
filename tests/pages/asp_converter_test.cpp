#include "pages/asp_converter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "automation/run_time_error.h"
#include "core/velora_log.h"

namespace pages {
namespace {

constexpr std::string_view kHead = "\r\nDim fs\r\nFunction P()\r\nSet fs = New FastString\r\n";
constexpr std::string_view kTail = "\r\nP = fs.value\r\nSet fs = Nothing\r\nend Function\r\n";

std::string source_of(std::string_view page) {
    core::VeloraLog log;
    return AspConverter(log, "P").convert(page);
}

// A source with HEAD and TAIL in the places of the function's head and tail.
std::string shortened(std::string source) {
    for (const auto& [text, word] : {std::pair{kHead, "HEAD"}, std::pair{kTail, "TAIL"}}) {
        if (const std::size_t at = source.find(text); at != std::string::npos) {
            source.replace(at, text.size(), word);
        }
    }
    return source;
}

struct Conversion {
    std::string rule;
    std::string page;
    std::string source;
};

void expect_all(const std::vector<Conversion>& conversions) {
    for (const Conversion& each : conversions) {
        EXPECT_EQ(shortened(source_of(each.page)), each.source) << each.rule;
    }
}

TEST(AspConverter, LiteralTextBecomesOneStatementForEachLine) {
    expect_all({
        {"lines, with quotes doubled", "<a href=\"x\">\r\nline 2",
         "HEADfs.add \"<a href=\"\"x\"\">\"\r\nfs.add \"line 2\"TAIL"},
        {"empty literals vanish", "one\r\n\r\n", "HEADfs.add \"one\"\r\n\r\nTAIL"},
        {"an empty file has no function", "", "TAIL"},
        {"a single character is not looked at", "x", "TAIL"},
        {"blank text opens no function", "\r\n\t \r\n", "\r\nfs.add \"\t \"\r\nTAIL"},
        {"a quote at the start of a line is taken for an empty literal", "\"x", "HEAD\"x\"TAIL"},
        {"a line feed alone stays within its literal", "a\nb", "HEADfs.add \"a\nb\"TAIL"},
    });
}

TEST(AspConverter, CodeStaysAsItIsButForItsOutput) {
    expect_all({
        {"in any case", "<%\r\nResponse.Write \"x\"\r\nRESPONSE.write 1\r\n%>",
         "\r\nHEADfs.add \"x\"\r\nfs.add 1\r\nTAIL"},
        {"between literals", "<b>\r\n<%\r\nn = 1\r\n%>\r\n</b>",
         "HEADfs.add \"<b>\"\r\n\r\nn = 1\r\n\r\nfs.add \"</b>\"TAIL"},
        {"an expression's sign stays", "<b>\r\n<%= n %>", "HEADfs.add \"<b>\"\r\n= n TAIL"},
        {"a block without an end loses its last character", "<%\r\nn = 12", "\r\nHEADn = 1TAIL"},
    });
}

TEST(AspConverter, DeclarationsOfThePageComeInFrontOfItsFunction) {
    expect_all({
        {"all kinds", "<%\r\n' note\r\nConst k = 1\r\n\tDim a\r\n<!-- x\r\n\r\na = k\r\n%>",
         "\r\n' note\r\nConst k = 1\r\n\tDim a\r\n<!-- x\r\n\r\nHEADa = k\r\nTAIL"},
        {"over several blocks", "<%\r\nDim a\r\n%>\r\n<%\r\na = 1\r\n%>",
         "\r\nDim a\r\n\r\n\r\nHEADa = 1\r\nTAIL"},
        {"only once", "<%\r\na = 1\r\n%>\r\n<%\r\nDim b\r\nb = 2\r\n%>",
         "\r\nHEADa = 1\r\n\r\n\r\nDim b\r\nb = 2\r\nTAIL"},
        {"none but declarations", "<%\r\nDim a\r\n%>", "\r\nDim a\r\nTAIL"},
        {"a last line without an end reads as the whole block", "<% Dim a\r\na = 1 %>",
         " Dim a\r\na = 1 TAIL"},
    });
}

TEST(AspConverter, ThePagesOwnProceduresCloseItsFunction) {
    expect_all({
        {"and their block comes twice", "<%\r\na = 1\r\nSub S()\r\nEnd Sub\r\n%>",
         "\r\nHEADa = 1\r\nTAILSub S()\r\nEnd Sub\r\na = 1\r\nSub S()\r\nEnd Sub\r\n"},
        {"a sub is looked for first", "<%\r\na = 1\r\nFunction F()\r\nSub S()\r\n%>",
         "\r\nHEADa = 1\r\nFunction F()\r\nTAILSub S()\r\n"
         "a = 1\r\nFunction F()\r\nSub S()\r\n"},
        {"once only", "<%\r\na = 1\r\nFunction F()\r\n%>\r\n<%\r\nSub S()\r\n%>",
         "\r\nHEADa = 1\r\nTAILFunction F()\r\na = 1\r\nFunction F()\r\n\r\n\r\nSub S()\r\n"},
        {"even in a comment", "<%\r\na = 1 'no sub here\r\n%>",
         "\r\nHEADa = 1 'no TAILsub here\r\na = 1 'no sub here\r\n"},
    });
}

TEST(AspConverter, IncludeLinesGoIntoTheSourceAsTheyAre) {
    expect_all({
        {"as a line", "<b>\r\n<!--#INCLUDE file=\"a\"-->\r\n</b>",
         "HEADfs.add \"<b>\"\r\n<!--#INCLUDE file=\"a\"-->\r\nfs.add \"</b>\"TAIL"},
        {"at the start, in front of the function", "<!--#include file=\"a\"-->\r\n<b>",
         "<!--#include file=\"a\"-->\r\nHEADfs.add \"<b>\"TAIL"},
        {"without a line end they take all the rest", "<!--#include file=\"a\"--> <b>\r\n</b>",
         "<!--#include file=\"a\"--> <b>\r\n</b>TAIL"},
    });
}

TEST(AspConverter, MarksThatOverlapAreAnError) {
    for (const std::string_view page : {"text <%> text", "text <%"}) {
        EXPECT_THROW(static_cast<void>(source_of(page)), automation::RunTimeError) << page;
    }
}

TEST(AspConverter, TheFunctionIsNamedAfterTheFile) {
    EXPECT_EQ(asp_function_name("\\Slides\\My Clock.v2.ASP"), "zynVeloraslidesmyclockv2asp");
    EXPECT_EQ(asp_function_name("C:\\a_b/c.htm"), "zynVeloraca_b/chtm");
}

}  // namespace
}  // namespace pages
