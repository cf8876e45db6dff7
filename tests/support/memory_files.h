#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/run_time_error.h"
#include "host/clock.h"
#include "host/files.h"

namespace support {

// The file service of tests: a disk in memory, empty but for the drive C:, on which each name is
// there once in whatever case. Owned by the fixture; the clock, which gives the time of each
// change, outlives it. Streams may outlive their file, as on a real disk.
class MemoryFiles final : public host::Files {
  public:
    explicit MemoryFiles(const host::Clock& clock);
    ~MemoryFiles() override;

    // --- verbs of tests -------------------------------------------------------------------------

    // A file that is simply there, its folders too; no write in the sense of `fail_after`.
    void put(std::string_view file, std::string_view content);

    // A folder, and those above it.
    void put_folder(std::string_view folder);

    // After this many more writes all later ones throw `error`. A new folder, a file written or
    // copied, a stream opened for writing and a line are one write each.
    void fail_after(std::size_t writes, automation::ErrorNumber error);

    // The disk takes writes again.
    void stop_failing() { writes_left_.reset(); }

    // --- host::Files ----------------------------------------------------------------------------

    [[nodiscard]] bool FileExists(std::string_view path) override;
    [[nodiscard]] bool FolderExists(std::string_view path) override;

    void CreateFolder(std::string_view path) override;
    [[nodiscard]] std::vector<host::FileEntry> files_in(std::string_view folder) override;
    [[nodiscard]] std::vector<std::string> folders_in(std::string_view folder) override;
    [[nodiscard]] host::FolderNames names_in(std::string_view folder) override;
    [[nodiscard]] host::FileEntry describe(std::string_view file) override;

    [[nodiscard]] std::string read(std::string_view file) override;
    void write(std::string_view file, std::string_view content) override;
    void CopyFile(std::string_view source, std::string_view target) override;
    void DeleteFile(std::string_view file) override;

    [[nodiscard]] std::unique_ptr<host::ByteStream> open_for_reading(
        std::string_view file) override;
    [[nodiscard]] std::unique_ptr<host::TextStream> open_for_appending(
        std::string_view file) override;
    [[nodiscard]] std::unique_ptr<host::TextStream> create_text_file(
        std::string_view file) override;

  private:
    class Reader;
    class Writer;

    struct Content {
        std::string bytes;
        automation::DateTime last_modified{};
    };

    struct Entry {
        std::string name;                  // as it was first written
        std::shared_ptr<Content> content;  // none for a folder
    };

    // Where a path leads.
    struct Place {
        std::string key;  // its parts in lower case, joined by "\"; "" for the root
        std::string folder_key;
        std::string name;
    };

    [[nodiscard]] static Place place_of(std::string_view path);
    [[nodiscard]] const Entry* find(const std::string& key) const;
    [[nodiscard]] bool is_folder(const std::string& key) const;
    [[nodiscard]] Content& existing_file(std::string_view path);
    [[nodiscard]] std::shared_ptr<Content> file_for_writing(std::string_view path);
    [[nodiscard]] std::vector<const Entry*> entries_in(std::string_view folder) const;
    void fill(Content& content, std::string_view bytes) const;
    void count_write(std::string_view path);

    const host::Clock& clock_;
    std::map<std::string, Entry> entries_;  // by key, without the root
    std::optional<std::size_t> writes_left_;
    automation::ErrorNumber write_error_{};
};

}  // namespace support
