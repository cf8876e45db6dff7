#include "plugin/plugin_house.h"

namespace plugin {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// The status page on its road from a connection to the devices and back.
class StatusRoad : public testing::Test {
  protected:
    void start(const host::Protection& protection = {}) {
        house.machine.protection = protection;
        house.host.put_setting("STATUS", "ShowControl", "True");
        house.host.put_setting("STATUS", "ShowSetup", "FALSE");
        house.start();
        house.run_for(1s);
        house.forget();
    }

    std::string send(const std::string& packet, std::string_view from = kStranger) {
        support::TcpPeer& client = house.machine.network.connect(8080, from);
        house.run_for(0ms);
        client.send(packet);
        house.run_for(2s);
        return client.received();
    }

    static std::string form(const std::string& body, const std::string& header = "") {
        return "POST /status HTTP/1.0\r\nHost: house:8080\r\n" + header +
               "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
    }

    static constexpr std::string_view kStranger = "10.0.0.99";
    static constexpr const char* kGet = "GET /status HTTP/1.0\r\n\r\n";
    static constexpr const char* kPage = "<title>Velora Status";
    static constexpr const char* kLightOn =
        "clientinput=V5B4&clientvalue=Turn+On+Top+LED&page=status";

    PluginHouse house;
};

TEST_F(StatusRoad, ShowsWhatTheSettingsSayAtTheStart) {
    start();
    EXPECT_THAT(send(kGet), AllOf(StartsWith("HTTP/1.0 200 OK"), HasSubstr(kPage),
                                  HasSubstr(">Kitchen Top LED</td>"), HasSubstr(">CID</td>"),
                                  HasSubstr("xAP Messages of Interest"),
                                  Not(HasSubstr("Velora Units Setup")), EndsWith("</html>")));
}

TEST_F(StatusRoad, AChoiceReachesTheUnitAndTheAnswerShowsIt) {
    start();
    EXPECT_THAT(send(form(kLightOn)), HasSubstr(">Top LED On</font>"));
    EXPECT_THAT(house.requests(), ElementsAre(HasSubstr("GET /led.shtml?t1")));
}

TEST_F(StatusRoad, SaveStoresAndLoadsTheSettingsAnew) {
    start();
    send(form("clientinput=yes&Save=1&ShowSetup=1"));
    send(
        form("clientinput=yes&Save=1&ShowSetup=1&Location0=Cellar&IP0=10.0.0.21&FontColor=red&"
             "ServerPort=8080&HSIP=10.0.0.2"));
    EXPECT_EQ(house.text("VeloraIP", {"cellar"}), "10.0.0.21");
    EXPECT_EQ(
        house.host.GetIniSetting("Velora Utilities", "FontColor", "", "zynVeloraUtilities.ini"),
        "\"red\"");
    EXPECT_THAT(send(kGet), AllOf(HasSubstr("name='Location0' value='Cellar'"),
                                  HasSubstr("name='FontColor' value='red'")));
}

TEST_F(StatusRoad, UnderProtectionStrangersAndForeignFormsAreTurnedAway) {
    start(host::Protection::hardened());
    const std::string page = send(kGet, "10.0.0.22");
    EXPECT_THAT(page, HasSubstr(kPage)) << "a unit";
    EXPECT_THAT(send(kGet), HasSubstr("404 File Not Found"));
    EXPECT_THAT(send(form(kLightOn)), HasSubstr("404 File Not Found"));
    EXPECT_THAT(send(form(kLightOn, "Origin: http://evil\r\n"), "10.0.0.22"),
                HasSubstr("404 File Not Found"));
    EXPECT_TRUE(house.requests().empty());
    EXPECT_THAT(house.host.log(),
                ElementsAre("zynVelora: Status page refused to 10.0.0.99",
                            "zynVelora: Status page refused to 10.0.0.99",
                            "zynVelora: Form of another site refused from 10.0.0.22: http://evil"));
    EXPECT_THAT(send(form(kLightOn, "Origin: http://house:8080\r\n"), "10.0.0.22"),
                HasSubstr(">Top LED On</font>"));
}

}  // namespace
}  // namespace plugin
