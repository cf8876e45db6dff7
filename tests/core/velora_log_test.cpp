#include "core/velora_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/guarded.h"
#include "support/memory_host.h"

namespace core {
namespace {

using automation::ErrorNumber;
using automation::guarded;
using automation::RunTimeError;
using support::MemoryHost;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

class VeloraLogTest : public testing::Test {
  protected:
    VeloraLogTest() { log_.attach(&host_); }

    MemoryHost host_;
    VeloraLog log_;
};

TEST_F(VeloraLogTest, ErrorIsToldOnceWithTheNextLine) {
    log_.VeloraWriteLog(kLogType, "before");
    log_.leave_pending(RunTimeError(ErrorNumber::FileNotFound, "No such file: a.txt"));
    log_.VeloraWriteLog(kLogType, "during");
    log_.VeloraWriteLog(kLogType, "after");
    EXPECT_THAT(host_.log(), ElementsAre("zynVelora: before",
                                         MatchesRegex("zynVelora: during Line [0-9]+ "
                                                      "No such file: a.txt"),
                                         "zynVelora: after"));
}

TEST_F(VeloraLogTest, OnlyTheLatestPendingErrorIsTold) {
    ignoring_errors(log_, [] { throw RunTimeError(ErrorNumber::Overflow); });
    ignoring_errors(log_, [] { throw RunTimeError(ErrorNumber::TypeMismatch); });
    log_.VeloraWriteLog(kLogType, "x");
    EXPECT_THAT(host_.log(), ElementsAre(MatchesRegex("zynVelora: x Line [0-9]+ Type mismatch")));
}

TEST_F(VeloraLogTest, GuardedRoutineReportsNameAndErrorAndGivesItsDefault) {
    const std::string text = guarded(
        log_, "DoWork ", []() -> std::string { throw RunTimeError(ErrorNumber::DivisionByZero); });
    const int number =
        guarded(log_, "DoWork ", []() -> int { throw RunTimeError(ErrorNumber::Overflow); });
    EXPECT_EQ(text, "");
    EXPECT_EQ(number, 0);
    EXPECT_THAT(host_.log(),
                ElementsAre(MatchesRegex("zynVelora: DoWork  Line [0-9]+ Division by zero"),
                            MatchesRegex("zynVelora: DoWork  Line [0-9]+ Overflow")));
}

TEST_F(VeloraLogTest, FailureOfTheHostsLogFallsToTheCallersHandler) {
    host_.fail(MemoryHost::Operation::Writelog, 1, ErrorNumber::DiskFull);
    guarded(log_, "Outer ", [&] {
        guarded(log_, "Inner ", [] { throw RunTimeError(ErrorNumber::Overflow); });
        ADD_FAILURE() << "goes on behind a report that failed";
    });
    EXPECT_THAT(host_.log(), ElementsAre(MatchesRegex("zynVelora: Outer  Line [0-9]+ Disk full")));
}

TEST_F(VeloraLogTest, WithoutAHostLinesAreLostButErrorsKept) {
    log_.attach(nullptr);
    guarded(log_, "Early ", [] { throw RunTimeError(ErrorNumber::Overflow); });
    log_.attach(&host_);
    log_.VeloraWriteLog(kLogType, "first");
    EXPECT_THAT(host_.log(), ElementsAre(MatchesRegex("zynVelora: first Line [0-9]+ Overflow")));
}

TEST_F(VeloraLogTest, DebugTextIsNotEvenBuiltWhileDebugIsOff) {
    int built = 0;
    const auto text = [&built] {
        ++built;
        return std::string("detail");
    };
    log_.debug(text);
    EXPECT_EQ(built, 0);
    EXPECT_THAT(host_.log(), IsEmpty());
    log_.set_debug_log(true);
    log_.debug(text);
    log_.debug_as("zynVelora Debug hall", text);
    EXPECT_EQ(built, 2);
    EXPECT_THAT(host_.log(),
                ElementsAre("zynVelora Debug: detail", "zynVelora Debug hall: detail"));
}

}  // namespace
}  // namespace core
