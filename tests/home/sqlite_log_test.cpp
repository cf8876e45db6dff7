#include "home/sqlite/sqlite_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "automation/run_time_error.h"
#include "home/house_fakes.h"
#include "home/temporary_folder.h"

namespace home {
namespace {

using automation::RunTimeError;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> messages(const std::vector<LogLine>& lines) {
    std::vector<std::string> texts;
    for (const LogLine& line : lines) {
        texts.push_back(line.message);
    }
    return texts;
}

class SqliteLogTest : public testing::Test {
  protected:
    void write(std::initializer_list<const char*> lines, SqliteLog& log) {
        for (const char* line : lines) {
            log.Writelog("zynVelora", line);
        }
    }

    TemporaryFolder folder_;
    StillClock clock_;
    std::filesystem::path file_ = folder_.path() / "log.db";
};

TEST_F(SqliteLogTest, KeepsLinesInOrderOverARestart) {
    {
        SqliteLog log(file_, clock_);
        write({"one", "M\xFCller"}, log);
    }
    SqliteLog log(file_, clock_);
    write({"three", std::string("").c_str()}, log);
    EXPECT_EQ(log.last(4).at(1), (LogLine{2, "2026-11-24T16:03:03.042", "zynVelora", "M\xFCller"}));
    EXPECT_THAT(messages(log.last(2)), ElementsAre("three", ""));
    EXPECT_THAT(messages(log.after(1, 2)), ElementsAre("M\xFCller", "three"));
    EXPECT_THAT(log.after(4, 10), IsEmpty());
    Statement stored = Database(file_).prepare("SELECT message FROM log WHERE id = 2");
    ASSERT_TRUE(stored.step());
    EXPECT_EQ(stored.text(0), "M\xC3\xBCller");
}

TEST_F(SqliteLogTest, KeepsTheNewestLinesOnly) {
    SqliteLog log(file_, clock_, {.kept_lines = 3, .slack = 2});
    write({"1", "2", "3", "4", "5"}, log);
    EXPECT_THAT(messages(log.last(10)), ElementsAre("2", "3", "4", "5"));
    write({"6"}, log);
    EXPECT_THAT(messages(log.last(10)), ElementsAre("4", "5", "6"));
}

TEST_F(SqliteLogTest, FollowersHearOfStoredLinesUntilTheyLeave) {
    SqliteLog log(file_, clock_);
    std::vector<std::string> heard;
    std::optional<Subscription> second;
    const Subscription first = log.follow([&](const LogLine& line) {
        heard.push_back("first " + std::to_string(line.id) + " " + line.message);
        second.reset();
    });
    second = log.follow([&](const LogLine& line) { heard.push_back("second " + line.message); });
    write({"a", "b"}, log);
    EXPECT_THAT(heard, ElementsAre("first 1 a", "first 2 b"));
}

TEST_F(SqliteLogTest, ALockedFileIsAnErrorAndPasses) {
    SqliteLog log(file_, clock_);
    int heard = 0;
    const Subscription follower = log.follow([&](const LogLine&) { ++heard; });
    {
        Database other(file_);
        other.execute("BEGIN IMMEDIATE");
        try {
            log.Writelog("t", "lost");
            ADD_FAILURE() << "stored in a locked file";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), 70) << error.description();
        }
    }
    log.Writelog("t", "kept");
    EXPECT_THAT(messages(log.last(10)), ElementsAre("kept"));
    EXPECT_EQ(heard, 1);
}

TEST_F(SqliteLogTest, NamesTheFileThatItCannotUse) {
    folder_.write("broken.db", std::string(4096, 'x'));
    for (const char* name : {"broken.db", "no/folder/log.db"}) {
        try {
            const SqliteLog log(folder_.path() / name, clock_);
            ADD_FAILURE() << name;
        } catch (const RunTimeError& error) {
            EXPECT_THAT(error.description(), testing::HasSubstr(name));
        }
    }
}

TEST_F(SqliteLogTest, AFullDiskIsError61) {
    Database database(file_);
    database.execute("CREATE TABLE t(x); PRAGMA max_page_count=4");
    Statement insert = database.prepare("INSERT INTO t VALUES(?)");
    try {
        insert.bind(1, std::string(100'000, 'x')).step();
        ADD_FAILURE() << "stored on a full disk";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), 61) << error.description();
    }
    EXPECT_FALSE(insert.bind(1, "small").step()) << "usable again";
}

}  // namespace
}  // namespace home
