#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "home/sqlite/database.h"
#include "home/subscriptions.h"
#include "host/clock.h"
#include "host/log.h"

namespace home {

// One line of the log. Texts are in code page 1252.
struct LogLine {
    std::int64_t id = 0;  // rises by 1 from line to line
    std::string time;     // local, ISO 8601 with milliseconds: "2026-11-24T16:03:03.042"
    std::string type;
    std::string message;

    friend bool operator==(const LogLine&, const LogLine&) = default;
};

// How much the log keeps: the newest `kept_lines`, and up to `slack` more until it is pruned.
struct LogBounds {
    std::int64_t kept_lines = 100'000;
    std::int64_t slack = 1'000;
};

// The log in a SQLite file, whose texts are UTF-8. Owned by the host. A line is committed when
// `Writelog` returns, so that it survives a kill. Other programs may read the file meanwhile.
class SqliteLog : public host::Log {
  public:
    // Makes the file if it is missing; its folder must be there. The clock must outlive the log.
    // Throws: RunTimeError 70, 61 or 57.
    SqliteLog(const std::filesystem::path& file, const host::Clock& clock, LogBounds bounds = {});

    // Throws: RunTimeError 61 disk full, 70 locked by another program, 57 for the rest; the line
    // is then not stored and no follower hears of it.
    void Writelog(std::string_view type, std::string_view message) override;

    // The newest lines, at most `count`, oldest first. Throws: RunTimeError 70 or 57.
    [[nodiscard]] std::vector<LogLine> last(std::int64_t count);

    // The lines behind `id`, at most `count`, oldest first. Throws: RunTimeError 70 or 57.
    [[nodiscard]] std::vector<LogLine> after(std::int64_t id, std::int64_t count);

    // Told of each line once it is stored. A follower must not throw and must not write to the log.
    [[nodiscard]] Subscription follow(std::function<void(const LogLine&)> follower);

  private:
    void prune();

    const host::Clock& clock_;
    LogBounds bounds_;
    Database database_;
    Statement insert_;
    Statement last_;
    Statement after_;
    Statement prune_;
    std::int64_t lines_since_prune_ = 0;
    Subscriptions<const LogLine&> followers_;
};

}  // namespace home
