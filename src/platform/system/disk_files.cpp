#include "platform/system/disk_files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <system_error>
#include <tuple>

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "platform/system/disk_path.h"
#include "platform/system/disk_streams.h"
#include "platform/system/file_error.h"
#include "platform/system/local_time.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

using std::chrono::nanoseconds;
using std::chrono::seconds;

enum class Kind : std::uint8_t { File, Folder };

[[noreturn]] void fail(std::errc error, std::string_view path,
                       const std::optional<fs::path>& on_disk) {
    throw file_error(std::make_error_code(error), path, on_disk);
}

// Status of what `path` means, links followed; absent where nothing of that kind can be seen.
std::optional<struct stat> status_of(const std::optional<fs::path>& on_disk, Kind kind) {
    struct stat status {};

    if (!on_disk || ::stat(on_disk->c_str(), &status) != 0) {
        return std::nullopt;
    }
    const bool matches = kind == Kind::File ? S_ISREG(status.st_mode) : S_ISDIR(status.st_mode);
    return matches ? std::optional(status) : std::nullopt;
}

host::FileEntry entry_of(std::string name, const struct stat& status) {
    const auto modified = seconds(status.st_mtim.tv_sec) + nanoseconds(status.st_mtim.tv_nsec);
    return {.name = std::move(name),
            .size = status.st_size,
            .last_modified = local_time(std::chrono::floor<std::chrono::milliseconds>(
                std::chrono::sys_time<nanoseconds>(modified)))};
}

// What a folder holds under one name; absent for devices, pipes, broken links and links to a folder
// above. The listing tells it by itself but for links.
std::optional<Kind> kind_of(const fs::directory_entry& entry) {
    std::error_code ignored;
    if (entry.is_regular_file(ignored)) {
        return Kind::File;
    }
    if (!entry.is_directory(ignored)) {
        return std::nullopt;
    }
    if (entry.is_symlink(ignored)) {
        const fs::path target = fs::canonical(entry.path(), ignored);
        const fs::path folder = fs::canonical(entry.path().parent_path(), ignored);
        const auto [differs, rest] =
            std::mismatch(target.begin(), target.end(), folder.begin(), folder.end());
        if (differs == target.end()) {
            return std::nullopt;
        }
    }
    return Kind::Folder;
}

// A name with what it is sorted by.
struct SortedName {
    std::string key;
    std::string name;
};

SortedName sorted_name(std::string name) {
    return {automation::to_lower(name), std::move(name)};
}

std::vector<std::string> in_order(std::vector<SortedName> names) {
    std::ranges::sort(names, {},
                      [](const SortedName& name) { return std::tie(name.key, name.name); });
    std::vector<std::string> sorted;
    sorted.reserve(names.size());
    for (SortedName& name : names) {
        sorted.push_back(std::move(name.name));
    }
    return sorted;
}

// Files or folders directly in `folder`, sorted.
std::vector<host::FileEntry> entries_in(std::string_view folder, Kind kind) {
    const std::optional<fs::path> on_disk = disk_path(folder);
    if (!status_of(on_disk, Kind::Folder)) {
        fail(std::errc::not_a_directory, folder, on_disk);
    }
    std::vector<host::FileEntry> entries;
    std::error_code error;
    fs::directory_iterator position(*on_disk, error);
    while (!error && position != fs::directory_iterator()) {
        const fs::path& path = position->path();
        std::optional<std::string> name = logic_name(path.filename());
        const std::optional<struct stat> status = status_of(path, kind);
        if (name && status) {
            entries.push_back(entry_of(*std::move(name), *status));
        }
        position.increment(error);
    }
    if (error) {
        throw file_error(error, folder, on_disk);
    }
    std::ranges::sort(entries, {}, [](const host::FileEntry& entry) {
        return std::pair(automation::to_lower(entry.name), entry.name);
    });
    return entries;
}

// Folders, devices and pipes are no files to read.
void require_file(std::string_view path) {
    const std::optional<fs::path> on_disk = disk_path(path);
    if (!status_of(on_disk, Kind::File)) {
        fail(std::errc::no_such_file_or_directory, path, on_disk);
    }
}

}  // namespace

bool DiskFiles::FileExists(std::string_view path) {
    return status_of(disk_path(path), Kind::File).has_value();
}

bool DiskFiles::FolderExists(std::string_view path) {
    return status_of(disk_path(path), Kind::Folder).has_value();
}

void DiskFiles::CreateFolder(std::string_view path) {
    const std::optional<fs::path> on_disk = disk_path(path);
    if (!on_disk) {
        fail(std::errc::no_such_file_or_directory, path, on_disk);
    }
    if (::mkdir(on_disk->c_str(), 0777) != 0) {
        throw last_file_error(path, on_disk);
    }
}

std::vector<host::FileEntry> DiskFiles::files_in(std::string_view folder) {
    return entries_in(folder, Kind::File);
}

std::vector<std::string> DiskFiles::folders_in(std::string_view folder) {
    std::vector<std::string> names;
    for (host::FileEntry& entry : entries_in(folder, Kind::Folder)) {
        names.push_back(std::move(entry.name));
    }
    return names;
}

host::FolderNames DiskFiles::names_in(std::string_view folder) {
    const std::optional<fs::path> on_disk = disk_path(folder);
    if (!status_of(on_disk, Kind::Folder)) {
        fail(std::errc::not_a_directory, folder, on_disk);
    }
    std::vector<SortedName> files;
    std::vector<SortedName> folders;
    std::error_code error;
    fs::directory_iterator position(*on_disk, error);
    while (!error && position != fs::directory_iterator()) {
        const std::optional<Kind> kind = kind_of(*position);
        std::optional<std::string> name;
        if (kind && (name = logic_name(position->path().filename()))) {
            (*kind == Kind::File ? files : folders).push_back(sorted_name(*std::move(name)));
        }
        position.increment(error);
    }
    if (error) {
        throw file_error(error, folder, on_disk);
    }
    return {.files = in_order(std::move(files)), .folders = in_order(std::move(folders))};
}

host::FileEntry DiskFiles::describe(std::string_view file) {
    const std::optional<fs::path> on_disk = disk_path(file);
    const std::optional<struct stat> status = status_of(on_disk, Kind::File);
    if (!status) {
        fail(std::errc::no_such_file_or_directory, file, on_disk);
    }
    return entry_of(logic_name(on_disk->filename()).value_or(""), *status);
}

std::string DiskFiles::read(std::string_view file) {
    return open_for_reading(file)->read(std::numeric_limits<std::size_t>::max());
}

void DiskFiles::write(std::string_view file, std::string_view content) {
    OpenFile target(file, O_WRONLY | O_CREAT | O_TRUNC);
    try {
        target.write(content);
    } catch (const automation::RunTimeError&) {
        target.empty();
        throw;
    }
}

void DiskFiles::CopyFile(std::string_view source, std::string_view target) {
    require_file(source);
    const std::optional<fs::path> from = disk_path(source);
    const std::optional<fs::path> to = disk_path(target);
    if (!to) {
        fail(std::errc::no_such_file_or_directory, target, to);
    }
    std::error_code error;
    if (fs::equivalent(*from, *to, error)) {
        fail(std::errc::permission_denied, target, to);
    }
    error.clear();
    fs::copy_file(*from, *to, fs::copy_options::overwrite_existing, error);
    if (error) {
        throw file_error(error, target, to);
    }
}

void DiskFiles::DeleteFile(std::string_view file) {
    require_file(file);
    const std::optional<fs::path> on_disk = disk_path(file);
    std::error_code error;
    fs::remove(*on_disk, error);
    if (error) {
        throw file_error(error, file, on_disk);
    }
}

std::unique_ptr<host::ByteStream> DiskFiles::open_for_reading(std::string_view file) {
    require_file(file);
    return std::make_unique<DiskByteStream>(file);
}

std::unique_ptr<host::TextStream> DiskFiles::open_for_appending(std::string_view file) {
    return std::make_unique<DiskTextStream>(file, DiskTextStream::Start::Append);
}

std::unique_ptr<host::TextStream> DiskFiles::create_text_file(std::string_view file) {
    return std::make_unique<DiskTextStream>(file, DiskTextStream::Start::Empty);
}

}  // namespace platform
