#include "app/house_text.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace app {
namespace {

const Json kLed = {{"code", "[4"},
                   {"name", "Velora Top LED"},
                   {"location", "Küche"},
                   {"value", 1},
                   {"word", "Turn On Top LED"},
                   {"text", "Top LED On"},
                   {"last_change", "2026-11-24T16:03:03"},
                   {"values", Json::array({{{"number", 0}, {"word", "Off"}}})},
                   {"buttons", Json::array({"Turn On\x1b @ Küche Velora"})}};
const Json kQueue = {{"code", "[10"},
                     {"name", "Velora Reserved"},
                     {"location", "Küche"},
                     {"value", 0},
                     {"word", ""},
                     {"text", ""},
                     {"last_change", nullptr},
                     {"values", Json::array()},
                     {"buttons", Json::array()}};

TEST(HouseText, DevicesStandInATable) {
    EXPECT_EQ(
        devices_text(Json::array({kLed, kQueue})),
        "CODE  NAME             LOCATION  VALUE              SHOWS       LAST CHANGE\n"
        "[4    Velora Top LED   Küche     1 Turn On Top LED  Top LED On  2026-11-24 16:03:03\n"
        "[10   Velora Reserved  Küche     0                              never\n");
    EXPECT_EQ(devices_text(Json::array()), "no devices\n");
}

TEST(HouseText, ADeviceListsWhatItTakes) {
    EXPECT_EQ(device_text(kLed),
              "CODE  NAME            LOCATION  VALUE              SHOWS       LAST CHANGE\n"
              "[4    Velora Top LED  Küche     1 Turn On Top LED  Top LED On  2026-11-24 16:03:03\n"
              "\n"
              "VALUE  WORD\n"
              "    0  Off\n"
              "\n"
              "BUTTON\n"
              "Turn On? @ Küche Velora\n");
}

TEST(HouseText, ActionsStandBelowTheirEvent) {
    const Json dusk = {{"name", "dusk"},     {"enabled", false},
                       {"when", "at 17:30"}, {"actions", Json::array({"set [4 = 1", "press x"})},
                       {"runs", 12},         {"last_run", "2026-11-24T17:30:00"}};
    EXPECT_EQ(events_text(Json::array({dusk})),
              "EVENT  ENABLED  WHEN      RUNS  LAST RUN\n"
              "dusk   no       at 17:30    12  2026-11-24 17:30:00\n"
              "    set [4 = 1\n"
              "    press x\n");
    EXPECT_EQ(events_text(Json::array()), "no events\n");
}

TEST(HouseText, TheMenuIsOneEntryALine) {
    EXPECT_EQ(menu_text(Json::array({"Test", "Help"})), "Test\nHelp\n");
    EXPECT_EQ(menu_text(Json::array()), "no menu entries\n");
}

}  // namespace
}  // namespace app
