#include "home/sqlite/home_database.h"

#include <cstdint>
#include <string>

#include "automation/code_page.h"
#include "automation/run_time_error.h"

namespace home {
namespace {

using automation::ErrorNumber;
using automation::RunTimeError;

constexpr std::int64_t kSchemaVersion = 1;

// References and ids are never given twice: AUTOINCREMENT remembers the highest. Moments are
// milliseconds since 1970-01-01 00:00 of the house's wall clock, days are days since then. The
// actions of an event stand one a line.
constexpr const char* kSchema =
    "BEGIN IMMEDIATE;"
    "CREATE TABLE device("
    " ref INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL, hc TEXT NOT NULL,"
    " dc TEXT NOT NULL, location TEXT NOT NULL, dev_type_string TEXT NOT NULL,"
    " interface TEXT NOT NULL, iomisc TEXT NOT NULL, misc INTEGER NOT NULL,"
    " iotype INTEGER NOT NULL, value_list TEXT NOT NULL, buttons TEXT NOT NULL,"
    " status INTEGER NOT NULL, value INTEGER NOT NULL, text TEXT NOT NULL, last_change INTEGER);"
    "CREATE TABLE event("
    " id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL, name_key TEXT NOT NULL UNIQUE,"
    " cause TEXT NOT NULL, actions TEXT NOT NULL, enabled INTEGER NOT NULL, last_run INTEGER,"
    " runs INTEGER NOT NULL, last_day INTEGER);"
    "PRAGMA user_version=1;"
    "COMMIT";

std::string single_text(Database& database, std::string_view sql) {
    Statement statement = database.prepare(sql);
    return statement.step() ? statement.text(0) : std::string();
}

std::int64_t single_number(Database& database, std::string_view sql) {
    Statement statement = database.prepare(sql);
    return statement.step() ? statement.number(0) : 0;
}

RunTimeError unusable(const std::filesystem::path& file, const std::string& why) {
    return {ErrorNumber::DeviceIoError, automation::utf8_to_code_page(file.string() + ": " + why)};
}

void check_whole(Database& database, const std::filesystem::path& file) {
    const std::string verdict = single_text(database, "PRAGMA quick_check(1)");
    if (verdict != "ok") {
        throw unusable(file, "the file is damaged: " + verdict);
    }
}

}  // namespace

Database open_home_database(const std::filesystem::path& file) {
    Database database(file);
    check_whole(database, file);
    const std::int64_t version = single_number(database, "PRAGMA user_version");
    if (version == kSchemaVersion) {
        return database;
    }
    if (version > kSchemaVersion) {
        throw unusable(file, "made by a newer version of this program (schema " +
                                 std::to_string(version) + "; this one knows " +
                                 std::to_string(kSchemaVersion) + ")");
    }
    if (version != 0 || single_number(database, "SELECT count(*) FROM sqlite_schema") != 0) {
        throw unusable(file, "made by another program");
    }
    database.execute(kSchema);
    return database;
}

}  // namespace home
