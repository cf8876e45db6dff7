#include "automation/guarded.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace automation {
namespace {

struct RecordingLog {
    std::vector<std::string> lines;

    void report(std::string_view where, const RunTimeError& error) {
        lines.push_back(std::string(where) + error.description());
    }
};

TEST(Guarded, ReportsOnceAndGivesTheDefault) {
    RecordingLog log;
    const auto inner = [&log] {
        return guarded(log, "Inner ", []() -> int { throw RunTimeError(ErrorNumber::Overflow); });
    };
    EXPECT_EQ(guarded(log, "Outer ", inner), 0);
    EXPECT_EQ(log.lines, std::vector<std::string>{"Inner Overflow"});
}

TEST(Guarded, PassesTheResult) {
    RecordingLog log;
    const auto make = [] { return std::make_unique<int>(3); };
    EXPECT_EQ(*guarded(log, "Make ", make), 3);
    EXPECT_TRUE(log.lines.empty());
}

TEST(Guarded, LetsForeignExceptionsPass) {
    RecordingLog log;
    const auto fail = [] { throw std::logic_error("broken"); };
    EXPECT_THROW(guarded(log, "Fail ", fail), std::logic_error);
    EXPECT_TRUE(log.lines.empty());
}

TEST(RunTimeError, TellsStandardDescriptionAndLine) {
    const std::uint_least32_t line = __LINE__ + 1;
    const RunTimeError error(ErrorNumber::ActiveXCannotCreateObject);
    EXPECT_EQ(error.description(), "ActiveX component can't create object");
    EXPECT_EQ(error.line(), line);
    EXPECT_EQ(error.with_description("other").line(), line);
    EXPECT_EQ(standard_description(static_cast<ErrorNumber>(1000)),
              "Application-defined or object-defined error");
}

}  // namespace
}  // namespace automation
