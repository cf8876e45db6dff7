#include "platform/system/disk_files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <system_error>

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
