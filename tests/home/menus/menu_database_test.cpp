#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/run_time_error.h"
#include "home/house_fakes.h"
#include "home/menus/sql_dialect.h"
#include "home/menus/sqlite_menu_database.h"
#include "home/temporary_folder.h"

namespace home {
namespace {

using automation::RunTimeError;
using host::DatabaseRow;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

struct Statements {
    const char* given;
    const char* rewritten;
};

constexpr Statements kStatements[]{
    {"SELECT a FROM b", "SELECT a FROM b"},
    {"SELECT Top 1 a FROM b ORDER BY c", "SELECT a FROM b ORDER BY c LIMIT 1"},
    {"select distinct top (5) a from b;", "select DISTINCT a from b LIMIT 5;"},
    {"SELECT a FROM b WHERE c = (SELECT TOP 1 d FROM e WHERE f='x' ) ORDER BY g",
     "SELECT a FROM b WHERE c = (SELECT d FROM e WHERE f='x' LIMIT 1) ORDER BY g"},
    {"SELECT TOP 2 a, (SELECT TOP 1 f(b) FROM c) FROM d",
     "SELECT a, (SELECT f(b) FROM c LIMIT 1) FROM d LIMIT 2"},
    {"SELECT a FROM b WHERE c = 'SELECT Top 1 Now() ''#1/1/2026# & x'",
     "SELECT a FROM b WHERE c = 'SELECT Top 1 Now() ''#1/1/2026# & x'"},
    {"SELECT [Top 1], \"Now()\" FROM t -- Now()", "SELECT [Top 1], \"Now()\" FROM t -- Now()"},
    {"UPDATE a SET b =  Now()  WHERE c = getdate ( )",
     "UPDATE a SET b =  '2026-11-24 16:03:03'  WHERE c = '2026-11-24 16:03:03'"},
    {"SELECT Date(), Time(), date(x), Nower()",
     "SELECT '2026-11-24', '16:03:03', date(x), Nower()"},
    {"SELECT a FROM b WHERE c > #11/24/2026 4:03 PM# AND d < #2026-01-02#",
     "SELECT a FROM b WHERE c > '2026-11-24 16:03:00' AND d < '2026-01-02 00:00:00'"},
    {"SELECT a & '&' & b FROM c", "SELECT a || '&' || b FROM c"},
    {"SELECT Len(a), Mid(b, 2), UCase(c), IsNull(d, 0) FROM e",
     "SELECT length(a), substr(b, 2), upper(c), ifnull(d, 0) FROM e"},
    {"DELETE * FROM a WHERE top = 1", "DELETE FROM a WHERE top = 1"},
    {"", ""},
};

TEST(SqlDialect, BecomesWhatTheDatabaseRuns) {
    for (const Statements& row : kStatements) {
        EXPECT_EQ(in_sqlite_words(row.given, StillClock().now()), row.rewritten);
    }
}

TEST(SqlDialect, TellsWhatItDoesNotTake) {
    for (const char* statement :
         {"SELECT TOP 5 PERCENT a FROM b", "SELECT TOP x FROM b", "SELECT 'a FROM b",
          "SELECT a FROM b WHERE c = #tomorrow#", "SELECT 1; DELETE FROM Menus"}) {
        EXPECT_THROW(static_cast<void>(in_sqlite_words(statement, StillClock().now())),
                     RunTimeError)
            << statement;
    }
}

class MenuDatabaseTest : public testing::Test {
  protected:
    TemporaryFolder folder_;
    StillClock clock_;
    SqliteMenuDatabase menus_{folder_.path() / "menus.db", clock_};
};

// The statements of the pages, as they are.
TEST_F(MenuDatabaseTest, AFreshHomeAnswersTheStatementsOfItsPages) {
    EXPECT_THAT(
        menus_.run("SELECT UserID, SecureLevel, SecID FROM MenuUsers WHERE SecID = '127.0.0.1' "),
        ElementsAre(DatabaseRow{"admin", "10", "127.0.0.1"}));
    EXPECT_THAT(menus_.run("SELECT MenuItem, MenuURL, ParentID, SecureLevel, MenuImage FROM Menus "
                           "WHERE LevelID = 1 AND SecureLevel <= 0 ORDER BY SortOrder"),
                ElementsAre(DatabaseRow{"Home", "/", "0", "0", ""},
                            DatabaseRow{"Slideshow", "/VeloraSlideshow.asp", "0", "0", ""},
                            DatabaseRow{"Slides", "/slides/welcome.html", "0", "0", ""}));
    EXPECT_THAT(menus_.run("SELECT LevelID, ParentID, MenuID, SecureLevel FROM Menus WHERE "
                           "MenuURL Like '%NOTICE.htm%'"),
                ElementsAre(DatabaseRow{"2", "3", "4", "0"}));
    EXPECT_THAT(
        menus_.run("SELECT yoffset, xoffset, staticyoffset, slidespeed, waittime, menuIsStatic, "
                   "menuwidth, barlink, bartext, barwidth, mouseovercolor, mouseoutcolor, "
                   "targetwindow FROM MenuPOPPref WHERE UserID = 'ADMIN'"),
        ElementsAre(SizeIs(13)));
    EXPECT_THAT(
        menus_.run("SELECT P.MenuID, P.MenuText, P.MenuURL, M.MenuItem, M.MenuURL, P.IsHeader, "
                   "P.IsActive FROM MenuPOP P LEFT JOIN Menus M ON P.MenuID = M.MenuID WHERE "
                   "P.IsActive=1 AND P.UserID = (SELECT Top 1 UserID FROM MenuUsers WHERE SecID = "
                   "'127.0.0.1' ) ORDER BY P.SortOrder, M.MenuItem"),
        ElementsAre(DatabaseRow{"", "House", "", "", "", "1", "1"},
                    DatabaseRow{"1", "", "", "Home", "/", "0", "1"},
                    DatabaseRow{"2", "", "", "Slideshow", "/VeloraSlideshow.asp", "0", "1"},
                    DatabaseRow{"5", "", "", "Links", "/links_touchscreen.htm", "0", "1"}));
}

TEST_F(MenuDatabaseTest, ChangesSurviveANewStart) {
    EXPECT_THAT(
        menus_.run("UPDATE MenuUsers SET LastSessTime =  Now()  WHERE SecID = '127.0.0.1' "),
        IsEmpty());
    menus_.run("INSERT INTO MenuUsers VALUES('M\xFCller', 5, NULL, NULL)");
    SqliteMenuDatabase again(folder_.path() / "menus.db", clock_);
    EXPECT_THAT(again.run("SELECT LastSessTime FROM MenuUsers WHERE UserID = 'admin'"),
                ElementsAre(DatabaseRow{"2026-11-24 16:03:03"}));
    EXPECT_THAT(again.run("SELECT UserID FROM MenuUsers WHERE SecureLevel = 5"),
                ElementsAre(DatabaseRow{"M\xFCller"}));
}

TEST_F(MenuDatabaseTest, AStatementThatFailsSaysWhy) {
    try {
        menus_.run("SELECT a FROM Nowhere");
        FAIL() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_THAT(error.description(), HasSubstr("no such table: Nowhere"));
    }
    EXPECT_THROW(menus_.run(""), RunTimeError);
}

TEST_F(MenuDatabaseTest, AFileOfAnotherProgramIsLeftAlone) {
    Database other(folder_.path() / "other.db");
    other.execute("CREATE TABLE t(a)");
    EXPECT_THROW(SqliteMenuDatabase(folder_.path() / "other.db", clock_), RunTimeError);
}

}  // namespace
}  // namespace home
