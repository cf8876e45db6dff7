#include "pages/convert_asp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/asp_house.h"

namespace pages {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class ConvertASPTest : public testing::Test {
  protected:
    ConvertASPTest() {
        house.put_html("clock.asp", "<HEAD>\r\n<%\r\nResponse.Write Now\r\n%>\r\n");
        house.record.results["zynVeloraclockasp"] = "the page";
        house.record.results["startheaderasp"] = true;
    }

    AspHouse house;
};

TEST_F(ConvertASPTest, TheFirstPageOfARunPreparesTheEngine) {
    house.put_html("includes\\style.asp", "Const kStyle = 1");
    EXPECT_EQ(house.slide("Clock.asp", "20"), "the page");
    EXPECT_THAT(house.record.calls,
                ElementsAre("setObjects(Request, Response)", "startmiscfunctionsasp()",
                            "SecurityCheck()", "startheaderasp()", "zynVeloraclockasp()"));
    EXPECT_THAT(house.record.code,
                ElementsAre(HasSubstr("sub setObjects"), "Const kStyle = 1",
                            "\r\nDim fs\r\nFunction zynVeloraclockasp()\r\n"
                            "Set fs = New FastString\r\n"
                            "fs.add \"<HEAD><meta http-equiv=\"\"Refresh\"\" "
                            "content=\"\"20\"\"; URL=\"\"/VeloraSlideshow.asp\"\">\"\r\n"
                            "\r\nfs.add Now\r\n\r\n\r\nzynVeloraclockasp = fs.value\r\n"
                            "Set fs = Nothing\r\nend Function\r\n"));
    EXPECT_TRUE(house.asp->ASPHeaderResult());
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST_F(ConvertASPTest, ALaterRequestRunsTheStoredFunctionWithItsFirstSeconds) {
    house.slide("clock.asp", "20");
    house.machine.files.DeleteFile("C:\\House\\HTML\\clock.asp");
    house.record.calls.clear();
    EXPECT_EQ(house.slide("\\CLOCK.asp", "99"), "the page");
    EXPECT_THAT(house.record.calls, ElementsAre("setObjects(Request, Response)", "SecurityCheck()",
                                                "startheaderasp()", "zynVeloraclockasp()"));
    EXPECT_THAT(house.record.code, SizeIs(2));
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST_F(ConvertASPTest, AHeaderCallTakesTheRefreshAndNoTagIsAdded) {
    house.put_html("h.asp", "<%\r\nResponse.Write CustomHeader(1,2,3,4,5,6,7,8)\r\n%>\r\n<HEAD>");
    house.slide("h.asp", "20");
    EXPECT_THAT(house.record.code.back(), HasSubstr("fs.add CustomHeader(1,2,3,4,5,6,20,8)"));
    EXPECT_THAT(house.record.code.back(), testing::Not(HasSubstr("http-equiv")));
}

TEST_F(ConvertASPTest, AFailureIsLoggedWhereItHappensAndThePageIsEmpty) {
    house.record.broken_code = "fs.add Now";
    house.record.on_run["zynVeloraclockasp"] = [] {
        throw automation::RunTimeError(35, "Sub or Function not defined");
    };
    EXPECT_EQ(house.slide("clock.asp", "20"), "");
    EXPECT_EQ(house.slide("absent.asp", "20"), "");
    EXPECT_THAT(
        house.host.log(),
        ElementsAre(AllOf(HasSubstr("AccumulateHTMLString:  Line "), EndsWith(" Syntax error")),
                    AllOf(HasSubstr("ASPSlide  Line "), EndsWith(" Sub or Function not defined")),
                    AllOf(HasSubstr("ASPAdd  Line "), HasSubstr("absent.asp"))));
}

TEST_F(ConvertASPTest, WithTheDebugLogSourceAndPageAreDumped) {
    house.instance->log.set_debug_log(true);
    house.slide("clock.asp", "20");
    house.slide("clock.asp", "20");
    EXPECT_THAT(house.html("zynVeloraclockasp.html"), EndsWith("end Function\r\n"));
    EXPECT_EQ(house.html("VeloraSlideshowHTML.html"), "the pagethe page");
}

TEST_F(ConvertASPTest, AfterAReloadThePageIsConvertedAnew) {
    house.slide("clock.asp", "20");
    house.pages->release();
    house.slide("clock.asp", "5");
    EXPECT_EQ(house.record.engines, 2);
    EXPECT_THAT(house.record.code.back(), HasSubstr("content=\"\"5\"\""));
}

TEST_F(ConvertASPTest, APageMayReloadTheSettingsThatItRunsUnder) {
    house.record.on_run["zynVeloraclockasp"] = [this] { house.pages->release(); };
    EXPECT_EQ(house.slide("clock.asp", "20"), "the page");
    house.record.on_run["startheaderasp"] = [this] { house.pages->release(); };
    EXPECT_EQ(house.slide("clock.asp", "20"), "");
    EXPECT_THAT(house.host.log(), ElementsAre(HasSubstr("ASPSlide  Line ")));
}

}  // namespace
}  // namespace pages
