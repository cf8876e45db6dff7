#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "vbscript/value/script_error.h"
#include "vbscript/value/value.h"

namespace vbscript {

// What the disk tells of a file or folder.
struct DiskStatus {
    bool is_folder = false;
    bool is_read_only = false;
    std::uintmax_t size = 0;  // 0 for folders
    Date created;             // local time, whole seconds
    Date accessed;
    Date modified;
};

// The files of this machine under the names that scripts use: backslashes or slashes, a component
// found without regard to case where it is not there as it is written, no drive letters. Keeps
// nothing open and remembers nothing. Shared by the objects that stand for files.
// All operations throw ScriptError: 53 no such file, 76 no such folder, 70 no permission, 58 it is
// there already, 52 a name that no file can have, 61 disk full, 67 too many files, 57 for the rest.
class Disk {
  public:
    using Path = std::filesystem::path;

    // Relative names begin at `current_folder`; the program's own one when it is empty.
    explicit Disk(Path current_folder = {});

    // The absolute path that a name means, also where nothing is; absent for a name that no disk
    // here can carry.
    [[nodiscard]] std::optional<Path> find(std::u16string_view name) const;

    // The path of a file (53) or a folder (76) that is there.
    [[nodiscard]] Path file(std::u16string_view name) const;
    [[nodiscard]] Path folder(std::u16string_view name) const;

    // A path where something can be made: its parent is there.
    [[nodiscard]] Path target(std::u16string_view name) const;

    [[nodiscard]] bool has_file(std::u16string_view name) const;
    [[nodiscard]] bool has_folder(std::u16string_view name) const;

    // Files or folders that the last component of `pattern`, which may have wildcards, stands for,
    // sorted by name.
    [[nodiscard]] std::vector<Path> matching_files(std::u16string_view pattern) const;
    [[nodiscard]] std::vector<Path> matching_folders(std::u16string_view pattern) const;

    [[nodiscard]] Path temporary_folder() const;

  private:
    enum class Kind : std::uint8_t { File, Folder };

    [[nodiscard]] std::vector<Path> matching(std::u16string_view pattern, Kind kind) const;

    Path current_folder_;
};

enum class Replace : std::uint8_t { No, Yes };
enum class Force : std::uint8_t { No, Yes };

// Operations on paths that `Disk` gave. A file copied or moved onto itself is error 70.
// Absent when nothing can be seen.
[[nodiscard]] std::optional<DiskStatus> status_of(const Disk::Path& path);

// A path as scripts see it, with backslashes.
[[nodiscard]] std::u16string script_name(const Disk::Path& path);

// Names in a folder that scripts can write, sorted without regard to case.
[[nodiscard]] std::vector<Disk::Path> files_in(const Disk::Path& folder);
[[nodiscard]] std::vector<Disk::Path> folders_in(const Disk::Path& folder);

// Bytes of all files below a folder.
[[nodiscard]] std::uintmax_t size_of_folder(const Disk::Path& folder);

void make_folder(const Disk::Path& folder);
void copy_file(const Disk::Path& from, const Disk::Path& to, Replace replace);
void copy_folder(const Disk::Path& from, const Disk::Path& to, Replace replace);

// `to` must not be there: 58.
void move_entry(const Disk::Path& from, const Disk::Path& to);

// What is read-only is error 70 unless forced.
void delete_file(const Disk::Path& file, Force force);
void delete_folder(const Disk::Path& folder, Force force);
void set_read_only(const Disk::Path& path, bool read_only);

// The error that scripts see; `missing` is what a missing name is called.
[[nodiscard]] ScriptError disk_error(std::error_code error, ErrorNumber missing);

}  // namespace vbscript
