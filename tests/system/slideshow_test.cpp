#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "system/house_process.h"

namespace system_tests {
namespace {

using testing::HasSubstr;

// The sample show of a fresh home, on a unit that does what its pages say.
TEST(Slideshow, UnitWalksThroughPicturesAndPagesAndStops) {
    House house{"Kitchen"};
    house.set("SlideshowPath", "slides/pictures");
    house.set("SlideshowUpdateInterval", "1");
    house.set("PushDelay", "1");
    house.set("0SlideASP", "slides\\pictures,2");
    house.set("1SlideASP", "slides\\pictures\\morning.jpg,1");
    house.set("2SlideASP", "\\slides\\clock.asp,1");
    house.set("3SlideASP", "slides\\welcome.html,1");
    house.set_slideshow_group(1);
    house.start();
    house.call({"VeloraSlideshow", "Kitchen"});

    const auto folder = house.unit_folder("Kitchen");
    const auto page_has = [&](const char* text) {
        return eventually(
            [&] { return content_of(folder / "page.html").find(text) != std::string::npos; });
    };
    EXPECT_TRUE(page_has("/VeloraTemp/morning.jpg")) << "made smaller for the unit";
    EXPECT_TRUE(page_has("<TITLE>The time</TITLE>"));
    EXPECT_TRUE(page_has("Welcome home"));
    EXPECT_TRUE(page_has("content=\"1; URL=/VeloraSlideshow.asp\""));
    const std::string server = "http://127.0.0.1:" + house.server_port();
    const std::string requests = content_of(folder / "requests.log");
    EXPECT_THAT(requests,
                HasSubstr("\tPICTURE\t" + server + "/VeloraTemp/morning.jpg\tHTTP/1.1 200"));
    EXPECT_THAT(requests, HasSubstr("\tREFRESH\t" + server + "/VeloraSlideshow.asp\tHTTP/1."));

    house.told({"menu", "Stop Slideshow"});
    EXPECT_TRUE(eventually([&] {
        return content_of(folder / "page.html") ==
               "<html><Body bgcolor='black'>" +
                   content_of(house.home() / "HTML" / "links_touchscreen.htm") + "</body></html>";
    }));
    EXPECT_THAT(house.log("zynVelora"), testing::Not(testing::Contains(HasSubstr(" Line "))));
}

}  // namespace
}  // namespace system_tests
