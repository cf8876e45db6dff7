#include "home/embedded_host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "automation/run_time_error.h"
#include "home/home_layout.h"
#include "home/house_fakes.h"
#include "home/temporary_folder.h"

namespace home {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class EmbeddedHostTest : public testing::Test {
  protected:
    EmbeddedHostTest() { lay_out_home(folder_.path(), folder_.path() / "Data", {}); }

    [[nodiscard]] EmbeddedHostOptions options() {
        EmbeddedHostOptions options;
        options.home = folder_.path() / "";
        options.error_output = &errors_;
        return options;
    }

    TemporaryFolder folder_;
    PostedEvents pump_;
    StillClock clock_;
    std::ostringstream errors_;
};

TEST_F(EmbeddedHostTest, SettingsChooseTheGeneration) {
    EXPECT_EQ(EmbeddedHost(pump_, clock_, options()).Version(), "2.5.0");
    folder_.write("Config/settings.ini", "[Settings]\nHostVersion=\"1.7.0\"\nno setting\n");
    EmbeddedHost host(pump_, clock_, options());
    EXPECT_EQ(host.Version(), "1.7.0");
    EXPECT_EQ(host.log().last(1).at(0).message, "settings.ini, line 3: no '=' in 'no setting'");
}

TEST_F(EmbeddedHostTest, NamesItsHomeAsTheLogicDoes) {
    EmbeddedHost host(pump_, clock_, options());
    std::string wanted = folder_.path().string();
    std::ranges::replace(wanted, '/', '\\');
    EXPECT_EQ(host.GetAppPath(), wanted);
    EXPECT_EQ(host.type_name(), "EmbeddedHost");
    EXPECT_EQ(host.GetHSIface(), &host);
}

TEST_F(EmbeddedHostTest, GivesAHouseCodeThatNobodyHas) {
    EmbeddedHost host(pump_, clock_, options());
    EXPECT_EQ(host.GetNextFreeIOCode(), '[');
    host.NewDevice("a", "[99");
    EXPECT_EQ(host.GetNextFreeIOCode(), ']');
    for (const char code : std::string("]^_`{|}!$%&()*+-.:<>?@")) {
        host.NewDevice("a", code + std::string("99"));
    }
    EXPECT_THROW(static_cast<void>(host.GetNextFreeIOCode()), automation::RunTimeError);
}

TEST_F(EmbeddedHostTest, KeepsMenuAndValues) {
    EmbeddedHost host(pump_, clock_, options());
    for (const char* label : {"GUI Setup", "Test", "GUI Setup"}) {
        host.RegisterMenu("zynVelora", label);
    }
    EXPECT_THAT(host.menu(),
                ElementsAre(MenuEntry{"zynVelora", "GUI Setup"}, MenuEntry{"zynVelora", "Test"}));
    host.NewDevice("Velora Display", "[11");
    host.ValueChangeEvent("[11", 3);
    EXPECT_EQ(host.DeviceValue("[11"), 3);
}

TEST_F(EmbeddedHostTest, LosesNoLogLine) {
    EmbeddedHost host(pump_, clock_, options());
    Database other(folder_.path() / "Data/log.db");
    other.execute("BEGIN IMMEDIATE");
    host.Writelog("zynVelora", "M\xFCller");
    EXPECT_THAT(errors_.str(), StartsWith("zynVelora: M\xC3\xBCller (not in the log: "));
    EXPECT_THAT(errors_.str(), HasSubstr("locked"));
}

TEST_F(EmbeddedHostTest, X10GoesToTheLog) {
    EmbeddedHost host(pump_, clock_, options());
    host.ExecX10("A1", "off");
    EXPECT_TRUE(host.IsOff("A1"));
    const LogLine line = host.log().last(1).at(0);
    EXPECT_EQ(line.type + ": " + line.message, "X10: A1 off");
}

}  // namespace
}  // namespace home
