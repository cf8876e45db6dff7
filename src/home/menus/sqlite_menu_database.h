#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "home/sqlite/database.h"
#include "host/menu_database.h"

namespace host {
class Clock;
}

namespace home {

// The users and menus of a home, in a file of their own, so that the statements of pages do not
// meet the tables of the devices. Owned by the embedded host.
class SqliteMenuDatabase : public host::MenuDatabase {
  public:
    // The clock must outlive the database. Throws: as `open_menu_database`.
    SqliteMenuDatabase(const std::filesystem::path& file, const host::Clock& clock);

    [[nodiscard]] std::string type() const override { return "SQLite"; }

    // One statement, in SQLite's words or those that `in_sqlite_words` knows.
    // Throws: RunTimeError 5 for several statements and what `in_sqlite_words` refuses; 57, 61 or
    // 70 as `Statement`.
    std::vector<host::DatabaseRow> run(std::string_view statement) override;

  private:
    const host::Clock& clock_;
    Database database_;
};

}  // namespace home
