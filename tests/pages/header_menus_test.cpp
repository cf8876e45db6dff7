#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/asp_house.h"
#include "pages/headers/menu_row.h"
#include "pages/headers/sliding_menu.h"

namespace pages {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const std::string kItems =
    "SELECT MenuItem, MenuURL, ParentID, SecureLevel, MenuImage FROM Menus WHERE ";
const std::string kTable = "<table border=\"0\" cellpadding=\"0\" cellspacing=\"0\"><tr>";

class HeaderMenusTest : public testing::Test {
  protected:
    HeaderMenusTest() {
        house.request->variables = {{"REMOTE_ADDR", "10.0.0.5"},
                                    {"PATH_INFO", "\\pages\\it's.asp"}};
        page.SecureLevel = 7;
        page.SecureUser = "anna";
        house.menus.rows[kItems + "LevelID = 1"] = {{"Home", "/", "0", "0", "home.gif"}};
    }

    void set(std::string_view key, std::string_view value) {
        house.host.put_setting("header.asp", key, value, "includes.ini");
    }

    AspHouse house;
    HostPage& page = *house.page;
};

TEST_F(HeaderMenusTest, TheMenuRowIsOffUnlessItIsWanted) {
    EXPECT_EQ(MenuRow(page), "");
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST_F(HeaderMenusTest, ItemsLookAsTheSettingSays) {
    set("useMenuRow", "1");
    EXPECT_EQ(MenuRow(page), kTable +
                                 "<td><input type=\"button\" class=\"linkrowbutton\" "
                                 "value=\"Home\" onClick=\"location.href='/'\"></td></tr></table>");
    set("useMenuRow", "Link");
    EXPECT_EQ(MenuRow(page), kTable + "<td><a href=\"/\">Home</a></td></tr></table>");
    set("useMenuRow", "Image");
    EXPECT_EQ(MenuRow(page), kTable +
                                 "<td><a href=\"/\"><img src=\"home.gif\" alt=\"Home\" "
                                 "border=\"0\"></a></td></tr></table>");
}

TEST_F(HeaderMenusTest, ThePagesParentsAndChildrenFollow) {
    set("useMenuRow", "LINK");
    house.menus.rows["SELECT LevelID, "] = {{"2", "3", "4", "5"}};
    house.menus.rows[kItems + "MenuID = 3"] = {{"Up", "/up"}};
    house.menus.rows[kItems + "ParentID = 4"] = {{"Down", "/down"}, {"Deep", "/deep"}};
    EXPECT_THAT(MenuRow(page),
                EndsWith("</tr><tr><td><a href=\"/up\">Up</a></td></tr><tr>"
                         "<td><a href=\"/down\">Down</a></td><td><a href=\"/deep\">Deep</a></td>"
                         "</tr></table>"));
    EXPECT_THAT(house.menus.statements,
                ElementsAre("SELECT LevelID, ParentID, MenuID, SecureLevel FROM Menus WHERE "
                            "MenuURL Like '%it''s.asp%'",
                            kItems + "LevelID = 1 AND SecureLevel <= 7 ORDER BY SortOrder",
                            kItems + "MenuID = 3 AND SecureLevel <= 7 ORDER BY SortOrder",
                            kItems + "ParentID = 4 AND SecureLevel <= 7 ORDER BY SortOrder"));
    EXPECT_THAT(house.response->redirects, IsEmpty());
}

TEST_F(HeaderMenusTest, APageAboveTheUsersLevelIsRefused) {
    house.menus.rows["SELECT LevelID, "] = {{"2", "3", "4", "8"}};
    static_cast<void>(MenuRow(page));
    EXPECT_THAT(house.response->redirects, ElementsAre("/unauthorized.asp"));
}

TEST_F(HeaderMenusTest, HitsAreNotedAndAlertsLinked) {
    set("useMenuRow", "1");
    set("logpagehits", "1");
    house.host.put_setting("WeatherCom_CurrentData", "AlertIDs", "A1,B2", "WeatherData.ini");
    EXPECT_THAT(MenuRow(page), testing::Not(HasSubstr("Weather Alert ")));
    EXPECT_THAT(house.host.log(),
                ElementsAre("Web Log: it's.asp was accessed by 10.0.0.5 the user: anna"));
    set("useAlerts", "1");
    EXPECT_THAT(MenuRow(page),
                AllOf(HasSubstr(">Weather Alert A1</a>"), HasSubstr(">Weather Alert B2</a>")));
}

TEST_F(HeaderMenusTest, WithoutRowsTheSlidingMenuIsThatOfANewUser) {
    set("forumLink", "http://forum");
    EXPECT_EQ(ssmItems(page),
              "YOffset=100;\r\nXOffset=0;\r\nstaticYOffset=30;\r\nslideSpeed=0;\r\n"
              "waitTime=1500;\r\nmenuIsStatic=\"yes\";\r\nmenuWidth=150;\r\nmenuCols=2;\r\n"
              "barLink=\"http://forum\";\r\nbarWidth=20;\r\nbarText=\"Forum\";\r\n"
              "linkTarget=\"_top\";\r\nlinkBGColor=\"white\";\r\n"
              "linkOverBGColor=\"#FFFF99\";\r\n");
    EXPECT_THAT(house.menus.statements,
                ElementsAre(EndsWith(" FROM MenuPOPPref WHERE UserID = 'anna'"),
                            EndsWith("(SELECT Top 1 UserID FROM MenuUsers WHERE SecID = "
                                     "'10.0.0.5' ) ORDER BY P.SortOrder, M.MenuItem")));
}

TEST_F(HeaderMenusTest, TheSlidingMenuIsTheUsers) {
    house.menus.rows["SELECT yoffset"] = {
        {"1", "2", "3", "4", "5", "no", "6", "/b", "Bar", "7", "over", "out", "_new"}};
    house.menus.rows["SELECT P.MenuID"] = {{"1", "Mine", "", "Item", "/item", "1", "1"},
                                           {"2", "", "/own", "Other", "/other", "0", "1"}};
    EXPECT_EQ(ssmItems(page),
              "YOffset=1;\r\nXOffset=2;\r\nstaticYOffset=3;\r\nslideSpeed=4;\r\nwaitTime=5;\r\n"
              "menuIsStatic=\"no\";\r\nmenuWidth=6;\r\nmenuCols=2;\r\nbarLink=\"/b\";\r\n"
              "barWidth=7;\r\nbarText=\"Bar\";\r\nlinkTarget=\"_new\";\r\nlinkBGColor=\"out\";\r\n"
              "linkOverBGColor=\"over\";\r\n"
              "ssmItems[0]=[\"Mine\", \"/item\", \"\"];\r\nssmItems[1]=[\"Other\", \"/own\"];\r\n");
}

}  // namespace
}  // namespace pages
