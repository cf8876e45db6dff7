#include "app/service_house.h"
#include "home/events/event_engine.h"

// Devices, power line, menu and events as a terminal asks for them.
namespace app {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class HouseRequests : public ServiceHouse {
  protected:
    HouseRequests() {
        const auto device = host_.GetDeviceByRef(host_.NewDeviceRef("L\xE4mp"));
        host::DeviceFields fields = device->fields();
        fields.hc = "[";
        fields.dc = "4";
        fields.location = "hall";
        fields.interface_name = "fake";
        fields.values = "Dark\x02\x30\x01L\xE4rm\x02\x31";
        fields.buttons =
            "fake\x02L\xE4rm @ hall Velora\x01"
            "fake\x02"
            "Dark @ hall Velora";
        device->set_fields(fields);
        host_.SetDeviceString("[4",
                              "<table><tr><td><img src='x'></td><td>L\xE4rm\r\nnow</td></tr>");
        host_.RegisterMenu("fake", "Test");
        host_.RegisterMenu("fake", "Reset Queue");
    }

    Json answer(const std::string& line) { return Json::parse(ask(line).at(0)); }
};

constexpr const char* kLamp =
    R"({"code":"[4","name":"Lämp","location":"hall","value":0,"word":"Dark","text":"Lärm now",)"
    R"("last_change":null)";

TEST_F(HouseRequests, ADeviceShowsItsWordAndItsTextWithoutMarkUp) {
    EXPECT_THAT(ask(R"({"do":"devices"})"),
                ElementsAre(R"({"devices":[)" + std::string(kLamp) + "}]}"));
    EXPECT_THAT(ask(R"({"do":"device","code":" [4"})"),
                ElementsAre(R"({"device":)" + std::string(kLamp) +
                            R"(,"string":"<table><tr><td><img src='x'></td><td>Lärm\r\nnow</td>)"
                            R"(</tr>","values":[{"number":0,"word":"Dark"},)"
                            R"({"number":1,"word":"Lärm"}],"buttons":["Lärm @ hall Velora",)"
                            R"("Dark @ hall Velora"]}})"));
}

TEST_F(HouseRequests, AValueByNumberOrWordGoesToThePlugin) {
    for (const char* value : {"1", "l\xC3\xA4rm", " 1 "}) {
        plugin_.calls.clear();
        const Json device =
            answer(R"({"do":"set","code":"[4","value":")" + std::string(value) + R"("})")["device"];
        EXPECT_THAT(plugin_.calls, ElementsAre("SetIO [ 4 19 1"));
        EXPECT_EQ(device["value"], 1);
        EXPECT_EQ(device["last_change"], "2026-11-24T16:03:03");
    }
}

TEST_F(HouseRequests, TheLineHearsAndSends) {
    EXPECT_THAT(ask(R"({"do":"x10","code":"b2","command":"ON","origin":"received"})"),
                ElementsAre(R"({"done":"b2 on"})"));
    EXPECT_TRUE(host_.isOn("B2"));
    ask(R"({"do":"x10","code":"B2","command":"off","origin":"sent"})");
    EXPECT_TRUE(host_.IsOff("B2"));
}

TEST_F(HouseRequests, MenuEntriesAndButtonsGoToThePluginAsItNamesThem) {
    EXPECT_THAT(ask(R"({"do":"menu"})"), ElementsAre(R"({"menu":["Test","Reset Queue"]})"));
    ask(R"({"do":"select","entry":"reset queue"})");
    ask(R"({"do":"press","button":"dark @ Hall velora"})");
    EXPECT_THAT(plugin_.calls, ElementsAre("SelectMenu Reset Queue",
                                           "ButtonPress Dark @ hall "
                                           "Velora"));
}

TEST_F(HouseRequests, EventsComeAndGo) {
    EXPECT_THAT(ask(R"({"do":"events"})"), ElementsAre(R"({"events":[]})"));
    const std::string dusk =
        R"({"name":"dusk","enabled":true,"when":"at 17:30","actions":["set [4 = L)"
        "\xC3\xA4"
        R"(rm","press x"],"runs":0,"last_run":null})";
    EXPECT_THAT(ask(R"({"do":"add_event","name":" dusk","when":"AT 17:30","actions":["set [4 = L)"
                    "\xC3\xA4"
                    R"(rm","press x"]})"),
                ElementsAre(R"({"event":)" + dusk + "}"));
    EXPECT_THAT(ask(R"({"do":"events"})"), ElementsAre(R"({"events":[)" + dusk + "]}"));
    EXPECT_EQ(answer(R"({"do":"disable_event","name":"DUSK"})")["event"]["enabled"], false);
    EXPECT_EQ(answer(R"({"do":"enable_event","name":"dusk"})")["event"]["enabled"], true);
    EXPECT_THAT(ask(R"({"do":"run_event","name":"dusk"})"), ElementsAre(R"({"done":"run"})"));
    EXPECT_THAT(plugin_.calls, ElementsAre("SetIO [ 4 19 1"));
    EXPECT_EQ(host_.event_engine().event("dusk").runs, 1);
    EXPECT_THAT(ask(R"({"do":"remove_event","name":"dusk"})"),
                ElementsAre(R"({"done":"removed"})"));
    EXPECT_THAT(host_.event_engine().events(), IsEmpty());
}

// Nothing has changed afterwards.
TEST_F(HouseRequests, WhatIsWrongIsNamed) {
    ask(R"({"do":"add_event","name":"dusk","when":"at 17:30","actions":["press x"]})");

    const struct {
        const char* request;
        const char* text;
    } rows[] = {
        {R"({"do":"device","code":"[5"})", "there is no device '[5'; the nearest are [4"},
        {R"({"do":"set","code":"[5","value":"1"})", "there is no device '[5'"},
        {R"({"do":"set","code":"[4","value":"2"})", "[4 takes no '2'; there is 0 Dark, 1 L"},
        {R"({"do":"set","code":"[4","value":""})", "[4 takes no ''"},
        {R"({"do":"set","code":"[4"})", R"(The request wants a text \"value\")"},
        {R"({"do":"x10","code":"Q2","command":"on","origin":"sent"})", "No X10 code: 'Q2'"},
        {R"({"do":"x10","code":"B2","command":"dim","origin":"sent"})", "'dim' is no command"},
        {R"({"do":"x10","code":"B2","command":"on","origin":"me"})", "'me' is no origin"},
        {R"({"do":"select","entry":"x"})", "there is no menu entry 'x'"},
        {R"({"do":"press","button":"x"})", "there is no button 'x'"},
        {R"({"do":"add_event","name":"a","when":"now","actions":["press x"]})",
         "'now' is no trigger"},
        {R"({"do":"add_event","name":"a","when":"at 07:00","actions":["dance"]})", "'dance'"},
        {R"({"do":"add_event","name":"a","when":"at 07:00","actions":[]})",
         R"(The request wants an array of texts \"actions\")"},
        {R"({"do":"add_event","name":"a","when":"at 07:00","actions":[1]})",
         R"(The request wants an array of texts \"actions\")"},
        {R"({"do":"add_event","name":"dusk","when":"at 07:00","actions":["press x"]})",
         "there is an event 'dusk' already"},
        {R"({"do":"add_event","name":" ","when":"at 07:00","actions":["press x"]})", "name"},
        {R"({"do":"run_event","name":"dawn"})", "there is no event 'dawn'"},
        {R"({"do":"remove_event","name":"dawn"})", "there is no event 'dawn'"},
    };

    for (const auto& row : rows) {
        const auto answers = ask(row.request);
        ASSERT_EQ(answers.size(), 1U);
        EXPECT_THAT(answers[0], StartsWith(R"({"error":)")) << row.request;
        EXPECT_THAT(answers[0], HasSubstr(row.text)) << row.request;
    }
    EXPECT_THAT(plugin_.calls, IsEmpty());
    EXPECT_EQ(host_.DeviceValue("[4"), 0);
    EXPECT_FALSE(host_.isOn("B2"));
    ASSERT_EQ(host_.event_engine().events().size(), 1U);
    EXPECT_EQ(host_.event_engine().event("dusk").runs, 0);
}

}  // namespace
}  // namespace app
