#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>

#include "automation/run_time_error.h"
#include "platform/system/disk_files.h"
#include "support/memory_files.h"
#include "support/virtual_pump.h"

namespace {

using testing::ElementsAre;
using testing::Field;

// A folder of the machine, deleted at the end.
struct DiskFolder {
    static constexpr const char* kName = "Disk";

    DiskFolder() {
        std::string pattern = testing::TempDir() + "files_XXXXXX";
        on_disk = ::mkdtemp(pattern.data());
        root = on_disk.native();
        std::ranges::replace(root, '/', '\\');
    }

    ~DiskFolder() { std::filesystem::remove_all(on_disk); }

    platform::DiskFiles files;
    std::filesystem::path on_disk;
    std::string root;
};

struct MemoryFolder {
    static constexpr const char* kName = "Memory";

    MemoryFolder() { files.CreateFolder(root); }

    support::VirtualPump clock;
    support::MemoryFiles files{clock};
    std::string root = "C:\\House";
};

template <typename Folder>
class FilesContract : public testing::Test {
  protected:
    [[nodiscard]] std::string path(std::string_view name) const {
        return folder_.root + "\\" + std::string(name);
    }

    [[nodiscard]] host::Files& files() { return folder_.files; }

    Folder folder_;
};

struct FolderNames {
    template <typename Folder>
    static std::string GetName(int) {
        return Folder::kName;
    }
};

using Folders = testing::Types<DiskFolder, MemoryFolder>;
TYPED_TEST_SUITE(FilesContract, Folders, FolderNames);

std::string error_of(const std::function<void()>& action) {
    try {
        action();
    } catch (const automation::RunTimeError& error) {
        return std::to_string(error.number()) + " " + error.description();
    }
    return "no error";
}

TYPED_TEST(FilesContract, NamesAreFoundWithoutRegardToCaseAndSlash) {
    host::Files& files = this->files();
    files.CreateFolder(this->path("HTML"));
    files.write(this->path("HTML\\Caf\xC9.wav"), "sound");

    std::string with_slashes = this->folder_.root + "/";
    std::ranges::replace(with_slashes, '\\', '/');
    for (const std::string& name :
         {this->path("HTML\\Caf\xC9.wav"), this->path("html\\caf\xE9.WAV"),
          with_slashes + "Html/caf\xE9.wav", with_slashes + "Nowhere\\..\\html\\.\\CAF\xC9.WAV",
          with_slashes + "\\HTML\\\\caf\xE9.wav"}) {
        EXPECT_TRUE(files.FileExists(name)) << name;
        EXPECT_FALSE(files.FolderExists(name)) << name;
        EXPECT_EQ(files.read(name), "sound") << name;
        EXPECT_EQ(files.describe(name).name, "Caf\xC9.wav");
    }
    files.write(this->path("html/caf\xE9.wav"), "new");
    EXPECT_EQ(files.files_in(this->path("html")).size(), 1U) << "the same file was written";
}

TYPED_TEST(FilesContract, ListingsAreSortedWithoutRegardToCase) {
    for (const char* name : {"b.gif", "A.gif", "C.gif"}) {
        this->files().write(this->path(name), "12345");
    }
    this->files().CreateFolder(this->path("Sub"));
    this->files().write(this->path("Sub\\deeper.gif"), "");
    const auto files = this->files().files_in(this->path(""));
    EXPECT_THAT(files, ElementsAre(Field(&host::FileEntry::name, "A.gif"),
                                   Field(&host::FileEntry::name, "b.gif"),
                                   Field(&host::FileEntry::name, "C.gif")));
    EXPECT_EQ(files[0].size, 5);
    EXPECT_THAT(this->files().folders_in(this->path("")), ElementsAre("Sub"));
    const host::FolderNames names = this->files().names_in(this->path(""));
    EXPECT_THAT(names.files, ElementsAre("A.gif", "b.gif", "C.gif"));
    EXPECT_THAT(names.folders, ElementsAre("Sub"));
}

TYPED_TEST(FilesContract, FailuresHaveTheNumberOfTheirCause) {
    host::Files& files = this->files();
    const std::string file = this->path("file");
    const std::string folder = this->path("folder");
    const std::string missing = this->path("missing");
    const std::string nowhere = this->path("missing\\file");
    files.CreateFolder(folder);
    files.write(file, "x");

    const struct {
        std::function<void()> action;
        std::string error;
    } rows[] = {
        {[&] { (void)files.read(missing); }, "53 File not found: " + missing},
        {[&] { (void)files.read(nowhere); }, "76 Path not found: " + nowhere},
        {[&] { (void)files.read("Q:\\a.txt"); }, "76 Path not found: Q:\\a.txt"},
        {[&] { (void)files.read(""); }, "76 Path not found: "},
        {[&] { (void)files.read(folder); }, "53 File not found: " + folder},
        {[&] { (void)files.describe(missing); }, "53 File not found: " + missing},
        {[&] { (void)files.open_for_reading(missing); }, "53 File not found: " + missing},
        {[&] { files.write(nowhere, "x"); }, "76 Path not found: " + nowhere},
        {[&] { files.write(folder, "x"); }, "70 Permission denied: " + folder},
        {[&] { (void)files.create_text_file(nowhere); }, "76 Path not found: " + nowhere},
        {[&] { (void)files.open_for_appending(folder); }, "70 Permission denied: " + folder},
        {[&] { files.CopyFile(file, this->path("FILE")); },
         "70 Permission denied: " + this->path("FILE")},
        {[&] { files.CopyFile(missing, this->path("b")); }, "53 File not found: " + missing},
        {[&] { files.CopyFile(file, nowhere); }, "76 Path not found: " + nowhere},
        {[&] { files.DeleteFile(missing); }, "53 File not found: " + missing},
        {[&] { files.DeleteFile(folder); }, "53 File not found: " + folder},
        {[&] { files.CreateFolder(nowhere); }, "76 Path not found: " + nowhere},
        {[&] { files.CreateFolder(folder); }, "58 File already exists: " + folder},
        {[&] { (void)files.files_in(missing); }, "76 Path not found: " + missing},
        {[&] { (void)files.folders_in(file); }, "76 Path not found: " + file},
        {[&] { (void)files.names_in(file); }, "76 Path not found: " + file},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(error_of(row.action), row.error);
    }
    EXPECT_EQ(files.read(file), "x");
}

TYPED_TEST(FilesContract, StreamsAppendLinesAndReadInPieces) {
    host::Files& files = this->files();
    const std::string name = this->path("log.txt");
    {
        const auto log = files.create_text_file(name);
        log->WriteLine("one");
        EXPECT_EQ(files.read(name), "one\r\n") << "on disk at once";
        files.open_for_appending(name)->WriteLine("two");
        log->Write("th");
        log->WriteLine("ree");
    }
    const auto stream = files.open_for_reading(name);
    EXPECT_EQ(stream->read(5), "one\r\n");
    EXPECT_FALSE(stream->at_end());
    EXPECT_EQ(stream->read(100), "two\r\nthree\r\n");
    EXPECT_TRUE(stream->at_end());
    EXPECT_EQ(stream->read(1), "");

    files.CopyFile(name, this->path("copy.txt"));
    files.DeleteFile(this->path("LOG.txt"));
    EXPECT_FALSE(files.FileExists(name));
    EXPECT_EQ(files.describe(this->path("copy.txt")).size, 17);
    files.create_text_file(this->path("copy.txt"))->WriteLine("new");
    EXPECT_EQ(files.read(this->path("copy.txt")), "new\r\n") << "the old one is replaced";
}

// --- the disk in memory alone
// ---------------------------------------------------------------------

using MemoryFilesTest = FilesContract<MemoryFolder>;

TEST_F(MemoryFilesTest, ADiskCanFillUpAndIsCleanedUp) {
    support::MemoryFiles& files = folder_.files;
    files.fail_after(3, automation::ErrorNumber::DiskFull);
    const auto log = files.create_text_file(path("log"));
    log->WriteLine("one");
    files.write(path("a"), "a");
    EXPECT_EQ(error_of([&] { log->WriteLine("two"); }), "61 Disk full: C:\\House\\log");
    EXPECT_EQ(error_of([&] { files.write(path("a"), "b"); }), "61 Disk full: C:\\House\\a");
    EXPECT_EQ(error_of([&] { files.CreateFolder(path("f")); }), "61 Disk full: C:\\House\\f");
    EXPECT_EQ(files.read(path("log")) + files.read(path("a")), "one\r\na");
    files.put(path("new\\b"), "by the test");
    EXPECT_EQ(error_of([&] { files.write(path("a"), "b"); }), "61 Disk full: C:\\House\\a");
    files.stop_failing();
    EXPECT_EQ(error_of([&] { log->WriteLine("two"); }), "no error");
}

TEST_F(MemoryFilesTest, AChangeHasItsTime) {
    folder_.files.write(path("a"), "a");
    const auto written = folder_.clock.now();
    folder_.clock.run_for(std::chrono::minutes(5));
    EXPECT_EQ(files().describe(path("a")).last_modified, written);
    folder_.files.open_for_appending(path("a"))->WriteLine("b");
    EXPECT_EQ(files().describe(path("a")).last_modified, folder_.clock.now());
}

}  // namespace
