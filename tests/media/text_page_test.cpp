#include "media/text_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_platform.h"
#include "support/memory_host.h"

namespace media {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class TextPageTest : public testing::Test {
  protected:
    TextPageTest() {
        instance_.application_path = "C:\\HomeSeer";
        instance_.attach(host_, &host_);
        machine_.files.put_folder("C:\\HomeSeer\\HTML");
    }

    [[nodiscard]] std::string page(const std::string& text, std::int32_t delay) {
        WrapHTML(instance_, "a.html", {"Blue", "Yellow", "7", "Arial"}, text, delay);
        return machine_.files.read("C:\\HomeSeer\\HTML\\a.html");
    }

    support::FakeMachine machine_;
    support::MemoryHost host_;
    core::Instance instance_{machine_.platform()};
};

TEST_F(TextPageTest, StaysAndTogglesTheBrowserWithoutADelay) {
    EXPECT_EQ(page("one\r\ntwo", 0),
              "<HTML><HEAD>\r\n"
              "<SCRIPT LANGUAGE='JavaScript'>function delaySubmit(){setTimeout('restore()',0000);}"
              "function restore(){history.go(-1);}</SCRIPT></HEAD><BODY BGCOLOR='Blue'>\r\n"
              "<BR><BR><BR><p align='center'>\r\n"
              "<FONT SIZE=7 FACE=Arial COLOR=Yellow><B>one<BR>two</B></FONT>"
              "<br><br><div align=\"center\"><form><input type=button value=\"Return\" "
              "onClick=\"history.go(-1)\"></form></div></p>\r\n"
              "</BODY>\r\n"
              "<div><center><IFRAME frameborder=0 align='middle' scrolling='no' name='hiddenframe' "
              "src='http://127.0.0.1/toggleBrowser.shtml'></IFRAME></center></div>\r\n"
              "</HTML>\r\n");
}

TEST_F(TextPageTest, GoesBackAfterItsDelay) {
    const std::string html = page("x", 5);
    EXPECT_THAT(html, HasSubstr("'restore()',5000);"));
    EXPECT_THAT(html, HasSubstr("BGCOLOR='Blue' onload='delaySubmit()'>\r\n"));
    EXPECT_THAT(html, Not(HasSubstr("hiddenframe")));
}

TEST_F(TextPageTest, CarriesTheLinksOfTheHouseAndIsCutOffWithoutThem) {
    instance_.settings.IncludeHeaderLinks = true;
    instance_.settings.LinksFile = "links.htm";
    machine_.files.put("C:\\HomeSeer\\HTML\\links.htm", "<a>home</a>");
    EXPECT_THAT(page("x", 0), HasSubstr("BGCOLOR='Blue'>\r\n<a>home</a>\r\n<BR><BR><BR>"));
    EXPECT_THAT(host_.log(), IsEmpty());

    machine_.files.DeleteFile("C:\\HomeSeer\\HTML\\links.htm");
    EXPECT_THAT(page("x", 0), testing::EndsWith("BGCOLOR='Blue'>\r\n"));
    EXPECT_THAT(host_.log(), ElementsAre(HasSubstr("zynVelora: WrapHTML  Line ")));
}

TEST(StripHTML, LeavesTheTextAlone) {
    const struct {
        const char *text, *plain;
    } rows[] = {{"a<b>c", "ac"},         {"a<b", "a<b"},      {"x&nbsp;y", "xy"},
                {"x&NBSP;&nbspy", "xy"}, {"a>b<i>c", "a>bc"}, {"<a<b>c>d", "c>d"},
                {"&nb&nbsp;sp;a", ";a"}, {"<i></i>", ""},     {"", ""}};

    for (const auto& row : rows) {
        EXPECT_EQ(StripHTML(row.text), row.plain) << row.text;
    }
}

}  // namespace
}  // namespace media
