#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "pages/asp_house.h"
#include "pages/pages_house.h"

// The pages and include files that a fresh home gets, on the real engine.
namespace pages {
namespace {

using testing::AllOf;
using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace fs = std::filesystem;

class HousePagesTest : public testing::Test {
  protected:
    HousePagesTest() {
        const fs::path html = fs::path(ZYN_DATA_DIR) / "HTML";
        for (const char* folder : {"includes", "slides"}) {
            for (const fs::directory_entry& entry : fs::directory_iterator(html / folder)) {
                if (!entry.is_regular_file()) {
                    continue;  // the pictures of the show
                }
                const std::string name = entry.path().filename().string();
                std::ifstream stream(entry.path(), std::ios::binary);
                files[name] = {std::istreambuf_iterator<char>(stream), {}};
                house.machine.files.put("C:\\House\\HTML\\" + std::string(folder) + "\\" + name,
                                        files[name]);
            }
        }
    }

    // What a browser gets, in the 20 seconds of a slide.
    std::string slide(const std::string& name, const std::string& browser = "Mozilla") {
        request->variables["HTTP_USER_AGENT"] = browser;
        return asp.ASPSlide(request, response, "\\slides\\" + name, "20");
    }

    PagesHouse house;
    std::map<std::string, std::string> files;
    FakeMenus menus;
    std::shared_ptr<FakeRequest> request = std::make_shared<FakeRequest>();
    std::shared_ptr<FakeResponse> response = std::make_shared<FakeResponse>();
    HostPage page{house.instance, &menus};
    PageEngine engine{house.instance};
    HTMLIncludes includes{house.instance, engine, page};
    ConvertASP asp{house.instance, engine, includes};
};

TEST_F(HousePagesTest, LinesEndAsTheConversionNeedsThem) {
    ASSERT_THAT(files, SizeIs(8));
    for (const auto& [name, text] : files) {
        EXPECT_THAT(text, Not(ContainsRegex("[^\r]\n"))) << name;
    }
}

TEST_F(HousePagesTest, TheClockShowsTheTime) {
    const std::string text = slide("clock.asp");
    EXPECT_THAT(text, AllOf(HasSubstr("<HEAD><meta http-equiv=\"Refresh\" content=\"20\"; "
                                      "URL=\"/VeloraSlideshow.asp\">"),
                            HasSubstr("10:00"), HasSubstr("Tuesday, 24 November 2026"),
                            HasSubstr("Good morning."), EndsWith("</BODY></HTML>")));
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST_F(HousePagesTest, TheHousePageShowsTheDevicesAsTheClientCan) {
    house.host.put_device("A1");
    house.host.put_device("B2");
    house.host.SetDeviceString("A1", "Bright");
    house.host.SetDeviceStatus("B2", 3);
    EXPECT_THAT(slide("house.asp"),
                AllOf(HasSubstr("<meta http-equiv='Refresh' content='20; URL="),
                      HasSubstr("<td class='TABLEROWEVEN' colspan='1' align='left'>Bright</td>"),
                      HasSubstr("<td class='TABLEROWODD' colspan='1' align='left'>Off</td>"),
                      HasSubstr(">NO SECURITY</td>"), EndsWith("</body></html>")));
    EXPECT_THAT(slide("house.asp", "Velora"),
                AllOf(HasSubstr("bgcolor='#949494'><font "), Not(HasSubstr("class='TABLEROW"))));
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST_F(HousePagesTest, PlainPagesGetTheRefreshOfTheShow) {
    EXPECT_THAT(slide("welcome.html"),
                AllOf(HasSubstr("<head><meta http-equiv=\"Refresh\" content=\"20\"; "),
                      HasSubstr("<b>Welcome home</b>"), EndsWith("</body></html>")));
    EXPECT_THAT(
        slide("notice.htm"),
        HasSubstr("<meta http-equiv=\"Refresh\" content=\"20; URL=/VeloraSlideshow.asp\">"));
    EXPECT_THAT(house.host.log(), IsEmpty());
}

}  // namespace
}  // namespace pages
