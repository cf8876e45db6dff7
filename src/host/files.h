#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/date.h"

namespace host {

struct FileEntry {
    std::string name;  // without folder
    std::int64_t size = 0;
    automation::DateTime last_modified{};
};

// What lies directly in a folder, by name.
struct FolderNames {
    std::vector<std::string> files;
    std::vector<std::string> folders;
};

// A text file open for appending; closed when destroyed.
class TextStream {
  public:
    virtual ~TextStream() = default;

    // Add the text as it is, or the line and CR LF; on disk when the call returns. Throw:
    // RunTimeError 61 or 57.
    virtual void Write(std::string_view text) = 0;
    virtual void WriteLine(std::string_view line) = 0;
};

// A file open for reading in pieces; closed when destroyed.
class ByteStream {
  public:
    virtual ~ByteStream() = default;

    // At most `count` bytes; fewer only at the end of the file, "" past it. Throws:
    // RunTimeError 57.
    [[nodiscard]] virtual std::string read(std::size_t count) = 0;
    [[nodiscard]] virtual bool at_end() = 0;
};

// The file service. Paths carry backslashes or slashes; a name is found without regard to case
// when no name of exactly that case is there; names with a drive letter do not exist. All
// operations throw RunTimeError: 53 no such file, 76 no such folder, 70 no permission, 61 disk
// full, 57 for the rest, each with the path in its description.
class Files {
  public:
    virtual ~Files() = default;

    // Questions; false where nothing can be seen.
    [[nodiscard]] virtual bool FileExists(std::string_view path) = 0;
    [[nodiscard]] virtual bool FolderExists(std::string_view path) = 0;

    virtual void CreateFolder(std::string_view path) = 0;  // its parent must exist
    [[nodiscard]] virtual std::vector<FileEntry> files_in(std::string_view folder) = 0;
    [[nodiscard]] virtual std::vector<std::string> folders_in(std::string_view folder) = 0;

    // Both at once and nothing but the names, for walks over many files. Links to a folder above
    // are left out, so that a walk comes to an end.
    [[nodiscard]] virtual FolderNames names_in(std::string_view folder) = 0;
    [[nodiscard]] virtual FileEntry describe(std::string_view file) = 0;

    [[nodiscard]] virtual std::string read(std::string_view file) = 0;
    virtual void write(std::string_view file, std::string_view content) = 0;      // replaces
    virtual void CopyFile(std::string_view source, std::string_view target) = 0;  // overwrites
    virtual void DeleteFile(std::string_view file) = 0;

    [[nodiscard]] virtual std::unique_ptr<ByteStream> open_for_reading(std::string_view file) = 0;

    // Appends to a file, which is made if it is missing.
    [[nodiscard]] virtual std::unique_ptr<TextStream> open_for_appending(std::string_view file) = 0;

    // Appends to a new, empty file.
    [[nodiscard]] virtual std::unique_ptr<TextStream> create_text_file(std::string_view file) = 0;
};

}  // namespace host
