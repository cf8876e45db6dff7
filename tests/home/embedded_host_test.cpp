#include "home/embedded_host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "automation/run_time_error.h"
#include "home/events/notation.h"
#include "home/home_layout.h"
#include "home/house_fakes.h"
#include "home/temporary_folder.h"
#include "support/virtual_pump.h"

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

    template <typename Step>
    static std::string error_of(Step step) {
        try {
            step();
        } catch (const automation::RunTimeError& error) {
            return error.description();
        }
        return "no error";
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

TEST_F(EmbeddedHostTest, FindsAMenuEntryByItsLabel) {
    EmbeddedHost host(pump_, clock_, options());
    EXPECT_THAT(error_of([&] { static_cast<void>(host.menu_entry("Help")); }),
                HasSubstr("'Help'; there are none"));
    for (const char* label : {"GUI Setup", "Start Slideshow", "Stop Slideshow"}) {
        host.RegisterMenu("zynVelora", label);
    }
    EXPECT_EQ(host.menu_entry(" gui setup "), (MenuEntry{"zynVelora", "GUI Setup"}));
    EXPECT_EQ(
        error_of([&] { static_cast<void>(host.menu_entry("stop slidshow")); }),
        "there is no menu entry 'stop slidshow'; the nearest are Stop Slideshow, Start Slideshow");
    EXPECT_EQ(error_of([&] { static_cast<void>(host.menu_entry("?")); }),
              "there is no menu entry '?'; there are GUI Setup, Start Slideshow, Stop Slideshow");
}

// A host with a device of a plug-in, one of the power line and one of neither.
class DeviceCommandTest : public EmbeddedHostTest {
  protected:
    DeviceCommandTest() {
        host_.NewDevice("Velora Backlight", "[13");
        host::DeviceFields fields = host_.GetDevice(1)->fields();
        fields.interface_name = "ZynVelora";
        fields.values =
            "Off\2"
            "0\1Turn On\2"
            "1";
        host_.GetDevice(1)->set_fields(fields);
        host_.NewDevice("lamp", "B2");
        host_.NewDevice("other", "]1");
        host_.set_command_sink("zynvelora", [this](const DeviceCommand& command) {
            happened_.push_back("command " + command.house_code + " " + command.device_code + " " +
                                std::to_string(command.value) + ", value is " +
                                std::to_string(host_.DeviceValue("[13")));
        });
    }

    std::vector<std::string> happened() {
        for (const LogLine& line : host_.log().after(last_line_, 100)) {
            last_line_ = line.id;
            happened_.push_back(line.type + ": " + line.message);
        }
        return std::exchange(happened_, {});
    }

    support::VirtualPump time_;
    EmbeddedHost host_{time_, time_, options()};
    std::vector<std::string> happened_;
    std::int64_t last_line_ = 0;
};

TEST_F(DeviceCommandTest, AValueGoesToThePlugInOfTheDevice) {
    host_.SetDeviceValue("[13", 1);
    EXPECT_THAT(happened(), ElementsAre("command [ 13 1, value is 1"));
    EXPECT_EQ(host_.devices().find("[13")->last_change, time_.now());
    host_.SetDeviceValue("[13", 1);
    EXPECT_THAT(happened(), ElementsAre("command [ 13 1, value is 1")) << "also the same again";
    host_.ValueChangeEvent("[13", 0);
    host_.SetDeviceValue("[14", 1);
    host_.SetDeviceValue("]1", 1);
    EXPECT_THAT(happened(), ElementsAre());
    EXPECT_EQ(host_.DeviceValue("[13"), 0);
    EXPECT_EQ(host_.DeviceValue("]1"), 1);
    EXPECT_THROW(host_.SetDeviceValue("[13", 40'000), automation::RunTimeError);
    EXPECT_EQ(host_.DeviceValue("[13"), 0);
}

TEST_F(DeviceCommandTest, AValueOfALampGoesOverThePowerLine) {
    EXPECT_EQ(host_.set_device("b2", "ON"), 1);
    EXPECT_TRUE(host_.isOn("B2"));
    host_.SetDeviceValue("B2", 0);
    EXPECT_TRUE(host_.IsOff("B2"));
    EXPECT_THAT(happened(), ElementsAre("X10: B2 on", "X10: B2 off"));
}

TEST_F(DeviceCommandTest, WhatAPersonTypesIsChecked) {
    EXPECT_EQ(host_.set_device(" [13", "turn ON"), 1);
    EXPECT_EQ(happened().size(), 1U);
    EXPECT_EQ(error_of([&] { host_.set_device("[13", "blue"); }),
              "[13 takes no 'blue'; there is 0 Off, 1 Turn On");
    EXPECT_EQ(error_of([&] { host_.set_device("[77", "1"); }),
              "there is no device '[77'; the nearest are [13");
    EXPECT_THAT(happened(), ElementsAre());
}

TEST_F(DeviceCommandTest, EventsHearOfDevicesAndOfThePowerLine) {
    const auto add = [&](const char* trigger) {
        host_.event_engine().add({.name = trigger,
                                  .trigger = parse_trigger(trigger),
                                  .actions = {parse_action("set [13 = 0")}});
    };
    add("device ]1 = 5");
    add("x10 B2 off");
    host_.event_engine().start();
    host_.SetDeviceValue("]1", 5);
    time_.run_for({});
    EXPECT_THAT(happened(), ElementsAre("command [ 13 0, value is 0",
                                        "Event: 'device ]1 = 5' runs (device ]1 = 5)"));
    host_.ExecX10("B2", "off");
    time_.run_for({});
    EXPECT_THAT(happened(), ElementsAre("X10: B2 off")) << "we have sent it ourselves";
    host_.x10_line().receive("B2", "off");
    time_.run_for({});
    EXPECT_THAT(happened(), ElementsAre("command [ 13 0, value is 0", "X10: B2 off",
                                        "Event: 'x10 B2 off' runs (x10 B2 off)"));
    EXPECT_EQ(host_.devices().find("B2")->last_change, time_.now());
    host_.SetSilentDeviceCollection({{"]", 1}});
    host_.SetDeviceValue("]1", 4);
    host_.SetDeviceValue("]1", 5);
    time_.run_for({});
    EXPECT_THAT(happened(), ElementsAre()) << "a silent device";
}

TEST_F(EmbeddedHostTest, DevicesAndEventsSurviveANewStart) {
    {
        EmbeddedHost host(pump_, clock_, options());
        host.NewDevice("lamp", "A1");
        host.event_engine().add(
            {.name = "e", .trigger = PhoneRings{}, .actions = {RunScript{"x"}}});
    }
    EmbeddedHost host(pump_, clock_, options());
    EXPECT_EQ(host.DeviceExists("A1"), 1);
    EXPECT_EQ(host.event_engine().events().size(), 1U);
}

TEST_F(EmbeddedHostTest, LosesNoLogLine) {
    EmbeddedHost host(pump_, clock_, options());
    Database other(folder_.path() / "Data/log.db");
    other.execute("BEGIN IMMEDIATE");
    host.Writelog("zynVelora", "M\xFCller");
    EXPECT_THAT(errors_.str(), StartsWith("zynVelora: M\xC3\xBCller (not in the log: "));
    EXPECT_THAT(errors_.str(), HasSubstr("locked"));
}

// A switch that no device stands for, and that somebody else switches.
TEST_F(EmbeddedHostTest, APowerStateThatIsToldCountsWithoutADevice) {
    EmbeddedHost host(pump_, clock_, options());
    EXPECT_FALSE(host.isOn("A1"));
    host.SetDeviceStatusNoReport("a1", 2, 0);
    EXPECT_TRUE(host.isOn("A1"));
    host.SetDeviceStatus("A1", 17);
    EXPECT_TRUE(host.isOn("A1")) << "neither on nor off";
    host.SetDeviceStatus("A1", 3);
    EXPECT_TRUE(host.IsOff("A1"));
}

TEST_F(EmbeddedHostTest, MessagesForXapNeedAProgramThatCarriesThem) {
    EmbeddedHost host(pump_, clock_, options());
    EXPECT_EQ(error_of([&] { host.SendXapMessage("t", "c", "s", "b", "a", "00"); }),
              "Object doesn't support this property or method");
    std::string sent;
    host.set_xap_sink([&](const OutgoingXapMessage& message) {
        for (const auto part : {message.target, message.message_class, message.section,
                                message.body, message.sub_address, message.uid}) {
            sent.append(part).append(" ");
        }
    });
    host.SendXapMessage("t", "c", "s", "b", "a", "00");
    EXPECT_EQ(sent, "t c s b a 00 ");
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
