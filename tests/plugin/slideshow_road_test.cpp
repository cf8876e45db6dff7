#include <filesystem>
#include <fstream>
#include <iterator>

#include "plugin/plugin_house.h"
#include "support/memory_network.h"

namespace plugin {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace fs = std::filesystem;

// The slideshow of the whole plug-in, with the include files of a fresh home: a unit of group 1 at
// 10.0.0.24, whose browser does what the pages say.
class SlideshowRoad : public testing::Test {
  protected:
    static constexpr const char* kAttic = "10.0.0.24";

    SlideshowRoad() {
        for (const char* folder : {"includes", "slides"}) {
            for (const fs::directory_entry& entry :
                 fs::directory_iterator(fs::path(ZYN_DATA_FOLDER) / "HTML" / folder)) {
                if (entry.is_regular_file()) {
                    std::ifstream stream(entry.path(), std::ios::binary);
                    put(std::string(folder) + "\\" + entry.path().filename().string(),
                        {std::istreambuf_iterator<char>(stream), {}});
                }
            }
        }
        for (const char* name : {"a.jpg", "b.jpg", "c.jpg", "d.jpg"}) {
            put(std::string("shows\\summer\\") + name, "picture");
        }
        put("shows\\one.gif",
            std::string("GIF89a\x64\x00\x32\x00\x00", 11) + std::string(30, '\0'));
        put("links_touchscreen.htm", "<p>links</p>");
        house.add_unit("10.0.0.24/attic", "Attic,,,,1");
        house.setting("DontRandomize", "1");
        house.setting("SlideshowPath", "shows/summer");
        house.setting("0SlideASP", "shows\\summer,60");
        house.setting("1SlideASP", "shows\\one.gif,30");
        house.setting("2SlideASP", "\\slides\\clock.asp,15");
    }

    void put(const std::string& file, const std::string& content) {
        house.machine.files.put("C:\\HomeSeer\\HTML\\" + file, content);
    }

    // The answer to a browser at this address.
    std::string fetch(const std::string& target, const char* address = kAttic) {
        auto& browser = house.machine.network.connect(8080, address);
        house.run_for(1ms);
        browser.send("GET " + target + " HTTP/1.0\r\n\r\n");
        house.run_for(99ms);
        return browser.received();
    }

    static std::string between(const std::string& text, std::string_view begin,
                               std::string_view end) {
        const std::size_t at = text.find(begin);
        if (at == std::string::npos) {
            return {};
        }
        const std::size_t from = at + begin.size();
        return text.substr(from, text.find(end, from) - from);
    }

    // What a unit sees that fetches the page as often as its refresh says: "10:00:00.100 /a.jpg".
    std::vector<std::string> watch(int slides) {
        std::vector<std::string> seen;
        while (std::ssize(seen) < slides) {
            const std::string page = fetch("/VeloraSlideshow.asp");
            const std::string picture = between(page, " src='http://10.0.0.2:8080", "'");
            const std::string time = between(page, "<B>", "</B>");
            seen.push_back(house.machine.pump.time_of_day() + " " +
                           (picture.empty() ? "clock " + time : picture));
            const int seconds = std::stoi("0" + between(page, "content=\"", "\""));
            house.run_for(std::chrono::seconds(seconds) - 100ms);
        }
        return seen;
    }

    PluginHouse house;
};

TEST_F(SlideshowRoad, UnitWalksThroughAFolderAPictureAndAPageUntilTheEmptyRow) {
    house.start();
    house.call("VeloraSlideshow", {"attic"});
    house.run_for(10s);
    EXPECT_THAT(house.requests(),
                ElementsAre("attic GET /screen.shtml?1",
                            "attic GET /gotoURL.shtml?M=GOTO_URL&S=http://10.0.0.2:8080/"
                            "VeloraSlideshow.asp",
                            "attic GET /cgi-bin/firef4"));
    EXPECT_THAT(watch(8), ElementsAre("10:00:10.100 /shows/one.gif",       // for 30 s
                                      "10:00:40.100 clock 10:00",          // for 15 s
                                      "10:00:55.100 /shows/summer/c.jpg",  // 60 / 20 pictures
                                      "10:01:15.100 /shows/summer/b.jpg",  //
                                      "10:01:35.100 /shows/summer/d.jpg",  //
                                      "10:01:55.100 /shows/one.gif",       //
                                      "10:02:25.100 clock 10:02",          //
                                      "10:02:40.100 /shows/summer/c.jpg"));
    EXPECT_EQ(house.text("VeloraSlideshowStatus", {"attic"}), "True");
}

TEST_F(SlideshowRoad, TouchLeadsToTheLinksAndAnotherCallStartsAnew) {
    house.start();
    house.call("VeloraSlideshow", {"attic"});
    house.run_for(10s);
    const std::string target =
        between(fetch("/VeloraSlideshow.asp"), "<a href=\"http://10.0.0.2:8080", "\"");
    EXPECT_THAT(fetch(target), EndsWith("<html><Body bgcolor='black'><p>links</p></body></html>"));
    EXPECT_EQ(house.text("VeloraSlideshowStatus", {"attic"}), "False");
    EXPECT_EQ(house.text("VeloraTopLEDStatus", {"attic"}), "Off");
    EXPECT_NE(house.text("VeloraSlideshow", {""}), "");
    EXPECT_EQ(house.text("VeloraSlideshowStatus", {"attic"}), "True");
    EXPECT_EQ(house.text("VeloraSlideshowStatus", {"hall"}), "False") << "it has no group";
}

TEST_F(SlideshowRoad, MenuStopsTheShowForEveryBrowserAndStartsIt) {
    house.start();
    house.plugin->SelectMenu("Stop Slideshow");
    EXPECT_THAT(fetch("/VeloraSlideshow.asp"), HasSubstr("<p>links</p>"));
    EXPECT_THAT(fetch("/VeloraSlideshow.asp", "10.0.0.99"), HasSubstr("<p>links</p>"));
    house.plugin->SelectMenu("Start Slideshow");
    EXPECT_EQ(house.text("VeloraSlideshowStatus", {"attic"}), "True");
    EXPECT_THAT(fetch("/VeloraSlideshow.asp", "10.0.0.99"), HasSubstr("/VeloraTemp/"));
}

TEST_F(SlideshowRoad, UnitOutOfReachTakesTheTagAway) {
    house.add_unit("10.0.0.25/cellar", "Cellar,,A9,,1");
    house.start();
    EXPECT_EQ(house.text("VeloraSlideshow", {"attic,cellar"}), "");
    EXPECT_EQ(house.text("VeloraSlideshowStatus", {"attic"}), "True");
    EXPECT_EQ(house.text("VeloraSlideshowStatus", {"cellar"}), "False");
}

TEST_F(SlideshowRoad, HostIsToldTheNextPictureForAsLongAsTheShowRuns) {
    house.start();
    house.host.forget();
    house.call("VeloraSlideshow", {"attic"});
    house.run_for(41s);
    EXPECT_THAT(house.host.saved_settings(),
                ElementsAre(HasSubstr("NextPicture=\\shows\\summer\\"), "SlideshowActive=1",
                            HasSubstr("NextPicture="), "SlideshowActive=1",
                            HasSubstr("NextPicture="), "SlideshowActive=1"));
    house.plugin->SelectMenu("Stop Slideshow");
    house.host.forget();
    house.run_for(60s);
    EXPECT_THAT(house.host.saved_settings(), IsEmpty());
}

TEST_F(SlideshowRoad, ReloadRebuildsTheListsAndForgetsThePages) {
    house.start();
    EXPECT_THAT(house.text("VeloraNextPicture", {}), HasSubstr("\\shows\\summer\\"));
    house.call("VeloraSetSlideGroup", {"attic", 1});
    house.setting("0SlideASP", "slides\\clock.asp,15");
    house.setting("1SlideASP", "");
    house.setting("SlideshowPath", "");
    house.call("VeloraReloadSettings", {});
    EXPECT_EQ(house.text("VeloraNextPicture", {}), "");
    EXPECT_THAT(fetch("/VeloraSlideshow.asp"), HasSubstr("<TITLE>The time</TITLE>"));
    put("slides\\clock.asp", "<HTML>another clock</HTML>");
    EXPECT_THAT(fetch("/VeloraSlideshow.asp"), HasSubstr("<TITLE>The time</TITLE>"));
    house.call("VeloraReloadSettings", {});
    EXPECT_THAT(fetch("/VeloraSlideshow.asp"),
                AllOf(HasSubstr("another clock"), Not(HasSubstr("<TITLE>"))));
}

TEST_F(SlideshowRoad, PageOfTheHostsOwnServerIsTheSame) {
    house.start();
    auto control = house.machine.script_controls.create();
    control->AddObject("velora", house.plugin->object(), false);
    control->AddCode(
        "Class Request\r\n"
        "  Public Function ServerVariables(name)\r\n    ServerVariables = \"10.0.0.24\"\r\n"
        "  End Function\r\n"
        "  Public Function Form(name)\r\n    Form = \"\"\r\n  End Function\r\n"
        "  Public Function QueryString(name)\r\n    QueryString = \"\"\r\n  End Function\r\n"
        "End Class\r\n");
    EXPECT_THAT(
        automation::to_text(control->Eval("velora.VeloraSlideshowASP(New Request, Nothing)")),
        HasSubstr("/shows/one.gif"));
}

}  // namespace
}  // namespace plugin
