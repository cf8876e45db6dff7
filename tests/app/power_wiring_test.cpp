#include "app/power_wiring.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "home/device_table.h"
#include "home/event_board.h"
#include "home/house_fakes.h"
#include "home/ini/ini_files.h"
#include "home/temporary_folder.h"
#include "home/x10_line.h"

namespace app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PowerWiringTest : public testing::Test {
  protected:
    [[nodiscard]] PowerWiring wired(const std::string& section) {
        folder_.write("settings.ini", section);
        return {settings_, line_, trace_, "/house/home",
                [this](const std::filesystem::path& unit, const std::string& command,
                       const std::string& occasion) {
                    trace_.lines.push_back(unit.string() + ": " + command + " for " + occasion);
                }};
    }

    std::vector<std::string> happened() { return std::exchange(trace_.lines, {}); }

    TemporaryFolder folder_;
    Trace trace_;
    PostedEvents pump_;
    home::DeviceTable devices_;
    home::EventBoard events_;
    home::X10Line line_{pump_, devices_, trace_, events_};
    home::IniFiles settings_{folder_.path(),
                             [this](const std::string& text) { trace_.lines.push_back(text); }};
};

TEST_F(PowerWiringTest, OffAndOnReachTheUnitBehindTheModule) {
    const PowerWiring wiring = wired(
        "[X10 Modules]\na1 = \"../units/kitchen\"\nA2=/elsewhere/K\xFC"
        "che\nA3=\n");
    line_.ExecX10("A1", "OFF");
    EXPECT_THAT(happened(),
                ElementsAre("log X10: A1 off", "/house/units/kitchen: power off for a1 off"));
    line_.ExecX10("A2", "on");
    EXPECT_THAT(happened(), ElementsAre("log X10: A2 on",
                                        "/elsewhere/K\xC3\xBC"
                                        "che: power on for A2 on"));
    line_.ExecX10("A1", "dim");
    line_.ExecX10("A3", "off");
    line_.ExecX10("A4", "off");
    EXPECT_THAT(happened(), ElementsAre("log X10: A1 dim", "log X10: A3 off", "log X10: A4 off"));
}

TEST_F(PowerWiringTest, AllModulesAreOnWhenTheHouseComesUp) {
    PowerWiring wiring = wired("[X10 Modules]\nA1=kitchen\nA3=\n");
    EXPECT_FALSE(line_.isOn("A1"));
    wiring.switch_all_on();
    EXPECT_TRUE(line_.isOn("A1"));
    EXPECT_TRUE(line_.isOn("A3"));
    EXPECT_FALSE(line_.isOn("A2"));
    EXPECT_THAT(happened(), ElementsAre("log X10: A1 on", "/house/home/kitchen: power on for A1 on",
                                        "log X10: A3 on"));
}

TEST_F(PowerWiringTest, WhatIsNoCodeIsToldAndTheRestIsWired) {
    const PowerWiring wiring = wired("[X10 Modules]\nQ1=x\nA1=y\n[Other]\nA2=z\n");
    EXPECT_THAT(happened(), ElementsAre("log Settings: settings.ini, section X10 Modules: "
                                        "No X10 code: 'Q1'"));
    line_.ExecX10("A2", "off");
    line_.ExecX10("A1", "off");
    EXPECT_THAT(happened(), ElementsAre("log X10: A2 off", "log X10: A1 off",
                                        "/house/home/y: power off for A1 off"));
}

}  // namespace
}  // namespace app
