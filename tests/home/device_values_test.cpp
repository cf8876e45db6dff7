#include "home/device_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/run_time_error.h"

namespace home {
namespace {

using testing::ElementsAre;

host::DeviceFields device(const std::string& code, const std::string& values) {
    host::DeviceFields fields;
    fields.hc = code.substr(0, 1);
    fields.dc = code.substr(1);
    fields.values = values;
    return fields;
}

const std::string kBacklight =
    "Turn Backlight Off\2"
    "0\1Turn Backlight On\2"
    "1";

TEST(DeviceValues, ReadsTheListsOfADevice) {
    EXPECT_THAT(
        choices_of(device("[13", kBacklight + "\1no number\2x\1no field\1a\2"
                                              "1\2"
                                              "2")),
        ElementsAre(DeviceChoice{"Turn Backlight Off", 0}, DeviceChoice{"Turn Backlight On", 1}));
    EXPECT_THAT(choices_of({}), ElementsAre());
    host::DeviceFields fields;
    fields.buttons = "zynVelora\2Awaken @ kitchen Velora\1broken";
    EXPECT_THAT(buttons_of(fields),
                ElementsAre(DeviceButton{"zynVelora", "Awaken @ kitchen Velora"}));
}

TEST(DeviceValues, TakesNumbersAndWords) {
    struct Case {
        const char* code;
        std::string values;
        const char* text;
        std::int32_t number;
    };

    for (const Case& c : std::vector<Case>{
             {"[13", kBacklight, "1", 1},
             {"[13", kBacklight, " TURN backlight off ", 0},
             {"[13",
              "7\2"
              "1\1x\2"
              "7",
              "7", 1},  // a word goes before a number
             {"[13", "", "-12", -12},
             {"A1", "", "ON", 1},
             {"A1", "", "off", 0},
             {"A1", "", "40", 40},
             {"A1",
              "On\2"
              "255\1Off\2"
              "0",
              "on", 255},
         }) {
        EXPECT_EQ(device_value(device(c.code, c.values), c.text), c.number) << c.text;
    }
}

TEST(DeviceValues, SaysWhatThereIs) {
    struct Case {
        const char* code;
        std::string values;
        const char* text;
        const char* error;
    };

    for (const Case& c : std::vector<Case>{
             {"[13", kBacklight, "2",
              "[13 takes no '2'; there is 0 Turn Backlight Off, 1 Turn Backlight On"},
             {"[13", kBacklight, "",
              "[13 takes no ''; there is 0 Turn Backlight Off, 1 Turn Backlight On"},
             {"[20", "", "on", "[20 takes no 'on'; wanted a whole number"},
             {"[20", "", "99999999999", "[20 takes no '99999999999'; wanted a whole number"},
             {"A17", "", "on", "A17 takes no 'on'; wanted a whole number"},
             {"A1", "", "dim", "A1 takes no 'dim'; wanted on, off or a whole number"},
         }) {
        try {
            static_cast<void>(device_value(device(c.code, c.values), c.text));
            ADD_FAILURE() << c.text;
        } catch (const automation::RunTimeError& error) {
            EXPECT_EQ(error.description(), c.error);
        }
    }
}

TEST(DeviceValues, TheWordOfTheListDecidesWhatGoesOverThePowerLine) {
    EXPECT_EQ(x10_command(device("A1", ""), 0), "off");
    EXPECT_EQ(x10_command(device("A1", ""), 40), "on");
    EXPECT_EQ(x10_command(device("A1",
                                 "On\2"
                                 "2\1Off\2"
                                 "3"),
                          3),
              "off");
}

}  // namespace
}  // namespace home
