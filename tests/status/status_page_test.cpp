#include <cstdlib>
#include <fstream>
#include <iterator>

#include "status/status_house.h"

namespace status {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

// Whole pages, byte for byte. Once a page is meant to change, ZYN_WRITE_PAGES=1 writes them anew.
class StatusPageTest : public StatusHouse {
  protected:
    StatusPageTest() {
        state.ShowStatus = 2;
        core::UtilitySettings& settings = house.settings();
        settings.StyleSheet = "house.css";
        settings.Background = "navy";
        setting("strLogoYN", "No", "header.asp");
        house.host().put_setting("header.asp", "strLogoYN", "No", "includes.ini");
        setting("ServerPort", "\"8080\"");
        setting("TextStyle", "O'Hara");
        setting("Sounds", "\"1,0,1\"");
        setting("6SlideASP", "clock.asp,20");
    }

    void show_devices() {
        state.ShowControl = true;
        house.status_board().show_status("[4", 11);
        house.host().SetDeviceLastChange("A1", house.machine().pump.now() - 24h);
        house.host().SetDeviceLastChange("[11", house.machine().pump.now() - 72h);
    }

    void hear() {
        setting("acme.lamp~lamp.state", "lamp;1", "Received");
        setting("acme.<b>~x.y", "quiet;", "Received");
        setting("lamp", "11/23/2026 8:15:00 PM;out.level;out.name", "Devices");
        setting("quiet", "", "Devices");
        setting("lamp.out.level", "50%", "Device Messages");
        setting("lamp.out.name", "<script>alert('x')</script>", "Device Messages");
        filters.InitFilterDictionary();
        filters.InitDeviceDictionary();
        state.ShowReceiveMessages = state.ShowReceiveDetail = true;
    }

    static void expect_page(const std::string& name, const std::string& html) {
        const std::string path = ZYN_PAGES "/" + name + ".html";
        if (std::getenv("ZYN_WRITE_PAGES") != nullptr) {
            std::ofstream(path, std::ios::binary) << html;
        }
        std::ifstream file(path, std::ios::binary);
        const std::string expected{std::istreambuf_iterator<char>(file), {}};
        const auto [wrong, other] =
            std::mismatch(html.begin(), html.end(), expected.begin(), expected.end());
        const auto at = static_cast<std::size_t>(wrong - html.begin());
        EXPECT_TRUE(html == expected) << name << " differs at " << at << ":\n"
                                      << html.substr(at > 100 ? at - 100 : 0, 300) << "\nis not\n"
                                      << expected.substr(at > 100 ? at - 100 : 0, 300);
    }
};

TEST_F(StatusPageTest, ShowsNothingButItsOptions) {
    expect_page("options", visit());
    EXPECT_FALSE(state.FiltersOnPage);
}

TEST_F(StatusPageTest, ShowsDevicesAndSetup) {
    show_devices();
    state.ShowSetup = true;
    expect_page("devices_and_setup", visit());
}

TEST_F(StatusPageTest, ShowsFiltersWithWhatTheyHaveHeard) {
    hear();
    expect_page("filters", visit());
    EXPECT_TRUE(state.FiltersOnPage);
    protect();
    expect_page("filters_protected", visit());
    state.ShowReceiveDetail = false;
    EXPECT_THAT(visit(), AllOf(HasSubstr("name='Source2'"), Not(HasSubstr("50%"))));
}

TEST_F(StatusPageTest, OfTheNetworksProgramHasAFieldMoreAndAnIdLess) {
    show_devices();
    state.ShowSetup = true;
    house.instance().XapHosted = true;
    expect_page("of_xap", visit());
}

// A value that breaks out of its field does so as designed, and not under protection; the state of
// a device is mark-up in both.
TEST_F(StatusPageTest, ValuesLoseTheirMarkUpUnderProtection) {
    show_devices();
    state.ShowSetup = true;
    EXPECT_THAT(visit(), HasSubstr("name='TextStyle' value='O'Hara'>"));
    protect();
    EXPECT_THAT(visit(), AllOf(HasSubstr("name='TextStyle' value='O&#39;Hara'>"),
                               HasSubstr("<table><td><img alt='Top LED'")));
}

TEST_F(StatusPageTest, ASmallScreenHasItsColoursInTheCells) {
    const auto request = std::make_shared<StatusRequest>();
    request->browser = "Velora 2";
    EXPECT_THAT(page.StatusPage(request, nullptr),
                AllOf(HasSubstr("<td colspan=1 align=Left bgcolor=\"#63639C\"><font"),
                      Not(HasSubstr("class=TABLEHEADER"))));
}

// A section that fails leaves its rest out; a failure outside of the sections ends the page there.
TEST_F(StatusPageTest, AFailureLeavesAHoleAndALine) {
    state.ShowControl = true;
    setting("9", "Far,[1E400", "Velora Names");
    EXPECT_THAT(visit(), EndsWith("</tr><tr>"));
    EXPECT_THAT(deeds(), ElementsAre(HasSubstr("Status FormatScreen ")));
}

}  // namespace
}  // namespace status
