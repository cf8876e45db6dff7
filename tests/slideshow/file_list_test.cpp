#include "slideshow/file_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/house.h"

namespace slideshow {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FileList : public testing::Test {
  protected:
    FileList() { house.settings().jpg = true; }

    void put(std::string_view file) { house.machine().files.put(file, "picture"); }

    const std::vector<std::string>& build(std::string_view folder, std::string_view base) {
        BuildFileList(house.instance(), folder, base, list);
        return list.FileNames;
    }

    support::House house;
    PictureList list;
};

TEST_F(FileList, TakesTheKindsThatAreSwitchedOnByTheirLastFourCharacters) {
    const struct {
        const char* name;
        bool jpg, gif, bmp;
        bool is_taken;
    } rows[] = {
        {"a.jpg", true, false, false, true},  {"a.JPG", true, false, false, true},
        {"b.jpeg", true, false, false, true}, {"bjpeg", true, false, false, true},
        {"b.jpeg", false, true, true, false}, {"a.jpg", false, true, true, false},
        {"c.GIF", false, true, false, true},  {"c.gif", true, false, true, false},
        {"d.bmp", false, false, true, true},  {"d.Bmp", true, true, false, false},
        {"x.png", true, true, true, false},   {"gif", true, true, true, false},
        {".gif", true, true, true, true},     {"a.jpg.txt", true, true, true, false},
    };

    int folder = 0;
    for (const auto& row : rows) {
        const std::string path = "C:\\P" + std::to_string(folder++);
        put(path + "\\" + row.name);
        house.settings().jpg = row.jpg;
        house.settings().gif = row.gif;
        house.settings().bmp = row.bmp;
        list = {};
        EXPECT_EQ(build(path, path).front(), row.is_taken ? std::string("\\") + row.name : "")
            << row.name;
    }
}

TEST_F(FileList, TellsPathsBelowTheBaseFilesBeforeFolders) {
    put("C:\\Web\\Pictures\\z.jpg");
    put("C:\\Web\\Pictures\\a\\deep\\b.jpg");
    put("C:\\Web\\Pictures\\a\\a.jpg");
    put("C:\\Web\\other.jpg");
    EXPECT_THAT(
        build("C:/web/Pictures/", "c:\\WEB\\"),
        ElementsAre("\\Pictures\\z.jpg", "\\Pictures\\a\\a.jpg", "\\Pictures\\a\\deep\\b.jpg"));
    EXPECT_THAT(list.FileWidths, ElementsAre(-1, -1, -1));
    EXPECT_THAT(list.FileHeights, ElementsAre(-1, -1, -1));
    put("C:\\More\\m.jpg");
    EXPECT_THAT(build("C:\\More", ""), testing::Contains("C:\\More\\m.jpg"))
        << "two folders share one list";
    EXPECT_EQ(list.FileNames.size(), 4U);
}

TEST_F(FileList, DropsTheBaseWhereverItOccurs) {
    put("C:\\p\\x\\c\\p\\y.jpg");
    EXPECT_THAT(build("C:\\p\\x", "\\P"), ElementsAre("C:\\x\\c\\y.jpg"));
}

TEST_F(FileList, WithoutPicturesIsEmpty) {
    put("C:\\P\\readme.txt");
    EXPECT_THAT(build("C:\\P", "C:\\P"), ElementsAre(""));
    EXPECT_TRUE(list.is_empty());
    EXPECT_THAT(house.log(), IsEmpty());
}

TEST_F(FileList, FolderThatCannotBeReadIsLogged) {
    build("C:\\Nowhere", "C:\\");
    EXPECT_TRUE(list.is_empty());
    EXPECT_THAT(house.log(), ElementsAre(HasSubstr("zynVelora: BuildFileList ")));
}

TEST_F(FileList, IsToldInTheLogOnlyWithShowSlides) {
    put("C:\\P\\Sub\\a.jpg");
    build("C:\\P", "C:\\P");
    EXPECT_THAT(house.log(), IsEmpty());
    house.settings().ShowSlides = true;
    build("C:\\P", "C:\\P");
    EXPECT_THAT(house.log(), ElementsAre("zynVelora Debug: Folder Slideshow List: P, Base=C:\\P",
                                         "zynVelora Debug: Folder Slideshow List: Sub, Base=C:\\P",
                                         "zynVelora Debug: Added to Slideshow List: \\Sub\\a.jpg"));
}

}  // namespace
}  // namespace slideshow
