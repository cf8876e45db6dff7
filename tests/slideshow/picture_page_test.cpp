#include "slideshow/picture_page.h"

#include "slideshow/slide_house.h"

namespace slideshow {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using PicturePage = SlideHouse;

TEST_F(PicturePage, IsThisPage) {
    EXPECT_EQ(BuildSlideshow(house.instance(), {.file = "\\a\\b.gif",
                                                .server = "http://10.0.0.3",
                                                .base = "C:\\Pictures",
                                                .width = 100,
                                                .height = 50,
                                                .dwell = "45"}),
              "<html><head><meta http-equiv=\"Refresh\" content=\"45; "
              "URL=/VeloraSlideshow.asp\"></head><body bgcolor='black'><div align='center'>  "
              "<center>  <table height='460' border='0' cellpadding='0' cellspacing='0'>    <tr>"
              "      <td valign='center' align='center'><a href=\"http://10.0.0.2:8080/"
              "VeloraSlideshow.asp?ClientAction=links\"><img border='0'  width = '620' "
              "src='http://10.0.0.3/a/b.gif'></a></td>    </tr>  </table>  </center></div></body>"
              "</html>");
    EXPECT_THAT(house.log(), IsEmpty());
}

TEST_F(PicturePage, PinsTheSideThatIsLargerBesideTheScreen) {
    const struct {
        std::int32_t width, height;
        const char* side;
    } rows[] = {
        {1000, 500, " width = '620'"}, {500, 1000, " height = '460'"},
        {620, 460, " height = '460'"}, {621, 460, " width = '620'"},
        {62, 46, " height = '460'"},   {0, 0, " height = '460'"},
        {-1, -1, " height = '460'"},   {1, 0, " width = '620'"},
        {0, 10, " height = '460'"},    {65535, 65535, " height = '460'"},
    };

    for (const auto& row : rows) {
        EXPECT_THAT(BuildSlideshow(house.instance(), {.width = row.width, .height = row.height}),
                    HasSubstr(std::string("<img border='0' ") + row.side + " src='"))
            << row.width << "x" << row.height;
    }
}

TEST_F(PicturePage, WallpaperLiesBehindABlankPicture) {
    house.settings().Wallpaper = true;
    const std::string page =
        BuildSlideshow(house.instance(), {.file = "\\a\\b.jpg", .server = "http://10.0.0.3"});
    EXPECT_THAT(page, HasSubstr("<body bgcolor='black' background='/a/b.jpg'><div"));
    EXPECT_THAT(page, HasSubstr(" height = '460' src='/images/Velora/blank5x5.gif' width='625'>"));
}

TEST_F(PicturePage, LeadsBackByThePortThatUnitsAreGiven) {
    house.settings().UseOwnServer = false;
    EXPECT_THAT(BuildSlideshow(house.instance(), {}),
                HasSubstr("http://10.0.0.2:81/VeloraSlideshow.asp?ClientAction=links"));
}

TEST_F(PicturePage, ShowsASmallerCopyToAUnitAndAWholeOneToOthers) {
    house.machine().files.put("C:\\Pictures\\a\\big.jpg", "picture");
    const ShownPicture big{.file = "\\a\\big.jpg",
                           .server = "http://10.0.0.3",
                           .base = "C:\\Pictures",
                           .width = 1000,
                           .height = 500};
    EXPECT_EQ(picture_of(BuildSlideshow(house.instance(), big)),
              "http://10.0.0.3/VeloraTemp/big.jpg");
    EXPECT_THAT(house.machine().image_resizer.calls(),
                ElementsAre("load C:\\Pictures\\\\a\\big.jpg", "width 200", "resize",
                            "save " + root() + "\\VeloraTemp\\big.jpg"));
    ShownPicture other = big;
    other.client = media::SlideClient::Other;
    EXPECT_EQ(picture_of(BuildSlideshow(house.instance(), other)),
              "http://10.0.0.3/VeloraTemp/big.jpg");
    EXPECT_EQ(house.machine().files.read(root() + "\\VeloraTemp\\big.jpg"), "picture");
    house.machine().image_resizer.remove();
    EXPECT_EQ(picture_of(BuildSlideshow(house.instance(), big)), "http://10.0.0.3/a/big.jpg");
}

TEST_F(PicturePage, IsToldAndKeptForALookWithTheDebugLog) {
    house.instance().log.set_debug_log(true);
    const std::string page =
        BuildSlideshow(house.instance(), {.file = "\\a.gif", .width = 10, .height = 20});
    EXPECT_NE(BuildSlideshow(house.instance(), {.file = "\\b.gif"}), "");
    EXPECT_THAT(
        house.log(),
        ElementsAre("zynVelora Debug: Now Showing slide \\a.gif with original size of 10x20",
                    "zynVelora Debug: Now Showing slide \\b.gif with original size of -1x-1"));
    EXPECT_TRUE(house.machine().files.read(root() + "\\ac.html").starts_with(page + "<html>"));
}

}  // namespace
}  // namespace slideshow
