#include "home/menus/menu_tables.h"

#include <cstdint>
#include <string>

#include "automation/code_page.h"
#include "automation/run_time_error.h"

namespace home {
namespace {

constexpr std::int64_t kSchemaVersion = 1;

// A user is known by the address of its client. Levels go from 0, a guest, to 10.
constexpr const char* kSchema =
    "BEGIN IMMEDIATE;"
    "CREATE TABLE MenuUsers("
    " UserID TEXT PRIMARY KEY COLLATE NOCASE, SecureLevel INTEGER NOT NULL,"
    " SecID TEXT COLLATE NOCASE, LastSessTime TEXT);"
    "CREATE TABLE Menus("
    " MenuID INTEGER PRIMARY KEY, MenuItem TEXT NOT NULL COLLATE NOCASE,"
    " MenuURL TEXT NOT NULL COLLATE NOCASE, MenuImage TEXT, LevelID INTEGER NOT NULL,"
    " ParentID INTEGER NOT NULL, SecureLevel INTEGER NOT NULL, SortOrder INTEGER NOT NULL);"
    "CREATE TABLE MenuPOP("
    " PopID INTEGER PRIMARY KEY, UserID TEXT NOT NULL COLLATE NOCASE, MenuID INTEGER,"
    " MenuText TEXT, MenuURL TEXT, IsHeader INTEGER NOT NULL, IsActive INTEGER NOT NULL,"
    " SortOrder INTEGER NOT NULL);"
    "CREATE TABLE MenuPOPPref("
    " UserID TEXT PRIMARY KEY COLLATE NOCASE, yoffset INTEGER, xoffset INTEGER,"
    " staticyoffset INTEGER, slidespeed INTEGER, waittime INTEGER, menuIsStatic TEXT,"
    " menuwidth INTEGER, barlink TEXT, bartext TEXT, barwidth INTEGER, mouseovercolor TEXT,"
    " mouseoutcolor TEXT, targetwindow TEXT);"
    "INSERT INTO MenuUsers VALUES('admin', 10, '127.0.0.1', NULL), ('guest', 0, NULL, NULL);"
    "INSERT INTO Menus VALUES"
    " (1, 'Home', '/', NULL, 1, 0, 0, 1),"
    " (2, 'Slideshow', '/VeloraSlideshow.asp', NULL, 1, 0, 0, 2),"
    " (3, 'Slides', '/slides/welcome.html', NULL, 1, 0, 0, 3),"
    " (4, 'Notice', '/slides/notice.htm', NULL, 2, 3, 0, 1),"
    " (5, 'Links', '/links_touchscreen.htm', NULL, 1, 0, 5, 4);"
    "INSERT INTO MenuPOP(UserID, MenuID, MenuText, MenuURL, IsHeader, IsActive, SortOrder) VALUES"
    " ('admin', NULL, 'House', '', 1, 1, 1),"
    " ('admin', 1, '', '', 0, 1, 2),"
    " ('admin', 2, '', '', 0, 1, 3),"
    " ('admin', 5, '', '', 0, 1, 4);"
    "INSERT INTO MenuPOPPref VALUES"
    " ('admin', 100, 0, 30, 0, 1500, 'yes', 150, '/', 'HOUSE', 20, '#FFFF99', 'white', '_top');"
    "PRAGMA user_version=1;"
    "COMMIT";

std::int64_t single_number(Database& database, std::string_view sql) {
    Statement statement = database.prepare(sql);
    return statement.step() ? statement.number(0) : 0;
}

}  // namespace

Database open_menu_database(const std::filesystem::path& file) {
    Database database(file);
    const std::int64_t version = single_number(database, "PRAGMA user_version");
    if (version == kSchemaVersion) {
        return database;
    }
    if (version != 0 || single_number(database, "SELECT count(*) FROM sqlite_schema") != 0) {
        throw automation::RunTimeError(
            automation::ErrorNumber::DeviceIoError,
            automation::utf8_to_code_page(file.string()) +
                ": made by another program, or by a newer version of this one");
    }
    database.execute(kSchema);
    return database;
}

}  // namespace home
