#include "home/sqlite/sqlite_log.h"

#include <array>
#include <chrono>
#include <cstdio>

#include "automation/code_page.h"
#include "automation/run_time_error.h"

namespace home {
namespace {

using automation::code_page_to_utf8;
using automation::utf8_to_code_page;

constexpr const char* kSchema =
    "CREATE TABLE IF NOT EXISTS log("
    " id INTEGER PRIMARY KEY, time TEXT NOT NULL, type TEXT NOT NULL, message TEXT NOT NULL)";

Database open_log(const std::filesystem::path& file) {
    Database database(file);
    database.execute(kSchema);
    return database;
}

std::string iso_text(automation::DateTime moment) {
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(moment - day);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03d",
                  static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                  static_cast<unsigned>(date.day()), static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()),
                  static_cast<int>(time.subseconds().count()));
    return text.data();
}

std::vector<LogLine> lines_of(Statement& statement) {
    std::vector<LogLine> lines;
    while (statement.step()) {
        lines.push_back({statement.number(0), statement.text(1),
                         utf8_to_code_page(statement.text(2)),
                         utf8_to_code_page(statement.text(3))});
    }
    return lines;
}

}  // namespace

SqliteLog::SqliteLog(const std::filesystem::path& file, const host::Clock& clock, LogBounds bounds)
    : clock_(clock),
      bounds_(bounds),
      database_(open_log(file)),
      insert_(database_.prepare("INSERT INTO log(time, type, message) VALUES(?, ?, ?)")),
      last_(database_.prepare("SELECT * FROM (SELECT id, time, type, message FROM log"
                              " ORDER BY id DESC LIMIT ?) ORDER BY id")),
      after_(database_.prepare("SELECT id, time, type, message FROM log WHERE id > ?"
                               " ORDER BY id LIMIT ?")),
      prune_(database_.prepare("DELETE FROM log WHERE id <= (SELECT max(id) FROM log) - ?")) {}

void SqliteLog::Writelog(std::string_view type, std::string_view message) {
    LogLine line{0, iso_text(clock_.now()), std::string(type), std::string(message)};
    insert_.bind(1, line.time)
        .bind(2, code_page_to_utf8(type))
        .bind(3, code_page_to_utf8(message))
        .step();
    line.id = database_.last_row();
    ++lines_since_prune_;
    if (lines_since_prune_ >= bounds_.slack) {
        prune();
    }
    followers_.call(line);
}

void SqliteLog::prune() {
    try {
        prune_.bind(1, bounds_.kept_lines).step();
        lines_since_prune_ = 0;
    } catch (const automation::RunTimeError&) {
        // The line itself is stored; the next one tries again.
    }
}

std::vector<LogLine> SqliteLog::last(std::int64_t count) {
    return lines_of(last_.bind(1, count));
}

std::vector<LogLine> SqliteLog::after(std::int64_t id, std::int64_t count) {
    return lines_of(after_.bind(1, id).bind(2, count));
}

Subscription SqliteLog::follow(std::function<void(const LogLine&)> follower) {
    return followers_.add(std::move(follower));
}

}  // namespace home
