#include "media/image_resize.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/fake_image_resizer.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"
#include "support/pictures.h"

namespace media {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

class ImageResizeTest : public testing::Test {
  protected:
    ImageResizeTest() {
        instance_.attach(host_, &host_);
        instance_.settings.TempPath = "C:\\HTML\\VeloraTemp";
        instance_.settings.MaxPixels = 100000;
        machine_.files.put_folder("C:\\HTML\\VeloraTemp");
    }

    std::string resize(const Slide& slide, SlideClient client = SlideClient::Velora) {
        return Resize(instance_, resizer_, slide, client);
    }

    support::FakeMachine machine_;
    support::MemoryHost host_;
    core::Instance instance_{machine_.platform()};
    support::FakeImageResizer resizer_{machine_.files};
};

TEST_F(ImageResizeTest, LeavesSmallPicturesAndOtherFilesAsTheyAre) {
    const Slide slides[] = {
        {.file = "\\a.jpg", .base = "C:\\P", .width = 400, .height = 200},
        {.file = "\\a.jpg", .base = "C:\\P", .width = 99999, .height = 1},
        {.file = "/sub/a.jpg", .base = "C:\\P", .width = -1, .height = -1},
        {.file = "\\a.JPG", .base = "C:\\P", .width = 4000, .height = 2000},
        {.file = "\\a.Gif", .base = "C:\\P", .width = 4000, .height = 2000},
        {.file = "\\a.bmp", .base = "C:\\P", .width = 4000, .height = 2000},
        {.file = "\\a.jpg.png", .base = "C:\\P", .width = 4000, .height = 2000},
        {.file = "\\a.jpg2", .base = "C:\\P", .width = 4000, .height = 2000},
    };
    for (const Slide& slide : slides) {
        EXPECT_EQ(resize(slide), slide.file);
    }
    EXPECT_THAT(resizer_.calls(), IsEmpty());
    EXPECT_THAT(host_.log(), IsEmpty());
}

TEST_F(ImageResizeTest, MakesACopyWhoseWidthIsTheLimitDividedByTheOldHeight) {
    const struct {
        Slide slide;
        const char* result;
        std::vector<std::string> calls;
    } rows[] = {
        {{.file = "\\a.jpg", .base = "C:\\P", .width = 500, .height = 200},
         "/VeloraTemp\\a.jpg",
         {"load C:\\P\\\\a.jpg", "width 500", "resize", "save C:\\HTML\\VeloraTemp\\a.jpg"}},
        {{.file = "\\sub\\b.gif", .base = "C:/P", .width = 4000, .height = 3000},
         "/VeloraTemp\\b.gif",
         {"load C:\\P\\\\sub\\b.gif", "width 33.3333333333333", "resize",
          "save C:\\HTML\\VeloraTemp\\b.gif"}},
        {{.file = "sub/c.d.jpeg", .base = "C:\\P", .width = 1, .height = 300000},
         "/VeloraTemp\\c.d.jpeg",
         {"load C:\\P\\sub\\c.d.jpeg", "width 0.333333333333333", "resize",
          "save C:\\HTML\\VeloraTemp\\c.d.jpeg"}},
        {{.file = "e.jpg", .base = "C:\\P", .width = 65535, .height = 20000},
         "/VeloraTemp\\e.jpg",
         {"load C:\\P\\e.jpg", "width 5", "resize", "save C:\\HTML\\VeloraTemp\\e.jpg"}},
    };

    for (const auto& row : rows) {
        support::FakeImageResizer resizer(machine_.files);
        EXPECT_EQ(Resize(instance_, resizer, row.slide, SlideClient::Velora), row.result);
        EXPECT_EQ(resizer.calls(), row.calls);
    }
    EXPECT_THAT(host_.log(), IsEmpty());
}

TEST_F(ImageResizeTest, TellsTheNewSizeInTheDebugLog) {
    instance_.log.set_debug_log(true);
    resizer_.set_copy(support::gif_picture({.width = 33, .height = 25}));
    const Slide slide{.file = "/x/b.gif", .base = "C:\\P", .width = 4000, .height = 3000};
    EXPECT_EQ(resize(slide), "/VeloraTemp\\b.gif");
    EXPECT_THAT(host_.log(), ElementsAre("zynVelora Debug: Resized /x/b.gif to 33x25"));
}

TEST_F(ImageResizeTest, DoesWithoutTheComponent) {
    resizer_.remove();
    const Slide slide{.file = "/x/a.jpg", .base = "C:\\P", .width = 4000, .height = 3000};
    EXPECT_EQ(resize(slide), "/x/a.jpg");
    instance_.log.VeloraWriteLog("zynVelora", "the next line");
    EXPECT_THAT(host_.log(), ElementsAre("zynVelora: the next line"));
}

TEST_F(ImageResizeTest, FailureIsLoggedAndGivesNoPath) {
    const Slide large{.file = "\\a.jpg", .base = "C:\\P", .width = 500, .height = 200};
    for (const char* const call :
         {"load C:\\P\\\\a.jpg", "width 500", "resize", "save C:\\HTML\\VeloraTemp\\a.jpg"}) {
        resizer_.fail_at(call);
        EXPECT_EQ(resize(large), "") << call;
    }
    resizer_.fail_at("");
    EXPECT_EQ(resize({.file = "a.jpg", .base = "", .width = 65535, .height = 65535}), "");
    instance_.settings.MaxPixels = 0;
    EXPECT_EQ(resize({.file = "a.jpg", .base = "", .width = 10, .height = 0}), "");

    const auto line = [](const std::string& description) {
        return MatchesRegex("zynVelora: Resize  Line [0-9]+ " + description);
    };
    const auto failed = line("Device I/O error");
    EXPECT_THAT(host_.log(), ElementsAre(failed, failed, failed, failed, line("Overflow"),
                                         line("Division by zero")));
}

TEST_F(ImageResizeTest, CopiesTheWholePictureForAnotherBrowser) {
    machine_.files.put("C:\\P\\sub\\big.bmp", "new");
    machine_.files.put("C:\\HTML\\VeloraTemp\\big.bmp", "old");
    const Slide slide{.file = "\\sub\\big.bmp", .base = "C:/P", .width = 9000, .height = 9000};
    EXPECT_EQ(resize(slide, SlideClient::Other), "/VeloraTemp/big.bmp");
    EXPECT_EQ(machine_.files.read("C:\\HTML\\VeloraTemp\\big.bmp"), "new");
    EXPECT_EQ(machine_.files.read("C:\\P\\sub\\big.bmp"), "new");

    // Only a backslash ends the folder's name.
    EXPECT_EQ(resize({.file = "/sub/big.bmp", .base = "C:\\P"}, SlideClient::Other), "");
    machine_.files.put_folder("C:\\HTML\\VeloraTemp\\sub");
    EXPECT_EQ(resize({.file = "/sub/big.bmp", .base = "C:\\P"}, SlideClient::Other),
              "/VeloraTemp//sub/big.bmp");
    EXPECT_EQ(machine_.files.read("C:\\HTML\\VeloraTemp\\sub\\big.bmp"), "new");

    EXPECT_EQ(resize({.file = "\\none.jpg", .base = "C:\\P"}, SlideClient::Other), "");
    const auto line = MatchesRegex("zynVelora: Resize  Line [0-9]+ .+");
    EXPECT_THAT(host_.log(), ElementsAre(line, line));
    EXPECT_THAT(resizer_.calls(), IsEmpty());
}

}  // namespace
}  // namespace media
