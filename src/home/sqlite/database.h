#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace home {

// One prepared statement. Must end before its database. All members throw RunTimeError: 61 disk
// full, 70 locked by another program or not writable, 57 for the rest.
class Statement {
  public:
    // Parameters and columns count as SQLite counts them: from 1 and from 0. Texts are UTF-8.
    Statement& bind(int parameter, std::string_view text);
    Statement& bind(int parameter, std::int64_t number);
    Statement& bind(int parameter, std::optional<std::int64_t> number);  // absent is NULL

    // Makes one step: true on a row. At the end, or on an error, the statement is reset, so that
    // it can be run again with the same or other parameters.
    bool step();

    // Columns that a row has.
    [[nodiscard]] int columns() const noexcept;

    // Requires: the last `step` gave a row.
    [[nodiscard]] std::string text(int column) const;
    [[nodiscard]] std::int64_t number(int column) const;
    [[nodiscard]] std::optional<std::int64_t> optional_number(int column) const;  // NULL is absent

  private:
    friend class Database;

    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };

    explicit Statement(sqlite3_stmt* statement) : statement_(statement) {}

    void check(int result) const;

    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

// One SQLite file in WAL mode with synchronous=NORMAL: a change survives the end of the program at
// any point, a power cut may take the last ones, never the file. Waits a moment, not longer, for
// another program's lock. Owned by the store on top of it.
class Database {
  public:
    // Makes the file if it is missing. Throws: RunTimeError 70, 61 or 57 with the path.
    explicit Database(const std::filesystem::path& file);

    // Runs statements that give no rows. Throws: RunTimeError as a Statement.
    void execute(const std::string& sql);

    [[nodiscard]] Statement prepare(std::string_view sql);

    // Row number of the last insertion.
    [[nodiscard]] std::int64_t last_row() const noexcept;

  private:
    struct Close {
        void operator()(sqlite3* database) const noexcept;
    };

    std::unique_ptr<sqlite3, Close> database_;
};

}  // namespace home
