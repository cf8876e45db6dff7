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

TEST_F(SystemFiles, NamesAreFoundWithoutRegardToCaseAndSlash) {
    files_.CreateFolder(path("HTML"));
    files_.write(path("HTML\\Caf\xC9.wav"), "sound");
    EXPECT_TRUE(std::filesystem::exists(root_ / "HTML" / "Caf\xC3\x89.wav"));

    const std::string mixed = root_.native() + "/";
    for (const std::string& name :
         {path("HTML\\Caf\xC9.wav"), path("html\\caf\xE9.WAV"), mixed + "Html/caf\xE9.wav",
          mixed + "Nowhere\\..\\html\\.\\CAF\xC9.WAV", "\\" + mixed + "\\HTML\\\\caf\xE9.wav"}) {
        EXPECT_TRUE(files_.FileExists(name)) << name;
        EXPECT_EQ(files_.read(name), "sound") << name;
        EXPECT_EQ(files_.describe(name).name, "Caf\xC9.wav");
    }
    files_.write(path("html/caf\xE9.wav"), "new");
    EXPECT_EQ(files_.files_in(path("html")).size(), 1U) << "the same file was written";
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

TEST_F(SystemFiles, FailuresHaveTheNumberOfTheirCause) {
    files_.CreateFolder(path("folder"));
    files_.write(path("file"), "x");
    ASSERT_EQ(::mkfifo((root_ / "pipe").c_str(), 0600), 0);

    const std::string missing = path("missing");
    const std::string nowhere = path("missing\\file");

    const struct {
        std::function<void()> action;
        std::string error;
    } rows[] = {
        {[&] { (void)files_.read(missing); }, "53 File not found: " + missing},
        {[&] { (void)files_.read(nowhere); }, "76 Path not found: " + nowhere},
        {[&] { (void)files_.read("C:\\a.txt"); }, "76 Path not found: C:\\a.txt"},
        {[&] { (void)files_.read(""); }, "76 Path not found: "},
        {[&] { (void)files_.read(path("folder")); }, "53 File not found: " + path("folder")},
        {[&] { (void)files_.read(path("pipe")); }, "53 File not found: " + path("pipe")},
        {[&] { files_.write(nowhere, "x"); }, "76 Path not found: " + nowhere},
        {[&] { files_.write("/dev/full", "x"); }, "61 Disk full: /dev/full"},
        {[&] { files_.open_for_appending("\\dev\\full")->WriteLine("x"); },
         "61 Disk full: \\dev\\full"},
        {[&] { files_.write(path("folder"), "x"); }, "70 Permission denied: " + path("folder")},
        {[&] { files_.CopyFile(path("file"), path("FILE")); },
         "70 Permission denied: " + path("FILE")},
        {[&] { files_.CopyFile(missing, path("b")); }, "53 File not found: " + missing},
        {[&] { files_.CopyFile(path("file"), nowhere); }, "76 Path not found: " + nowhere},
        {[&] { files_.DeleteFile(missing); }, "53 File not found: " + missing},
        {[&] { files_.CreateFolder(nowhere); }, "76 Path not found: " + nowhere},
        {[&] { (void)files_.files_in(missing); }, "76 Path not found: " + missing},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(error_of(row.action), row.error);
    }
    EXPECT_EQ(files_.read(path("file")), "x");
}

TEST_F(SystemFiles, StreamsAppendLinesAndReadInPieces) {
    const std::string name = path("log.txt");
    {
        const auto log = files_.create_text_file(name);
        log->WriteLine("one");
        EXPECT_EQ(files_.read(name), "one\r\n") << "on disk at once";
        files_.open_for_appending(name)->WriteLine("two");
        log->WriteLine("three");
    }
    const auto stream = files_.open_for_reading(name);
    EXPECT_EQ(stream->read(5), "one\r\n");
    EXPECT_FALSE(stream->at_end());
    EXPECT_EQ(stream->read(100), "two\r\nthree\r\n");
    EXPECT_TRUE(stream->at_end());
    EXPECT_EQ(stream->read(1), "");

    files_.CopyFile(name, path("copy.txt"));
    files_.DeleteFile(path("LOG.txt"));
    EXPECT_FALSE(files_.FileExists(name));
    EXPECT_EQ(files_.describe(path("copy.txt")).size, 17);
}

}  // namespace
}  // namespace platform
