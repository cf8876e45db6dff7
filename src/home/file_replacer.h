#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>

namespace home {

// Gives a file a new content so that a reader, a crash or a power cut finds the old content or the
// new one and nothing between: a new file in the same folder is written, synced and renamed over
// the old one, then the folder is synced. Owned by whoever writes files; holds no state.
//
// The four steps that the system can refuse are virtual, so that a test can refuse them.
class FileReplacer {
  public:
    FileReplacer() = default;
    FileReplacer(const FileReplacer&) = delete;
    FileReplacer& operator=(const FileReplacer&) = delete;
    virtual ~FileReplacer() = default;

    // Keeps the permissions of the old file; a symbolic link stays and its target is replaced.
    // Throws: RunTimeError 70, 61, 53 or 57 with the path; the old file is then as it was, unless
    // only the last sync failed.
    void replace(const std::filesystem::path& file, std::string_view content);

  protected:
    // Each as the system call of its name: negative with errno set when refused.
    virtual int open_new(const std::filesystem::path& file, unsigned int permissions);
    virtual std::ptrdiff_t write(int descriptor, std::string_view content);
    virtual int sync(int descriptor);
    virtual int rename(const std::filesystem::path& from, const std::filesystem::path& to);

  private:
    void write_new(const std::filesystem::path& file, std::string_view content,
                   unsigned int permissions);
    void sync_folder(const std::filesystem::path& folder);
};

}  // namespace home
