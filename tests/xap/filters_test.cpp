#include "xap/filters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "automation/run_time_error.h"
#include "core/instance.h"
#include "support/fake_platform.h"
#include "support/fake_xap_message.h"
#include "support/memory_host.h"

namespace xap {
namespace {

using namespace std::string_literals;
using support::FakeXapMessage;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class FiltersTest : public testing::Test {
  protected:
    FiltersTest() {
        instance_.attach(host_, &host_);
        instance_.log.attach(&host_);
    }

    void received(std::string_view key, std::string_view value) {
        host_.put_setting("Received", key, value);
    }

    void init() {
        filters_.InitFilterDictionary();
        filters_.InitDeviceDictionary();
    }

    // A person sends the form with these fields.
    void save(const std::map<std::string, std::string>& form) {
        filters_.SaveFilterSettigs([&](const std::string& name) {
            const auto found = form.find(name);
            return found == form.end() ? std::string() : found->second;
        });
    }

    static FakeXapMessage weather(std::vector<std::string> lines) {
        FakeXapMessage message("a.weather.roof", "weather.report");
        message.block("weather", std::move(lines));
        return message;
    }

    // "weather.temp=21" of all that the tag has recorded.
    [[nodiscard]] std::vector<std::string> recorded(const std::string& tag) const {
        std::vector<std::string> items;
        const DeviceClass* const device = filters_.DeviceDictionary().find(tag);
        if (device != nullptr) {
            auto value = device->MessageList.begin();
            for (const std::string& name : device->MessageKeyList) {
                items.push_back(name + "=" + *value++);
            }
        }
        return items;
    }

    support::FakeMachine machine_;
    support::MemoryHost host_;
    core::Instance instance_{machine_.platform()};
    std::vector<std::string> events_;
    Filters filters_{instance_, [this](std::string_view tag) { events_.emplace_back(tag); }};
};

TEST_F(FiltersTest, ReadsTheSectionLineByLine) {
    received("A.b.c~Weather.Report", "\"roof;1\"");
    received("x~y", "plain");
    received("cut~here", "tag=;1");
    init();
    std::vector<std::string> rows;
    for (const Filter& filter : filters_.FilterDictionary()) {
        rows.push_back(filter.source() + "|" + filter.message_class() + "|" + filter.tag + "|" +
                       filter.event);
    }
    EXPECT_THAT(rows, ElementsAre("A.b.c|Weather.Report|roof|1", "x|y|plain|", "cut|here|tag|"));
}

TEST_F(FiltersTest, RecordsAMessageUnderItsTagAndCallsForTheScript) {
    received("A.Weather.roof~weather.report", "roof;1");
    host_.put_setting("Devices", "ROOF", "");
    init();
    const auto before = instance_.platform().clock.now();
    filters_.record(
        weather({"temp=21", "no item", "rain=", "wind=a=b"}).block("weather.2", {"temp=5"}));
    EXPECT_THAT(
        recorded("roof"),
        ElementsAre("weather.temp=21", "weather.rain=", "weather.wind=a=b", "weather.2.temp=5"));
    EXPECT_EQ(filters_.DeviceDictionary().find("roof")->LastChange, before);
    EXPECT_EQ(filters_.DeviceDictionary().find("roof")->Sequence, 1);
    EXPECT_THAT(events_, ElementsAre("roof"));
    filters_.record(weather({"temp=22"}));
    EXPECT_THAT(recorded("roof"), ElementsAre("weather.temp=22")) << "the last one alone";
    EXPECT_EQ(filters_.DeviceDictionary().find("roof")->Sequence, 2);
    filters_.record(FakeXapMessage("a.weather.cellar", "weather.report"));
    EXPECT_EQ(filters_.DeviceDictionary().find("roof")->Sequence, 2);
}

TEST_F(FiltersTest, AnItemThatStandsTwiceIsAnErrorAndRecordsNothing) {
    received("a.weather.roof~weather.report", "roof;1");
    host_.put_setting("Devices", "roof", "");
    init();
    filters_.record(weather({"temp=21"}));
    EXPECT_THROW(filters_.record(weather({"temp=1", "Temp=2"})), automation::RunTimeError);
    EXPECT_THAT(recorded("roof"), ElementsAre("weather.temp=21"));
    EXPECT_THAT(events_, ElementsAre("roof"));
}

TEST_F(FiltersTest, ATagThatWasNeverSavedRecordsNothing) {
    received("a.weather.roof~weather.report", "roof;1");
    init();
    filters_.record(weather({"temp=21"}));
    EXPECT_THAT(recorded("roof"), IsEmpty());
    EXPECT_THAT(events_, IsEmpty());
    save({{"Source1", "a.weather.roof"}, {"Class1", "weather.report"}, {"FilterTag1", "roof"}});
    filters_.record(weather({"temp=21"}));
    EXPECT_THAT(recorded("roof"), ElementsAre("weather.temp=21"));
    EXPECT_THAT(events_, IsEmpty()) << "the event is no longer ticked";
}

TEST_F(FiltersTest, AFormReplacesAllFilters) {
    received("old~one", "old;");
    received("old~two", "old;");
    init();
    save({{"Source0", "new.source"},
          {"Class0", "new.class"},
          {"FilterTag0", "my new tag"},
          {"FilterEvent0", "1"},
          {"Source1", "old"},
          {"Class1", "one"},
          {"FilterTag1", "old"},
          {"Source2", "NEW.source"},
          {"Class2", "new.CLASS"},
          {"FilterTag2", "dropped"},
          {"Source3", "beyond"},
          {"Class3", "beyond"}});
    EXPECT_EQ(host_.GetINISection("Received", core::kSettingsFile),
              "new.source~new.class=my_new_tag;1\0old~one=old;\0"s);
    EXPECT_EQ(filters_.FilterDictionary().size(), 2U);
    EXPECT_NE(filters_.DeviceDictionary().find("my_new_tag"), nullptr);
    EXPECT_EQ(filters_.DeviceDictionary().find("my_new_tag")->LastChange, kNothingHeard);
}

TEST_F(FiltersTest, AFormThatCannotBeStoredLeavesTheFiltersAsTheyAre) {
    received("old~one", "old;");
    init();
    host_.fail(support::MemoryHost::Operation::SaveIniSetting, 1);
    save({{"Source0", "new"}, {"Class0", "new"}});
    EXPECT_EQ(host_.GetINISection("Received", core::kSettingsFile), "old~one=old;\0"s);
    EXPECT_NE(filters_.FilterDictionary().find("old~one"), nullptr);
    EXPECT_THAT(host_.log(), ElementsAre(StartsWith("zynVelora: SaveFilterSettigs  Line ")));
}

TEST_F(FiltersTest, WhatWasRecordedOutlivesTheProgram) {
    received("a.weather.roof~weather.report", "roof;");
    host_.put_setting("Devices", "roof", "");
    host_.put_setting("Devices", "silent", "1/2/2020");
    init();
    filters_.record(weather({"Temp=21", "odd;name=1", "two lines=a\nb"}));
    const auto when = filters_.DeviceDictionary().find("roof")->LastChange;
    filters_.SaveDeviceDictionary();
    Filters next(instance_, [](std::string_view) {});
    next.InitDeviceDictionary();
    const DeviceClass* const roof = next.DeviceDictionary().find("Roof");
    ASSERT_NE(roof, nullptr);
    EXPECT_EQ(roof->LastChange, when);
    EXPECT_THAT(roof->MessageKeyList, ElementsAre("weather.temp", "weather.two lines"));
    EXPECT_THAT(std::vector<std::string>(roof->MessageList.begin(), roof->MessageList.end()),
                ElementsAre("21", "a b"));
    EXPECT_EQ(automation::general_date(next.DeviceDictionary().find("silent")->LastChange),
              "1/2/2020");
    EXPECT_THAT(host_.log(), IsEmpty());
}

TEST_F(FiltersTest, NothingIsWrittenWhenNothingWasRecorded) {
    host_.put_setting("Devices", "roof", "");
    init();
    filters_.SaveDeviceDictionary();
    EXPECT_THAT(host_.saved_settings(), IsEmpty());
}

}  // namespace
}  // namespace xap
