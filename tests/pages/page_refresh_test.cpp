#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "pages/asp_house.h"
#include "pages/custom_header_calls.h"
#include "pages/meta_replace.h"

namespace pages {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Replacement {
    std::string source;
    std::string result;
};

const std::string kNewTag =
    "<meta http-equiv=\"\"Refresh\"\" content=\"\"5\"\"; URL=\"\"/VeloraSlideshow.asp\"\">";

std::string with_5_seconds(AspHouse& house, std::string_view source) {
    return metaReplace(house.instance->log, house.machine.protection, source, "5");
}

TEST(PageRefresh, TheFirstDigitsOfAMetaTagBecomeTheSeconds) {
    AspHouse house;
    const std::vector<Replacement> cases{
        {"<META HTTP-EQUIV=\"\"Refresh\"\" Content=\"\"10; URL=x1\"\">",
         "<META HTTP-EQUIV=\"\"Refresh\"\" Content=\"\"5; URL=x1\"\">"},
        {"<meta http-equiv=refresh content=120>", "<meta http-equiv=refresh content=5>"},
        {"<meta http-equiv=a content=\"\"x; charset=windows-1252\"\"><meta http-equiv=b "
         "content=9>",
         "<meta http-equiv=a content=\"\"x; charset=windows-5\"\"><meta http-equiv=b content=9>"},
        {"<meta http-equiv=9 x> later content = 7 >", "<meta http-equiv=9 x> later content = 5 >"},
    };
    for (const Replacement& each : cases) {
        EXPECT_EQ(with_5_seconds(house, each.source), each.result);
    }
}

TEST(PageRefresh, APageWithoutATagGetsOne) {
    AspHouse house;
    const std::vector<Replacement> cases{
        {"a<Head>b<head>", "a<Head>" + kNewTag + "b<head>"},
        {"a<html>b", "a<html><HEAD>" + kNewTag + "</HEAD>b"},
        {"ab", "<HTML><HEAD>" + kNewTag + "</HEAD>ab"},
        {"<meta http-equiv <HTML> content",
         "<meta http-equiv <HTML><HEAD>" + kNewTag + "</HEAD> content"},
    };
    for (const Replacement& each : cases) {
        EXPECT_EQ(with_5_seconds(house, each.source), each.result);
    }
}

TEST(PageRefresh, ATagWithoutDigitsIsReportedAndPassedOverWithTheProtection) {
    AspHouse house({.tag_without_digits_is_passed_over = true});
    for (const std::string tag :
         {"<meta http-equiv=a content=\"\"text\"\">", "<meta http-equiv=a content x=>1",
          "<meta http-equiv=a content>"}) {
        house.host.forget();
        EXPECT_EQ(with_5_seconds(house, tag + "<meta http-equiv=b content=9>"),
                  tag + "<meta http-equiv=b content=5>");
        EXPECT_EQ(with_5_seconds(house, "<HEAD>" + tag), "<HEAD>" + kNewTag + tag);
        EXPECT_THAT(house.host.log(),
                    testing::Each(testing::ContainsRegex(
                        "zynVelora: metaReplace  Line [0-9]+ meta http-equiv without a number")));
        EXPECT_EQ(house.host.log().size(), 2U);
    }
}

TEST(PageRefresh, TheSeventhArgumentOfEachCustomHeaderIsTheRefresh) {
    const std::vector<Replacement> cases{
        {"CustomHeader(1,2,3,4,5,6,7,8)", "CustomHeader(1,2,3,4,5,6,20,8)"},
        {"customheader (1,2,3,4,5,6,7,8,9) : CUSTOMHEADER(1,2,3,4,5,6,7,8)",
         "customheader (1,2,3,4,5,6,20,8,9) : CUSTOMHEADER(1,2,3,4,5,6,20,8)"},
        {"CustomHeader(F(1),2,3,4,5,6,7,8) & \")\"", "CustomHeader(F(1),2,3,4,5,6,20,8) & \")\""},
        {"CustomHeader(1,2,3,4,5,6,7)", "CustomHeader(1,2,3,4,5,6,20))"},
        {"CustomHeader(one,two)", "CustomHeader(one,tw,,,,,20))"},
        {"CustomHeader()", "CustomHeader(,,,,,,20))"},
        {"CustomHeader(\"a,b\",3,4,5,6,7,8)", "CustomHeader(\"a,b\",3,4,5,6,20,8)"},
    };
    for (const Replacement& each : cases) {
        const RewrittenCalls result = rewrite_custom_header_calls(each.source, "20");
        EXPECT_EQ(result.source, each.result);
        EXPECT_TRUE(result.has_calls) << each.source;
    }
}

TEST(PageRefresh, ACallWithoutItsBracketsIsNone) {
    for (const std::string source : {"CustomHeader", "CustomHeader(1,2", "Header(1,2)"}) {
        const RewrittenCalls result = rewrite_custom_header_calls(source, "20");
        EXPECT_EQ(result.source, source);
        EXPECT_FALSE(result.has_calls) << source;
    }
}

}  // namespace
}  // namespace pages
