#include "home/menus/sqlite_menu_database.h"

#include "automation/code_page.h"
#include "home/menus/menu_tables.h"
#include "home/menus/sql_dialect.h"
#include "host/clock.h"

namespace home {

SqliteMenuDatabase::SqliteMenuDatabase(const std::filesystem::path& file, const host::Clock& clock)
    : clock_(clock), database_(open_menu_database(file)) {}

std::vector<host::DatabaseRow> SqliteMenuDatabase::run(std::string_view statement) {
    Statement prepared =
        database_.prepare(automation::code_page_to_utf8(in_sqlite_words(statement, clock_.now())));
    std::vector<host::DatabaseRow> rows;
    while (prepared.step()) {
        host::DatabaseRow& row = rows.emplace_back();
        for (int column = 0; column < prepared.columns(); ++column) {
            row.push_back(automation::utf8_to_code_page(prepared.text(column)));
        }
    }
    return rows;
}

}  // namespace home
