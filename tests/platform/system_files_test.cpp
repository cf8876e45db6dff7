#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>

#include "automation/run_time_error.h"
#include "platform/system/disk_files.h"

namespace platform {
namespace {

using automation::RunTimeError;
using testing::ElementsAre;
using testing::Field;

// A folder of its own for each test; names in it as the logic writes them.
class SystemFiles : public testing::Test {
  protected:
    SystemFiles() {
        std::string pattern = testing::TempDir() + "files_XXXXXX";
        root_ = ::mkdtemp(pattern.data());
    }

    ~SystemFiles() override { std::filesystem::remove_all(root_); }

    [[nodiscard]] std::string path(std::string_view name) const {
        std::string path = root_.native() + "\\" + std::string(name);
        std::ranges::replace(path, '/', '\\');
        return path;
    }

    DiskFiles files_;
    std::filesystem::path root_;
};

std::string error_of(const std::function<void()>& action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return std::to_string(error.number()) + " " + error.description();
    }
    return "no error";
}

TEST_F(SystemFiles, NamesAreUtf8OnDisk) {
    files_.CreateFolder(path("HTML"));
    files_.write(path("HTML\\Caf\xC9.wav"), "sound");
    EXPECT_TRUE(std::filesystem::exists(root_ / "HTML" / "Caf\xC3\x89.wav"));
    EXPECT_EQ(files_.read("\\" + root_.native() + "/html/caf\xE9.WAV"), "sound");
}

TEST_F(SystemFiles, WalkOverNamesComesToAnEnd) {
    files_.CreateFolder(path("sub"));
    files_.write(path("a.jpg"), "x");
    std::filesystem::create_symlink("a.jpg", root_ / "b.jpg");
    std::filesystem::create_symlink("nowhere", root_ / "c.jpg");
    std::filesystem::create_directory_symlink("sub", root_ / "other");
    std::filesystem::create_directory_symlink(root_, root_ / "sub" / "up");
    std::filesystem::create_directory_symlink(".", root_ / "sub" / "self");
    ASSERT_EQ(::mkfifo((root_ / "pipe.jpg").c_str(), 0600), 0);
    EXPECT_THAT(files_.names_in(path("")).files, ElementsAre("a.jpg", "b.jpg"));
    EXPECT_THAT(files_.names_in(path("")).folders, ElementsAre("other", "sub"));
    EXPECT_THAT(files_.names_in(path("sub")).folders, testing::IsEmpty());
}

TEST_F(SystemFiles, ExactNameComesBeforeOneOfOtherCase) {
    files_.write(path("a.txt"), "small");
    std::filesystem::copy_file(root_ / "a.txt", root_ / "B.TXT");
    std::filesystem::copy_file(root_ / "a.txt", root_ / "B.txt");
    files_.write(path("B.txt"), "exact");
    EXPECT_EQ(files_.read(path("B.txt")), "exact");
    EXPECT_EQ(files_.read(path("b.txt")), "small") << "first in byte order: B.TXT";
}

TEST_F(SystemFiles, ListingsAreSortedAndLeaveOutWhatCannotBeNamed) {
    for (const char* name : {"b.gif", "A.gif", "\xE6\x97\xA5.gif", "\xFF.gif", "back\\slash.gif"}) {
        files_.write(path("new"), "12345");
        std::filesystem::rename(root_ / "new", root_ / name);
    }
    files_.CreateFolder(path("Sub"));
    EXPECT_THAT(files_.files_in(path("")), ElementsAre(Field(&host::FileEntry::name, "A.gif"),
                                                       Field(&host::FileEntry::name, "b.gif")));
    EXPECT_EQ(files_.files_in(path(""))[0].size, 5);
    EXPECT_THAT(files_.folders_in(path("")), ElementsAre("Sub"));
}

TEST_F(SystemFiles, DevicesAndPipesAreNoFilesAndAFullDiskIsTold) {
    ASSERT_EQ(::mkfifo((root_ / "pipe").c_str(), 0600), 0);

    const struct {
        std::function<void()> action;
        std::string error;
    } rows[] = {
        {[&] { (void)files_.read(path("pipe")); }, "53 File not found: " + path("pipe")},
        {[&] { (void)files_.read("/dev/full"); }, "53 File not found: /dev/full"},
        {[&] { files_.write("/dev/full", "x"); }, "61 Disk full: /dev/full"},
        {[&] { files_.open_for_appending("\\dev\\full")->WriteLine("x"); },
         "61 Disk full: \\dev\\full"},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(error_of(row.action), row.error);
    }
}

}  // namespace
}  // namespace platform
