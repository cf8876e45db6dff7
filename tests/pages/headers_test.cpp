#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "pages/asp_house.h"
#include "pages/headers/cells.h"
#include "pages/headers/footer.h"
#include "pages/headers/header.h"
#include "pages/headers/host_page.h"
#include "pages/headers/links.h"
#include "pages/headers/page_scroll.h"
#include "pages/headers/security.h"

namespace pages {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class HeadersTest : public testing::Test {
  protected:
    HeadersTest() {
        house.request->variables = {{"REMOTE_ADDR", "10.0.0.5"}};
        XStartMiscFunctionsASP(page);
    }

    void set(std::string_view key, std::string_view value, std::string_view file = "includes.ini",
             std::string_view section = "header.asp") {
        house.host.put_setting(section, key, value, file);
    }

    [[nodiscard]] std::string user() const {
        return page.SecureUser + " " + std::to_string(page.SecureLevel);
    }

    AspHouse house;
    HostPage& page = *house.page;
};

// --- the client ----------------------------------------------------------------------------------

TEST_F(HeadersTest, TouchScreensAreKnownByTheirBrowserInItsExactCase) {
    for (const auto& [browser, expected] : std::vector<std::pair<std::string, bool>>{
             {"Mozilla (Velora 2)", true}, {"QNX Voyager", true}, {"velora", false}, {"", false}}) {
        XStartMiscFunctionsASP(page);
        house.request->variables["HTTP_USER_AGENT"] = browser;
        EXPECT_EQ(xStartHeaderASP(page), expected) << browser;
    }
    house.request->variables["REMOTE_ADDR"] = "";
    EXPECT_TRUE(xStartHeaderASP(page)) << "the list of addresses has one empty entry";
}

TEST_F(HeadersTest, TheHostsVersionIsANumberOfItsFirstTwoParts) {
    for (const auto& [text, number] : std::vector<std::pair<std::string, double>>{
             {"1.7.24", 1.7}, {"Build 1.6.0 Beta", 1.6}, {"", 1.538}, {"new", 0}, {"2", 2}}) {
        house.host.set_version(text);
        EXPECT_EQ(NumericHSVersion(page), number) << text;
        xStartHeaderASP(page);
        EXPECT_EQ(page.is_newer_host, number >= 1.538) << text;
    }
}

TEST_F(HeadersTest, WithoutARequestTheStartIsReported) {
    page.set_objects(nullptr, nullptr);
    EXPECT_FALSE(xStartHeaderASP(page));
    EXPECT_THAT(house.host.log(), ElementsAre(StartsWith("zynVelora: xStartHeaderASP  Line ")));
}

// --- security ------------------------------------------------------------------------------------

TEST_F(HeadersTest, BasicSecurityGoesByTheNameThatTheWebServerHasChecked) {
    set("usesecurity", "Basic", "web_settings.ini", "Settings");
    for (const auto& [name, expected] : std::vector<std::pair<std::string, std::string>>{
             {"anna", "ANNA 10"}, {"guest", "GUEST 0"}, {"Not Set", "LOCAL 10"}, {"", " 10"}}) {
        XStartMiscFunctionsASP(page);
        house.request->variables["AUTH_USER"] = name;
        XSecurityCheck(page);
        EXPECT_EQ(user(), expected) << name;
    }
}

TEST_F(HeadersTest, EnhancedSecurityGoesByTheSessionInTheUsersTable) {
    page.SecurityMode = "Enhanced";
    XSecurityCheck(page);
    EXPECT_EQ(user(), "None 0");
    EXPECT_THAT(house.menus.statements,
                ElementsAre("SELECT UserID, SecureLevel, SecID FROM MenuUsers WHERE SecID = "
                            "'10.0.0.5' ",
                            "UPDATE MenuUsers SET LastSessTime =  Now()  WHERE SecID = "
                            "'10.0.0.5' "));
    house.menus.product = "SQL Server";
    house.menus.rows["SELECT UserID, SecureLevel"] = {{"anna", "7", "10.0.0.5"}};
    XSecurityCheck(page);
    EXPECT_EQ(user(), "anna 7");
    EXPECT_THAT(house.menus.statements.back(), HasSubstr(" GetDate() "));

    house.menus.statements.clear();
    house.request->variables["REMOTE_ADDR"] = "NA";
    XSecurityCheck(page);
    EXPECT_EQ(user(), "None 0");
    EXPECT_THAT(house.menus.statements, IsEmpty());
}

TEST_F(HeadersTest, OtherModesNeedNoUser) {
    XSecurityCheck(page);
    EXPECT_EQ(user(), " 0");
    page.SecurityMode = "none";
    XSecurityCheck(page);
    EXPECT_EQ(user(), "NO SECURITY 10");
}

TEST_F(HeadersTest, APageAboveTheUsersLevelIsRefusedAndNoted) {
    house.request->variables["PATH_INFO"] = "\\pages\\secret.asp";
    page.SecurityMode = "Enhanced";
    page.SecureUser = "anna";
    page.SecureLevel = 5;
    LogAuthorized(page, 5);
    EXPECT_THAT(house.response->redirects, IsEmpty());
    LogAuthorized(page, 6);
    page.SecurityMode = "BASIC";
    LogAuthorized(page, 6);
    EXPECT_THAT(house.response->redirects, ElementsAre("/unauthorized.asp", "/unauthorized.asp"));
    EXPECT_THAT(house.host.log(),
                ElementsAre("Unauthorized: anna at 10.0.0.5 attempted to access secret.asp at "
                            "11/24/2026 10:00:00 AM. ",
                            "Unauthorized: Anonymous Guest at 10.0.0.5 attempted to access "
                            "secret.asp at 11/24/2026 10:00:00 AM. "));
    house.request->variables["PATH_INFO"] = "\\Unauthorized.asp";
    LogAuthorized(page, 6);
    EXPECT_EQ(house.response->redirects.size(), 2U);
}

// --- cells ---------------------------------------------------------------------------------------

TEST_F(HeadersTest, TouchScreensGetTheLooksOfACellInIt) {
    EXPECT_EQ(FormatCell(page, "x", "Center", "1", "TABLEHEADER"),
              "<td class=TABLEHEADER colspan=1 align=Center>x</td>");
    page.IsTouchscreen = true;
    const std::string font = "<font face=\"Verdana, Arial, sans-serif\" size=\"2\"";
    EXPECT_EQ(FormatCell(page, "x", "Center", "1", "TableHeader"),
              "<td colspan=1 align=Center bgcolor=\"#63639C\">" + font +
                  " color=\"#FFFFFF\"><b>x</b></font></td>");
    EXPECT_EQ(FormatCell(page, "x", "", "", "TABLEROWODD"),
              "<td bgcolor=\"#C0C0C0\">" + font + " color=\"#000000\">x</font></td>");
    EXPECT_EQ(FormatCell(page, "x", "", "", "tablecellmisc"), "<td>" + font + ">x</font></td>");
}

// --- links ---------------------------------------------------------------------------------------

TEST_F(HeadersTest, LinkFilesGoByClientAndLevel) {
    EXPECT_EQ(LinkFile(page), "No File");
    house.put_html("links.htm", "all");
    house.put_html("links7.htm", "seven");
    house.put_html("links_touchscreen.htm", "small");
    page.SecureLevel = 7;
    EXPECT_EQ(LinkFile(page), "all");
    page.SecurityMode = "Enhanced";
    EXPECT_EQ(LinkFile(page), "seven");
    page.IsTouchscreen = true;
    EXPECT_EQ(LinkFile(page), "small");
}

TEST_F(HeadersTest, TheHostsLinksShowWhatTheHostHas) {
    EXPECT_EQ(HSLinks(page),
              "<p><a href=\"/\">Home</a> <a href=\"/status\">Status</a> <a href=\"/events\">"
              "Events</a> <a href=\"/html_help/hlp_contents.htm\">Help</a> <a href=\"/logo\">"
              "Log Out</a></p>");
    set("gLaunchHSPhone", "True", "settings.ini", "Settings");
    set("gCustomPageDesc1", "Cam", "settings.ini", "Settings");
    set("gCustomPageFile1", "cam.asp", "settings.ini", "Settings");
    set("gCustomPageDesc4", "News", "settings.ini", "Settings");
    set("gCustomPageFile4", "\"http://n\"", "settings.ini", "Settings");
    EXPECT_THAT(HSLinks(page), AllOf(HasSubstr("<a href=\"/voice\">Voice</a>"),
                                     HasSubstr("<a href=\"/cam.asp\">Cam</a> <a href=\"http://n\">"
                                               "News</a>")));
}

// --- header and footer ---------------------------------------------------------------------------

TEST_F(HeadersTest, AHeaderWithoutAnySettingIsWhole) {
    EXPECT_EQ(CustomHeader(page, {.title = "T", .background = "Blue"}),
              "<html><head><title>T</title>"
              "<link rel=\"stylesheet\" type=\"text/css\" href=\"/styleNoBody.css\">"
              "<meta HTTP-EQUIV=\"EXPIRES\" CONTENT=\"0\">"
              "<meta HTTP-EQUIV=\"Pragma\" CONTENT=\"no-cache\"></head><body bgcolor=\"Blue\">"
              "<a href=\"#pagecontent\"></a>" +
                  HSLinks(page) +
                  "<table width=\"100%\" border=\"0\"><tr class=\"logobar\"><td align=\"right\">"
                  "<a href=\"/\"><img src=\"/Tervalis.JPG\" border=\"0\"></a></td></tr>"
                  "<tr class=\"pagetitle\"><td>T</td></tr></table><a name=\"pagecontent\"></a>");
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST_F(HeadersTest, SettingsAndFilesFillTheHeader) {
    for (const auto& [key, value] :
         std::vector<std::pair<std::string, std::string>>{{"strPageTitle", "Set"},
                                                          {"strShowLinks", "New"},
                                                          {"strRefresh", "30"},
                                                          {"background", "a.gif"},
                                                          {"BODY_OnLoad", "go()"},
                                                          {"linkslocation", "Top"},
                                                          {"logoShowDate", "1"},
                                                          {"logoShowTime", "Yes"},
                                                          {"logoShowUsername", "1"},
                                                          {"logoShowSunrise", "1"},
                                                          {"logoShowWeatherManTemp", "1"},
                                                          {"strHeader", "No"},
                                                          {"logoImageLink", "/about"}}) {
        set(key, value);
    }
    set("Temp", "21", "WeatherData.ini", "WeatherCom_CurrentData");
    house.put_html("meta.htm", "<meta>");
    house.put_html("head.htm", "<h1>");
    house.put_html("links.htm", "<links>");
    page.SecureUser = "anna";
    EXPECT_THAT(CustomHeader(page, {}),
                AllOf(HasSubstr("<title>Set</title>"), HasSubstr("href=\"/style.css\""),
                      HasSubstr("<meta HTTP-EQUIV=\"refresh\" CONTENT=\"30\"><meta></head>"),
                      HasSubstr("<body background=\"a.gif\" onload=\"go()\">"),
                      HasSubstr("<links><h1><table"),
                      HasSubstr("<td>11/24/2026</td><td>10:00:00 AM</td><td></td><td>21</td>"
                                "<td>anna</td><td align=\"right\"><a href=\"/about\">"),
                      Not(HasSubstr("pagetitle"))));
}

TEST_F(HeadersTest, TheScrollingTextsGoIntoTheirScript) {
    set("usePageScroll", "one|two");
    EXPECT_EQ(PageScroll(page), "") << "without the script";
    house.put_html("javascript\\page_scroll.js", "a(******REPLACE_PAGESCROLL******)b");
    EXPECT_EQ(PageScroll(page),
              "<script language=\"JavaScript\">a"
              "wcontent[0]=\"<font class='pagescrolltext'>one</font>\";\r\n"
              "wcontent[1]=\"<font class='pagescrolltext'>two</font>\";\r\nb</script>");
    set("usePageScroll", "Default");
    set("Temp", "21", "WeatherData.ini", "WeatherCom_CurrentData");
    EXPECT_THAT(PageScroll(page), AllOf(HasSubstr("wcontent[0]=\"<font class='pagescrolltext'>"
                                                  "Now: 21 "),
                                        HasSubstr("wcontent[3]"), Not(HasSubstr("wcontent[4]"))));
    set("usePageScroll", "No");
    EXPECT_EQ(PageScroll(page), "");
}

TEST_F(HeadersTest, TheFooterShowsWhatTheHostWishes) {
    EXPECT_EQ(XCustomFooter(page), "<div class=\"footer\"></div></body></html>");
    set("showhsversion", "1", "web_settings.ini", "Settings");
    set("showhssystime", "1", "web_settings.ini", "Settings");
    house.host.set_version("2.5");
    house.machine.user_store.SaveSetting("HomeSeer", "Settings", "NavigationButtons", "1");
    house.put_html("tail_touchscreen.htm", "<small>");
    page.IsTouchscreen = true;
    EXPECT_EQ(XCustomFooter(page),
              "<div align=\"center\"><form>"
              "<input type=\"button\" value=\" << \" onClick=\"history.back()\">"
              "<input type=\"button\" value=\"Refresh\" onClick=\"history.go(0)\">"
              "<input type=\"button\" value=\" >> \" onClick=\"history.forward()\"></form></div>"
              "<small><div class=\"footer\">Version: 2.5 System Uptime: </div></body></html>");
}

TEST_F(HeadersTest, APieceThatFailsLeavesAHoleInThePage) {
    set("useMenuRow", "1");
    set("logpagehits", "1");
    page.set_objects(nullptr, nullptr);
    EXPECT_THAT(CustomHeader(page, {.title = "T"}), HasSubstr("<a name=\"pagecontent\"></a>"));
    EXPECT_THAT(house.host.log(), ElementsAre(StartsWith("zynVelora: fnPageName:  Line "),
                                              StartsWith("zynVelora: MenuRow:  Line ")));
}

}  // namespace
}  // namespace pages
