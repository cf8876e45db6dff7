#include <chrono>
#include <vector>

#include "slideshow/slide_house.h"

namespace slideshow {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

using Intervals = std::vector<std::chrono::milliseconds>;

class SlideshowTest : public SlideHouse {
  protected:
    SlideshowTest() {
        for (const char* name : {"\\a.jpg", "\\b.jpg", "\\c.jpg"}) {
            slideshow.lists().SlideshowFiles.add(name);
        }
        house.host().forget();
    }

    host::Timer& timer() { return house.queue_timer().Timer3(); }
};

// A long time is a rest first and then whole minutes.
TEST_F(SlideshowTest, TimerRunsInMinutesAfterTheRest) {
    const struct {
        std::int16_t seconds;
        Intervals ticks;
    } rows[] = {
        {20, {20s, 20s, 20s}},  {60, {60s, 60s, 60s}}, {125, {5s, 60s, 60s, 5s}},
        {120, {60s, 60s, 60s}}, {61, {60s, 60s}},      {62, {2s, 60s, 2s}},
        {1, {1s, 1s}},          {0, {1s, 1s}},         {59, {59s, 59s}},
    };

    for (const auto& row : rows) {
        house.settings().SlideshowUpdateSeconds = row.seconds;
        Slideshow fresh(house.instance(), house.fleet(), [this] { return &timer(); });
        Intervals ticks;
        while (ticks.size() < row.ticks.size()) {
            fresh.UpdateSlideshow();
            EXPECT_TRUE(timer().enabled());
            ticks.push_back(timer().interval());
        }
        EXPECT_EQ(ticks, row.ticks) << row.seconds;
    }
}

TEST_F(SlideshowTest, TellsTheNextPictureOnceInAnInterval) {
    house.settings().SlideshowUpdateSeconds = 125;
    house.machine().random.push(0.0F);
    house.machine().random.push(0.99999994F);
    slideshow.UpdateSlideshow();
    slideshow.UpdateSlideshow();
    slideshow.UpdateSlideshow();
    EXPECT_THAT(house.host().saved_settings(),
                ElementsAre("NextPicture=\\a.jpg", "SlideshowActive=1"));
    slideshow.UpdateSlideshow();
    EXPECT_EQ(house.host().saved_settings()[2], "NextPicture=\\c.jpg");
}

TEST_F(SlideshowTest, EmptyListHasNoNextPicture) {
    slideshow.lists().SlideshowFiles = {};
    EXPECT_EQ(slideshow.VeloraNextPicture(), "");
    slideshow.UpdateSlideshow();
    EXPECT_THAT(house.host().saved_settings(), ElementsAre("NextPicture=", "SlideshowActive=1"));
}

TEST_F(SlideshowTest, StoppedShowKeepsTimeWhileAUnitShowsIt) {
    house.instance().SlideshowMode = 2;
    house.velora("hall").set_Slideshow(true);
    slideshow.UpdateSlideshow();
    EXPECT_TRUE(timer().enabled());
    house.velora("hall").set_Slideshow(false);
    house.host().forget();
    slideshow.UpdateSlideshow();
    EXPECT_FALSE(timer().enabled());
    EXPECT_THAT(house.host().saved_settings(), ElementsAre("SlideshowActive=0"));
}

TEST_F(SlideshowTest, TimeStartsAnewOnlyWhenItRests) {
    house.settings().SlideshowUpdateSeconds = 125;
    slideshow.keep_time();
    EXPECT_EQ(timer().interval(), 5s);
    slideshow.UpdateSlideshow();
    slideshow.keep_time();
    EXPECT_EQ(timer().interval(), 60s) << "it ran";
    timer().set_enabled(false);
    slideshow.keep_time();
    EXPECT_EQ(timer().interval(), 5s);
}

TEST_F(SlideshowTest, MenuStartsAllUnitsWithAGroupAndStopsThem) {
    slideshow.start();
    house.run_for(20s);
    EXPECT_EQ(house.instance().SlideshowMode, 1);
    EXPECT_THAT(house.trace_without_time(),
                ElementsAre("hall GET /screen.shtml?1",
                            "hall GET /gotoURL.shtml?M=GOTO_URL&S=http://10.0.0.2:8080/"
                            "VeloraSlideshow.asp",
                            "hall GET /cgi-bin/firef4"));
    EXPECT_TRUE(house.velora("hall").Slideshow());
    EXPECT_TRUE(timer().enabled());
    slideshow.stop();
    EXPECT_EQ(house.instance().SlideshowMode, 2);
    EXPECT_FALSE(house.velora("hall").Slideshow());
    EXPECT_FALSE(timer().enabled());
}

TEST_F(SlideshowTest, FailureIsLoggedAndTheTimerStays) {
    house.host().fail(support::MemoryHost::Operation::SaveIniSetting, 1);
    slideshow.UpdateSlideshow();
    EXPECT_FALSE(timer().enabled());
    EXPECT_THAT(house.log(), ElementsAre(testing::StartsWith("zynVelora: UpdateSlideshow ")));
}

TEST_F(SlideshowTest, WithoutATimerNothingHappens) {
    Slideshow early(house.instance(), house.fleet(), [] { return nullptr; });
    early.UpdateSlideshow();
    early.keep_time();
    early.stop();
    EXPECT_THAT(house.host().saved_settings(), IsEmpty());
    EXPECT_THAT(house.log(), IsEmpty());
}

}  // namespace
}  // namespace slideshow
