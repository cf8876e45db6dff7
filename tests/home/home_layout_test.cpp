#include "home/home_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <optional>

#include "automation/run_time_error.h"
#include "home/home_lock.h"
#include "home/temporary_folder.h"

namespace home {
namespace {

namespace fs = std::filesystem;
using automation::RunTimeError;
using testing::HasSubstr;

class HomeLayoutTest : public testing::Test {
  protected:
    HomeLayoutTest() {
        folder_.write("data/Config/settings.ini", "svrport=@SERVER_PORT@\nagain=@SERVER_PORT@\n");
        folder_.write("data/HTML/index.htm", "@SERVER_PORT@");
        folder_.write("data/HTML/Help/en/a.htm", "help");
    }

    void lay_out() {
        lay_out_home(folder_.path() / "home", folder_.path() / "data", {{"@SERVER_PORT@", "8080"}});
    }

    TemporaryFolder folder_;
};

TEST_F(HomeLayoutTest, AMissingHomeComesUpWhole) {
    lay_out();
    for (const char* name :
         {"Config", "HTML/VeloraTemp", "HTML/images/Velora", "HTML/includes", "Scripts", "Data"}) {
        EXPECT_TRUE(fs::is_directory(folder_.path() / "home" / name)) << name;
    }
    EXPECT_EQ(folder_.read("home/Config/settings.ini"), "svrport=8080\nagain=8080\n");
    EXPECT_EQ(folder_.read("home/HTML/index.htm"), "@SERVER_PORT@");
    EXPECT_EQ(folder_.read("home/HTML/Help/en/a.htm"), "help");
}

TEST_F(HomeLayoutTest, AnExistingHomeIsOnlyCompleted) {
    folder_.write("home/Config/settings.ini", "mine");
    fs::create_directories(folder_.path() / "home/HTML");
    fs::create_symlink("elsewhere", folder_.path() / "home/HTML/index.htm");
    lay_out();
    EXPECT_EQ(folder_.read("home/Config/settings.ini"), "mine");
    EXPECT_TRUE(fs::is_symlink(folder_.path() / "home/HTML/index.htm"));
    EXPECT_EQ(folder_.read("home/HTML/Help/en/a.htm"), "help");
}

TEST_F(HomeLayoutTest, NamesWhatStandsInTheWay) {
    folder_.write("home/HTML", "a file");
    try {
        lay_out();
        ADD_FAILURE() << "made a folder of a file";
    } catch (const RunTimeError& error) {
        EXPECT_THAT(error.description(), HasSubstr("home/HTML"));
    }
}

TEST_F(HomeLayoutTest, OneDaemonForEachHome) {
    lay_out();
    std::optional<HomeLock> first(std::in_place, folder_.path() / "home", "daemon.lock");
    try {
        const HomeLock second(folder_.path() / "home", "daemon.lock");
        ADD_FAILURE() << "two daemons in one home";
    } catch (const RunTimeError& error) {
        EXPECT_THAT(error.description(),
                    HasSubstr("is in use by process " + std::to_string(::getpid())));
    }
    first.reset();
    EXPECT_NO_THROW(HomeLock(folder_.path() / "home", "daemon.lock"));
    EXPECT_THROW(HomeLock(folder_.path() / "nowhere", "daemon.lock"), RunTimeError);
}

}  // namespace
}  // namespace home
