#pragma once

#include "host/files.h"

namespace platform {

// The file service on the machine's disks. Without state: every call looks the name up anew, so
// that files may come and go beside the program. Listings are sorted without regard to case and
// leave out names that the code page cannot carry. Only regular files count as files. A file whose
// `write` fails is left empty, never half written.
class DiskFiles final : public host::Files {
  public:
    [[nodiscard]] bool FileExists(std::string_view path) override;
    [[nodiscard]] bool FolderExists(std::string_view path) override;

    void CreateFolder(std::string_view path) override;  // throws 58 as well, when it is there
    [[nodiscard]] std::vector<host::FileEntry> files_in(std::string_view folder) override;
    [[nodiscard]] std::vector<std::string> folders_in(std::string_view folder) override;
    [[nodiscard]] host::FolderNames names_in(std::string_view folder) override;
    [[nodiscard]] host::FileEntry describe(std::string_view file) override;

    [[nodiscard]] std::string read(std::string_view file) override;
    void write(std::string_view file, std::string_view content) override;

    // A file copied onto itself is error 70. The copy's time is that of copying.
    void CopyFile(std::string_view source, std::string_view target) override;
    void DeleteFile(std::string_view file) override;

    [[nodiscard]] std::unique_ptr<host::ByteStream> open_for_reading(
        std::string_view file) override;
    [[nodiscard]] std::unique_ptr<host::TextStream> open_for_appending(
        std::string_view file) override;
    [[nodiscard]] std::unique_ptr<host::TextStream> create_text_file(
        std::string_view file) override;
};

}  // namespace platform
