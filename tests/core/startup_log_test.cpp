#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/run_time_error.h"
#include "core/instance.h"
#include "support/fake_platform.h"

namespace core {
namespace {

using namespace std::chrono_literals;

class StartupLogTest : public testing::Test {
  protected:
    StartupLogTest() { instance_.application_path = "C:\\HomeSeer"; }

    support::FakeMachine machine_;
    Instance instance_{machine_.platform()};
};

constexpr const char* kFile = "C:\\HomeSeer\\Data\\zynVelora\\StartupLog.txt";

TEST_F(StartupLogTest, MakesFoldersAndFileAndThenAppends) {
    machine_.files.put_folder("C:\\HomeSeer");
    StartupLog(instance_, "InitUtilities", "170");
    machine_.pump.run_for(1h);
    StartupLog(instance_, "InitUtilities", "171");
    EXPECT_EQ(machine_.files.read(kFile),
              "11/24/2026 10:00:00 AM | InitUtilities | 170\r\n"
              "11/24/2026 11:00:00 AM | InitUtilities | 171\r\n");
}

TEST_F(StartupLogTest, FailureGoesToTheCaller) {
    machine_.files.put_folder("C:\\HomeSeer");
    for (const std::size_t writes_before : {0U, 1U, 2U, 3U}) {
        support::FakeMachine machine;
        machine.files.put_folder("C:\\HomeSeer");
        Instance instance(machine.platform());
        instance.application_path = "C:\\HomeSeer";
        machine.files.fail_after(writes_before, automation::ErrorNumber::DiskFull);
        EXPECT_THROW(StartupLog(instance, "InitUtilities", "170"), automation::RunTimeError)
            << writes_before;
    }
}

}  // namespace
}  // namespace core
