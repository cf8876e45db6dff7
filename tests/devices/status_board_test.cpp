#include "devices/status_board.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "devices/devices_house.h"

namespace devices {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// Hears of endpoints, and notes how far the device had got by then.
class Listener : public EndpointListener {
  public:
    explicit Listener(support::MemoryHost& host) : host_(host) {}

    void SendXapBSC(std::string_view code) override {
        heard.push_back(std::string(code) + " after " +
                        std::to_string(host_.device_calls().size()) + " calls");
    }

    std::vector<std::string> heard;

  private:
    support::MemoryHost& host_;
};

TEST(MarkUp, OfAValueIsToTheLetter) {
    DevicesHouse house;
    house.instance.settings.FontColor = "#ff0000";
    EXPECT_EQ(house.board.FormatValue(44, "60%"),
              "<table><td><img alt='Volume' src='/images/Velora/level_5.gif' "
              "'><img alt=' ' src='/images/Velora/blank3.gif'></td>"
              "<td valign='middle' align='left'><font color='#ff0000'>60%</font></td></table>");
}

TEST(MarkUp, OfAStatusShowsItsWord) {
    DevicesHouse house;
    EXPECT_EQ(house.board.FormatStatus(12),
              "<table><td><img alt='Top LED' src='/images/Velora/TopLEDBlink.gif' "
              "'><img alt=' ' src='/images/Velora/blank3.gif'></td>"
              "<td valign='middle' align='left'><font color='white'>Top LED Blinking</font></td>"
              "</table>");
}

TEST(MarkUp, OfANameUsesItThreeTimes) {
    DevicesHouse house;
    EXPECT_EQ(house.board.FormatString("ON"),
              "<table><td><img alt='ON' src='/images/Velora/ON.gif' "
              "'><img alt=' ' src='/images/Velora/blank3.gif'></td>"
              "<td valign='middle' align='left'><font color='white'>ON</font></td></table>");
}

TEST(MarkUp, OfAnIndexOutsideStopsAtThePictureAndIsLogged) {
    DevicesHouse house;
    EXPECT_EQ(house.board.FormatValue(47, "text"),
              "<table><td><img alt='Reserved' src='/images/Velora/");
    EXPECT_THAT(house.host.log(), ElementsAre(StartsWith("zynVelora: FormatValue:  Line ")));
}

TEST(StatusBoard, EndsEachChangeWithStringThenTimeThenTheListener) {
    DevicesHouse house;
    Listener listener(house.host);
    house.board.set_listener(&listener);
    house.host.put_device("[12");
    house.board.show_text("[12", "plain");
    house.board.show_value("[12", 44, "60%");
    house.board.show_status("[12", 5);
    EXPECT_THAT(
        house.host.device_calls(),
        ElementsAre("SetDeviceString [12 plain", "SetDeviceLastChange [12", HasSubstr(">60%<"),
                    "SetDeviceLastChange [12", HasSubstr(">Awake<"), "SetDeviceLastChange [12"));
    EXPECT_THAT(listener.heard,
                ElementsAre("[12 after 2 calls", "[12 after 4 calls", "[12 after 6 calls"));
    EXPECT_EQ(house.host.device("[12").last_change, house.machine.pump.now());
}

TEST(StatusBoard, ShowsNothingWithoutACode) {
    DevicesHouse house;
    Listener listener(house.host);
    house.board.set_listener(&listener);
    house.board.show_status("", 5);
    house.board.show_value("", 99, "x");
    house.board.show_text("", "x");
    house.board.show_silently("", "x");
    house.board.announce("");
    house.board.SetLEDStatus("", "on", 10);
    EXPECT_THAT(house.host.device_calls(), IsEmpty());
    EXPECT_THAT(listener.heard, IsEmpty());
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST(LedStatus, ComparesTheWholeWordInAnyCase) {
    const struct {
        const char* mode;
        std::int16_t first;
        const char* shown;
    } rows[] = {
        {"blink", 10, ">Top LED Blinking<"}, {"BLINK", 13, ">Mail LED Blinking<"},
        {"On", 10, ">Top LED On<"},          {"on", 13, ">Mail LED On<"},
        {"off", 10, ">Top LED Off<"},        {"", 13, ">Mail LED Off<"},
        {"blinking", 10, ">Top LED Off<"},   {"on ", 13, ">Mail LED Off<"},
    };

    for (const auto& row : rows) {
        DevicesHouse house;
        house.host.put_device("[13");
        house.board.SetLEDStatus("[13", row.mode, row.first);
        EXPECT_THAT(house.host.DeviceString("[13"), HasSubstr(row.shown)) << row.mode;
    }
}

}  // namespace
}  // namespace devices
