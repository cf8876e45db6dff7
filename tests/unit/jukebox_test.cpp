#include <gmock/gmock.h>

#include "unit/running_unit.h"

namespace unit {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using testing::RunningUnit;

// One connection with one text.
void send_music(const RunningUnit& unit, std::string_view text) {
    auto client = unit.connect_to_jukebox();
    client.send(text);
    client.close();
}

bool has_music(const nlohmann::json& state) {
    return state["jukebox"]["commands"] == 1;
}

TEST(UnitJukebox, TakesAllThatComesOnAConnectionAsOneText) {
    const RunningUnit unit;
    auto client = unit.connect_to_jukebox();
    client.send("play ");
    client.send("all\r\n");
    client.close();
    EXPECT_EQ(unit.state_when(has_music)["jukebox"]["last"], "play all\r\n");
    EXPECT_EQ(unit.state()["requests"], 0);
    EXPECT_THAT(unit.file("requests.log"), EndsWith("\tMUSIC\tplay all??\tok\n"));
    EXPECT_THAT(unit.file("state.json"), HasSubstr("\"commands\": 1"));
}

TEST(UnitJukebox, ObeysFaults) {
    const struct {
        std::string fault;
        std::string logged;
    } rows[] = {{"silent", "stop\tsilent"},
                {"not-found", "stop\tnot-found"},
                {"hang", "stop\thang"},
                {"drop", "-\tdrop"}};

    for (const auto& row : rows) {
        const RunningUnit unit;
        EXPECT_EQ(unit.tell(row.fault), "ok");
        auto client = unit.connect_to_jukebox();
        if (row.fault == "drop") {
            EXPECT_EQ(client.rest(), "");
        } else {
            client.send("stop");
        }
        client.close();
        const std::string line = "\tMUSIC\t" + row.logged + "\n";
        const auto is_logged = [&](const auto&) {
            return unit.file("requests.log").find(line) != std::string::npos;
        };
        EXPECT_EQ(unit.state_when(is_logged)["jukebox"]["commands"], 0);
        EXPECT_THAT(unit.file("requests.log"), EndsWith(line));
    }
}

TEST(UnitJukebox, IsGoneWithoutPowerAndHasForgottenAllAfterwards) {
    const RunningUnit unit;
    send_music(unit, "play");
    static_cast<void>(unit.state_when(has_music));
    EXPECT_EQ(unit.tell("power off"), "ok");
    EXPECT_FALSE(unit.connect_to_jukebox().is_connected());
    EXPECT_EQ(unit.tell("power on"), "ok");
    EXPECT_EQ(unit.state()["jukebox"]["last"], "");
    send_music(unit, "stop");
    EXPECT_EQ(unit.state_when(has_music)["jukebox"]["last"], "stop");
}

}  // namespace
}  // namespace unit
