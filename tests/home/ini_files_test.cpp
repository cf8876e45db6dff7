#include "home/ini/ini_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "automation/run_time_error.h"
#include "home/ini_user_store.h"
#include "home/temporary_folder.h"

namespace home {
namespace {

namespace fs = std::filesystem;
using automation::RunTimeError;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kFile = "zynVeloraUtilities.ini";

struct Refusal {
    std::string step;
    int error = 0;
};

// Refuses one step of a replacement, like a full or protected disk.
class RefusingReplacer : public FileReplacer {
  public:
    explicit RefusingReplacer(const Refusal& refusal) : refusal_(refusal) {}

  protected:
    int open_new(const fs::path& file, unsigned int permissions) override {
        return refuses("open") ? -1 : FileReplacer::open_new(file, permissions);
    }

    std::ptrdiff_t write(int descriptor, std::string_view content) override {
        // The half that fits is written before the disk is full.
        if (content.size() > 4) {
            return FileReplacer::write(descriptor, content.substr(0, content.size() / 2));
        }
        return refuses("write") ? -1 : FileReplacer::write(descriptor, content);
    }

    int sync(int descriptor) override {
        return refuses("sync") ? -1 : FileReplacer::sync(descriptor);
    }

    int rename(const fs::path& from, const fs::path& to) override {
        return refuses("rename") ? -1 : FileReplacer::rename(from, to);
    }

  private:
    bool refuses(std::string_view step) const {
        errno = refusal_.error;
        return refusal_.step == step;
    }

    const Refusal& refusal_;
};

class IniFilesTest : public testing::Test {
  protected:
    std::string get(const std::string& section, const std::string& key,
                    const std::string& file = kFile) {
        return files_.GetIniSetting(section, key, "none", file);
    }

    std::int32_t error_of_saving(const std::string& section, const std::string& key,
                                 const std::string& value, const std::string& file = kFile) {
        try {
            files_.SaveIniSetting(section, key, value, file);
        } catch (const RunTimeError& error) {
            EXPECT_THAT(error.description(), testing::Not(IsEmpty()));
            return error.number();
        }
        return 0;
    }

    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_.path())) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    [[nodiscard]] ino_t inode() const {
        struct stat status {};

        ::stat((folder_.path() / kFile).c_str(), &status);
        return status.st_ino;
    }

    TemporaryFolder folder_;
    std::vector<std::string> problems_;
    Refusal refusal_;
    IniFiles files_{folder_.path(), [this](const std::string& text) { problems_.push_back(text); },
                    std::make_unique<RefusingReplacer>(refusal_)};
};

TEST_F(IniFilesTest, ReadsWithoutRegardToCaseAndKeepsQuotes) {
    folder_.write(kFile,
                  "[Velora Utilities]\nServerPort = \"8080\"\nfoo=\n[\xC3\x84]\n\xC3\xBC=1\n");
    EXPECT_EQ(get("velora utilities", "SERVERPORT"), "\"8080\"");
    EXPECT_EQ(get("Velora Utilities", "foo"), "");
    EXPECT_EQ(get("Velora Utilities", "bar"), "none");
    EXPECT_EQ(get("nothing", "foo"), "none");
    EXPECT_EQ(get("\xE4", "\xDC"), "1") << "UTF-8 in the file, code page 1252 outside";
    EXPECT_EQ(get("Velora Utilities", "foo", "ZYNVELORAUTILITIES.INI"), "");
    EXPECT_EQ(get("a", "b", "missing.ini"), "none");
    EXPECT_EQ(get("", "ScriptTimeout", ""), "none");
    EXPECT_THAT(problems_, IsEmpty());
}

TEST_F(IniFilesTest, SectionComesInTheOrderOfTheFile) {
    folder_.write(kFile, "[N]\n10.0.0.2/b=\"b,~11\"\n; x\n10.0.0.1=a=1\n[M]\nk=1\n[n]\nc=3\n");
    EXPECT_EQ(files_.GetINISection("n", kFile), std::string("10.0.0.2/b=\"b,~11\"\0"
                                                            "10.0.0.1=a=1\0c=3\0",
                                                            36));
    EXPECT_EQ(files_.GetINISection("other", kFile), "");
}

TEST_F(IniFilesTest, SavesAndReadsBack) {
    files_.SaveIniSetting("A", "k", "\"1\"", kFile);
    EXPECT_EQ(get("A", "k"), "\"1\"");
    EXPECT_EQ(folder_.read(kFile), "[A]\nk=\"1\"\n");
    const ino_t before = inode();
    files_.SaveIniSetting("a", "K", "\"1\"", kFile);
    EXPECT_EQ(inode(), before) << "an unchanged value is not written";
    EXPECT_THAT(names(), ElementsAre(kFile)) << "no leftover";
}

TEST_F(IniFilesTest, ReadsAnewWhatAPersonHasChanged) {
    folder_.write(kFile, "[A]\nk=1\nbad line\n");
    EXPECT_EQ(get("A", "k"), "1");
    EXPECT_EQ(get("A", "k"), "1");
    EXPECT_THAT(problems_, ElementsAre("zynVeloraUtilities.ini, line 3: no '=' in 'bad line'"));
    folder_.write(kFile, "[A]\nk=22\nl=3\nbad line\n");
    files_.SaveIniSetting("A", "k", "4", kFile);
    EXPECT_EQ(folder_.read(kFile), "[A]\nk=4\nl=3\nbad line\n");
    EXPECT_EQ(problems_.size(), 2U) << "once for each reading, not for our own writing";
    fs::remove(folder_.path() / kFile);
    EXPECT_EQ(get("A", "k"), "none");
}

TEST_F(IniFilesTest, ARefusedWriteLeavesTheOldFileWhole) {
    const std::string old = "; mine\n[A]\nk=1\n";
    folder_.write(kFile, old);
    for (const auto& [step, error, number] :
         {std::tuple("open", EACCES, 70), std::tuple("write", ENOSPC, 61),
          std::tuple("sync", EIO, 57), std::tuple("rename", EROFS, 70)}) {
        refusal_ = {step, error};
        EXPECT_EQ(error_of_saving("A", "k", "a value of some length"), number) << step;
        EXPECT_EQ(folder_.read(kFile), old) << step;
        EXPECT_EQ(get("A", "k"), "1") << step;
        EXPECT_THAT(names(), ElementsAre(kFile)) << step;
    }
    refusal_ = {};
    EXPECT_EQ(error_of_saving("A", "k", "a value of some length"), 0);
    EXPECT_EQ(folder_.read(kFile), "; mine\n[A]\nk=a value of some length\n");
}

TEST_F(IniFilesTest, ASectionIsReplacedInOneWriteOrNotAtAll) {
    files_.SaveINISection("A", {{"k", "1"}, {"l", "\"2\""}}, kFile);
    files_.SaveINISection("a", {{"l", "3"}}, kFile);
    EXPECT_EQ(folder_.read(kFile), "[A]\nl=3\n");
    EXPECT_THROW(files_.SaveINISection("A", {{"k", "1"}, {"=", "2"}}, kFile), RunTimeError);
    refusal_ = {"write", ENOSPC};
    EXPECT_THROW(files_.SaveINISection("A", {{"k", "long enough"}}, kFile), RunTimeError);
    EXPECT_EQ(folder_.read(kFile), "[A]\nl=3\n");
}

// Each of two programs writes keys of its own into one file, at the same time.
TEST_F(IniFilesTest, TwoProgramsLoseNothingOfEachOther) {
    constexpr int kKeys = 40;
    const auto write_keys = [&](const std::string& prefix) {
        IniFiles files(folder_.path(), [](const std::string&) {});
        for (int i = 0; i < kKeys; ++i) {
            files.SaveIniSetting("A", prefix + std::to_string(i), "1", kFile);
        }
    };
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        write_keys("child");
        std::_Exit(0);
    }
    write_keys("parent");
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    const std::string section = files_.GetINISection("A", kFile);
    EXPECT_EQ(std::ranges::count(section, '\0'), 2 * kKeys);
}

TEST_F(IniFilesTest, KeepsPermissionsAndLinks) {
    folder_.write("real.txt", "[A]\nk=1\n");
    fs::permissions(folder_.path() / "real.txt", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real.txt", folder_.path() / kFile);
    folder_.write(".real.txt.new", "leftover of a killed program");
    files_.SaveIniSetting("A", "k", "2", kFile);
    EXPECT_TRUE(fs::is_symlink(folder_.path() / kFile));
    EXPECT_EQ(folder_.read("real.txt"), "[A]\nk=2\n");
    EXPECT_EQ(fs::status(folder_.path() / "real.txt").permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(IniFilesTest, RefusesWhatWouldNotReadBack) {
    EXPECT_EQ(error_of_saving("A", "k", "1\n[B]"), 5);
    EXPECT_EQ(error_of_saving("A", "a=b", "1"), 5);
    EXPECT_EQ(error_of_saving("A", ";k", "1"), 5);
    EXPECT_EQ(error_of_saving("A", "", "1"), 5);
    EXPECT_EQ(error_of_saving("A]", "k", "1"), 5);
    EXPECT_EQ(error_of_saving("A", "k", "1", "../x.ini"), 52);
    EXPECT_EQ(error_of_saving("A", "k", "1", "a\\b.ini"), 52);
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(IniFilesTest, NeverOverwritesWhatItCannotRead) {
    const std::string wide("\xFF\xFE[\0A\0]\0", 8);
    folder_.write(kFile, wide);
    fs::create_directory(folder_.path() / "folder.ini");
    EXPECT_EQ(get("A", "k"), "none");
    EXPECT_EQ(get("A", "k", "folder.ini"), "none");
    EXPECT_THAT(problems_, ElementsAre(HasSubstr("UTF-16"), "folder.ini cannot be read"));
    EXPECT_EQ(error_of_saving("A", "k", "1"), 57);
    EXPECT_EQ(error_of_saving("A", "k", "1", "folder.ini"), 57);
    EXPECT_EQ(folder_.read(kFile), wide);
}

TEST_F(IniFilesTest, ABinaryFileDoesNotFloodTheLog) {
    std::string lines;
    for (int i = 0; i < 30; ++i) {
        lines += "x\n";
    }
    folder_.write(kFile, lines);
    EXPECT_EQ(get("A", "k"), "none");
    ASSERT_EQ(problems_.size(), 21U);
    EXPECT_EQ(problems_.back(), "zynVeloraUtilities.ini: 10 more lines like that");
}

TEST_F(IniFilesTest, UserStoreKeepsTitlesApart) {
    IniUserStore store(files_);
    store.SaveSetting("zynVelora", "Options", "Debug", "True");
    store.SaveSetting("other", "Options", "Debug", "False");
    EXPECT_EQ(store.GetSetting("zynVelora", "options", "debug", "x"), "True");
    EXPECT_EQ(store.GetSetting("zynVelora", "Clients", "ClientMax", "0"), "0");
    EXPECT_THAT(folder_.read("user_store.ini"), HasSubstr("[zynVelora.Options]\nDebug=True\n"));
}

}  // namespace
}  // namespace home
