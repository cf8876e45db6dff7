#include <string>
#include <vector>

#include "slideshow/slide_house.h"
#include "support/pictures.h"

namespace slideshow {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class SlideshowAspTest : public SlideHouse {
  protected:
    SlideshowAspTest() {
        for (const char* include : {"style.asp", "header.asp", "menu_functions.asp"}) {
            put("includes\\" + std::string(include), "");
        }
        put("includes\\misc_functions.asp", kSmallestInclude);
        put("page.htm", "<html>page</html>");
        put("clock.asp", "<html>\r\n<%\r\nResponse.Write \"it is \" & 12\r\n%>\r\n</html>");
        PictureLists& lists = slideshow.lists();
        lists.SlideshowFiles.add("\\main.jpg");
        for (const char* name : {"\\one.jpg", "\\two.jpg", "\\three.jpg", "\\four.jpg"}) {
            lists.groups[0].add(name);
        }
    }

    // What `count` fetches show: the name of a picture with its dwell, or what a page says.
    std::vector<std::string> shown(int count, const char* address = kHall) {
        std::vector<std::string> slides;
        for (int i = 0; i < count; ++i) {
            slides.push_back(summary(fetch(address)));
        }
        return slides;
    }

    static std::string summary(const std::string& page) {
        for (const auto& [text, name] :
             {std::pair("page</html>", "page"), std::pair("it is 12", "clock")}) {
            if (page.find(text) != std::string::npos) {
                return std::string(name) + " " + seconds_of(page);
            }
        }
        const std::string picture = picture_of(page);
        return picture.substr(picture.rfind('/') + 1) + " " + seconds_of(page);
    }

    static std::string seconds_of(const std::string& page) {
        constexpr std::string_view kMark = "content=\"";
        const std::size_t begin = page.find(kMark) + kMark.size();
        return page.substr(begin, page.find_first_of("\";", begin) - begin);
    }

    void in_order() { house.settings().DontRandomize = true; }
};

TEST_F(SlideshowAspTest, FolderShowsAsManyPicturesAsFitIntoItsDwellThenTheRowsFollow) {
    in_order();
    row(1, 0) = {.SlideFile = "pictures", .SlideDwell = 60};
    row(1, 1) = {.SlideFile = "single.gif", .SlideDwell = 7};
    row(1, 2) = {.SlideFile = "\\clock.asp", .SlideDwell = 45};
    row(1, 3) = {.SlideFile = "page.htm", .SlideDwell = 9};
    put("single.gif", support::gif_picture({1000, 500}));
    EXPECT_THAT(shown(9),
                ElementsAre("single.gif 7", "clock 45", "page 9", "three.jpg 20", "two.jpg 20",
                            "four.jpg 20", "single.gif 7", "clock 45", "page 9"));
    EXPECT_EQ(house.velora("hall").SlideGroupIndex(), 3);
    EXPECT_EQ(row(1, 1).SlideWidth, 1000) << "read once, at its first use";
}

TEST_F(SlideshowAspTest, FiveRowsAreACycleAndAnEmptyOneEndsItEarlier) {
    for (std::size_t number = 0; number < core::kSlideRows; ++number) {
        row(1, number) = {.SlideFile = std::to_string(number) + ".gif", .SlideDwell = 1};
    }
    EXPECT_THAT(shown(6),
                ElementsAre("1.gif 1", "2.gif 1", "3.gif 1", "4.gif 1", "0.gif 1", "1.gif 1"));
    row(1, 3).SlideFile = " ";
    EXPECT_THAT(shown(4), ElementsAre("2.gif 1", "0.gif 1", "1.gif 1", "2.gif 1"));
}

// A folder takes over the count that the row before it has left, and sets it when it has counted
// down to 0 itself.
TEST_F(SlideshowAspTest, CountOfPicturesIsThatOfTheFolderBefore) {
    house.settings().Wallpaper = true;  // tells the picture in the same place for all

    const struct {
        std::int16_t first_dwell, second_dwell;
        std::vector<int> counts;  // SlideCount after each fetch
        std::vector<int> rows;    // SlideGroupIndex
    } rows[] = {
        {60, 40, {2, 1, 0, 1, 0, 2}, {1, 1, 1, 0, 0, 1}},
        {50, 30, {1, 0, 1, 0}, {1, 1, 0, 0}},  // 2.5 and 1.5 both round to 2
        {10, 60, {-1, -2, -3}, {1, 0, 1}},     // below 0 nothing is counted any more
    };

    for (const auto& expected : rows) {
        row(1, 0) = {.SlideFile = "a", .SlideDwell = expected.first_dwell};
        row(1, 1) = {.SlideFile = "b", .SlideDwell = expected.second_dwell};
        appliance::Velora& hall = house.velora("hall");
        hall.set_SlideCount(0);
        hall.set_SlideGroupIndex(0);
        std::vector<int> counts;
        std::vector<int> at_rows;
        while (counts.size() < expected.counts.size()) {
            fetch(kHall);
            counts.push_back(hall.SlideCount());
            at_rows.push_back(hall.SlideGroupIndex());
        }
        EXPECT_EQ(counts, expected.counts) << expected.first_dwell;
        EXPECT_EQ(at_rows, expected.rows) << expected.first_dwell;
    }
}

TEST_F(SlideshowAspTest, CountStaysAtItsLowestNumber) {
    house.velora("hall").set_SlideCount(-32768);
    house.velora("hall").set_SlideGroup(0);
    EXPECT_THAT(shown(2), ElementsAre("main.jpg 20", "main.jpg 20"));
    EXPECT_EQ(house.velora("hall").SlideCount(), -32768);
    EXPECT_THAT(house.log(), testing::Not(testing::Contains(HasSubstr("Overflow"))));
}

TEST_F(SlideshowAspTest, GroupWithoutPicturesOfItsOwnShowsThoseOfTheMainList) {
    const struct {
        std::int16_t group;
        const char* picture;
        const char* server;
    } rows[] = {{1, "one.jpg 20", "http://10.0.0.2:8080/"},
                {2, "main.jpg 20", "http://10.0.0.3/"},
                {0, "main.jpg 20", "http://10.0.0.3/"},
                {4, "main.jpg 20", "http://10.0.0.3/"},
                {-1, "main.jpg 20", "http://10.0.0.3/"}};

    for (const auto& expected : rows) {
        house.velora("hall").set_SlideGroup(expected.group);
        house.machine().random.push(0.0F);
        const std::string page = fetch(kHall);
        EXPECT_EQ(summary(page), expected.picture) << expected.group;
        EXPECT_THAT(picture_of(page), StartsWith(expected.server)) << expected.group;
    }
}

TEST_F(SlideshowAspTest, UnitsWalkEachAtItsOwnPace) {
    row(1, 0) = {.SlideFile = "0.gif", .SlideDwell = 1};
    row(1, 1) = {.SlideFile = "1.gif", .SlideDwell = 1};
    house.velora("den").set_SlideGroup(1);
    EXPECT_THAT(shown(1), ElementsAre("1.gif 1"));
    EXPECT_THAT(shown(2, "192.168.0.21"), ElementsAre("1.gif 1", "0.gif 1"));
    EXPECT_THAT(shown(1), ElementsAre("0.gif 1"));
}

TEST_F(SlideshowAspTest, FetchMarksTheUnitAsShowing) {
    house.run_for(std::chrono::minutes(5));
    fetch(kHall);
    EXPECT_TRUE(house.velora("hall").Slideshow());
    EXPECT_EQ(house.velora("hall").SlideshowTime(), house.machine().pump.now());
    fetch("192.168.0.21");
    EXPECT_FALSE(house.velora("den").Slideshow()) << "it has no slideshow";
}

TEST_F(SlideshowAspTest, OrderOfAListLeavesItsFirstPictureOut) {
    in_order();

    const struct {
        int pictures;
        std::vector<std::string> names;
    } rows[] = {{2, {"1.gif", "1.gif"}},
                {3, {"2.gif", "2.gif", "2.gif"}},
                {4, {"2.gif", "1.gif", "3.gif", "2.gif"}},
                {5, {"2.gif", "4.gif", "2.gif"}}};

    for (const auto& expected : rows) {
        SlideshowAsp fresh(
            {house.instance(), house.fleet(), house.status_board(), converter, slideshow.lists()});
        slideshow.lists().SlideshowFiles = {};
        for (int i = 0; i < expected.pictures; ++i) {
            slideshow.lists().SlideshowFiles.add("\\" + std::to_string(i) + ".gif");
        }
        std::vector<std::string> names;
        request->variables["REMOTE_ADDR"] = kStranger;
        house.settings().Wallpaper = true;
        while (names.size() < expected.names.size()) {
            const std::string page = fresh.VeloraSlideshow_ASP(request, nullptr);
            const std::size_t at = page.find("background='/") + 13;
            names.push_back(page.substr(at, page.find('\'', at) - at));
        }
        EXPECT_EQ(names, expected.names) << expected.pictures;
    }
}

TEST_F(SlideshowAspTest, SinglePictureHasNoOrder) {
    in_order();
    EXPECT_EQ(fetch(kStranger), "");
    EXPECT_THAT(house.log(), ElementsAre(AllOf(StartsWith("zynVelora: BuildRandomSlideshow: "),
                                               HasSubstr("Division by zero"))));
}

TEST_F(SlideshowAspTest, PictureIsReadOnceForItsSize) {
    house.machine().files.put("C:\\Pictures\\main.jpg", support::gif_picture({500, 1000}));
    EXPECT_THAT(fetch(kStranger), HasSubstr(" height = '460'"));
    EXPECT_EQ(slideshow.lists().SlideshowFiles.FileWidths[0], 500);
    house.machine().files.put("C:\\Pictures\\main.jpg", support::gif_picture({1000, 500}));
    EXPECT_THAT(fetch(kStranger), HasSubstr(" height = '460'"));
    house.settings().Wallpaper = true;
    slideshow.lists().SlideshowFiles.FileWidths[0] = -1;
    fetch(kStranger);
    EXPECT_EQ(slideshow.lists().SlideshowFiles.FileWidths[0], -1) << "no page needs it";
}

TEST_F(SlideshowAspTest, LargePictureIsResizedForAUnitAndCopiedForOthers) {
    house.machine().files.put("C:\\Pictures\\main.jpg", support::jpeg_picture({1000, 500}));
    house.velora("hall").set_SlideGroup(2);
    EXPECT_EQ(picture_of(fetch(kHall)), "http://10.0.0.3/VeloraTemp/main.jpg");
    EXPECT_EQ(house.machine().image_resizer.calls().at(1), "width 200");
    const std::size_t calls = house.machine().image_resizer.calls().size();
    EXPECT_EQ(picture_of(fetch(kStranger)), "http://10.0.0.3/VeloraTemp/main.jpg");
    EXPECT_EQ(house.machine().image_resizer.calls().size(), calls);
}

TEST_F(SlideshowAspTest, EmptyHouseShowsAPictureWithoutAName) {
    slideshow.lists().SlideshowFiles = {};
    house.settings().Wallpaper = true;
    EXPECT_THAT(fetch(kStranger), HasSubstr("background=''"));
}

// --- the end of the show -------------------------------------------------------------------------

TEST_F(SlideshowAspTest, TouchEndsTheShowOfItsUnit) {
    fetch(kHall);
    house.velora("hall").SetTopLED("on", "");
    house.clear_trace();
    request->query["ClientAction"] = "links";
    EXPECT_EQ(fetch(kHall), "<html><Body bgcolor='black'>the links</body></html>");
    house.run_for(std::chrono::seconds(5));
    EXPECT_FALSE(house.velora("hall").Slideshow());
    EXPECT_EQ(house.velora("hall").TopLED(), "Off");
    EXPECT_EQ(house.velora("hall").MailLED(), "off");
    EXPECT_EQ(house.shown(house.fleet().table()[0].VeloraDC), "links.htm");
}

TEST_F(SlideshowAspTest, LinksPageIsAListAPageOrALeapToTheHostsServer) {
    put("start.htm", "<p>start</p>");

    const struct {
        const char *links, *links_file;
        const char* page;
    } rows[] = {
        {"links.htm", "links.htm", "<html><Body bgcolor='black'>the links</body></html>"},
        {"start.htm", "links.htm", "<p>start</p>"},
        {"Start.ASP?a=1", "links.htm",
         "<HTML><BODY onload='document.status.submit()'><form name='status' "
         "action='Start.ASP?a=1'><input type='hidden' name='zynVeloraSlideshow' value='Stopped' "
         "></form><BODY></HTML>"},
    };

    request->form["ClientAction"] = "links";
    for (const auto& expected : rows) {
        house.settings().Links = expected.links;
        house.settings().LinksFile = expected.links_file;
        EXPECT_EQ(fetch(kStranger), expected.page);
    }
    EXPECT_THAT(house.trace(), IsEmpty()) << "no unit has asked";
    house.settings().Links = "gone.htm";
    EXPECT_EQ(fetch(kStranger), "");
    EXPECT_THAT(house.log(), ElementsAre(StartsWith("zynVelora: VeloraSlideshow_ASP: ")));
}

TEST_F(SlideshowAspTest, StoppedShowIsTheLinksPageForAll) {
    house.instance().SlideshowMode = 2;
    EXPECT_THAT(fetch(kHall), HasSubstr("the links"));
    EXPECT_THAT(fetch(kStranger), HasSubstr("the links"));
    house.instance().SlideshowMode = 0;
    request->form["ClientAction"] = "Links";
    EXPECT_THAT(fetch(kStranger), testing::Not(HasSubstr("the links"))) << "spelt otherwise";
}

TEST_F(SlideshowAspTest, NoRequestIsAnErrorInTheLog) {
    EXPECT_EQ(asp.VeloraSlideshow_ASP(nullptr, nullptr), "");
    EXPECT_THAT(house.log(), ElementsAre(StartsWith("zynVelora: VeloraSlideshow_ASP: ")));
}

TEST_F(SlideshowAspTest, DebugLogTellsWhoAsks) {
    house.machine().files.put("C:\\Pictures\\main.jpg", support::gif_picture({10, 20}));
    house.instance().log.set_debug_log(true);
    fetch(kStranger);
    EXPECT_THAT(house.log(),
                ElementsAre("zynVelora Debug: Enter SlideshowASP 192.168.0.99",
                            "zynVelora Debug: Now Showing slide \\main.jpg with original size of "
                            "10x20",
                            "zynVelora Debug: Exit SlideshowASP 192.168.0.99"));
}

}  // namespace
}  // namespace slideshow
