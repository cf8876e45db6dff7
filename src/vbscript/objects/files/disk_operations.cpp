#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <string>

#include "vbscript/objects/files/disk.h"
#include "vbscript/value/date_parts.h"

namespace vbscript {
namespace {

namespace fs = std::filesystem;
using Path = Disk::Path;

constexpr auto kWriting = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

struct Translation {
    std::errc system;
    ErrorNumber number;
};

constexpr auto kTranslations = std::to_array<Translation>({
    {std::errc::permission_denied, ErrorNumber::PermissionDenied},
    {std::errc::operation_not_permitted, ErrorNumber::PermissionDenied},
    {std::errc::read_only_file_system, ErrorNumber::PermissionDenied},
    {std::errc::is_a_directory, ErrorNumber::PermissionDenied},
    {std::errc::text_file_busy, ErrorNumber::PermissionDenied},
    {std::errc::directory_not_empty, ErrorNumber::PermissionDenied},
    {std::errc::device_or_resource_busy, ErrorNumber::PermissionDenied},
    {std::errc::file_exists, ErrorNumber::FileAlreadyExists},
    {std::errc::not_a_directory, ErrorNumber::PathNotFound},
    {std::errc::no_space_on_device, ErrorNumber::DiskFull},
    {std::errc::file_too_large, ErrorNumber::DiskFull},
    {std::errc::too_many_files_open, ErrorNumber::TooManyFiles},
    {std::errc::too_many_files_open_in_system, ErrorNumber::TooManyFiles},
    {std::errc::filename_too_long, ErrorNumber::BadFileNameOrNumber},
    {std::errc::invalid_argument, ErrorNumber::BadFileNameOrNumber},
    {std::errc::cross_device_link, ErrorNumber::CannotRenameWithDifferentDrive},
});

void check(std::error_code error, ErrorNumber missing = ErrorNumber::PathNotFound) {
    if (error) {
        throw disk_error(error, missing);
    }
}

[[nodiscard]] Date local_date(std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm local{};
    if (::localtime_r(&time, &local) == nullptr) {
        return {};
    }
    return date_of(DateParts{.year = local.tm_year + 1900,
                             .month = local.tm_mon + 1,
                             .day = local.tm_mday,
                             .hour = local.tm_hour,
                             .minute = local.tm_min,
                             .second = std::min(local.tm_sec, 59)})
        .value_or(Date{});
}

[[nodiscard]] bool is_same_entry(const Path& left, const Path& right) {
    std::error_code ignored;
    return fs::equivalent(left, right, ignored);
}

void refuse_read_only(const Path& path) {
    const auto status = status_of(path);
    if (status && status->is_read_only) {
        throw ScriptError(ErrorNumber::PermissionDenied);
    }
}

// Everything below a folder, parents first. Taken before anything is copied, so that a folder can
// be copied into itself. Links to folders are left out.
[[nodiscard]] std::vector<Path> entries_below(const Path& folder) {
    std::vector<Path> entries;
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, error);
    while (!error && entry != fs::recursive_directory_iterator()) {
        const bool is_folder_link = entry->is_symlink() && entry->is_directory(error);
        if (!is_folder_link) {
            entries.push_back(entry->path());
        }
        entry.increment(error);
    }
    check(error);
    return entries;
}

}  // namespace

ScriptError disk_error(std::error_code error, ErrorNumber missing) {
    if (error == std::errc::no_such_file_or_directory) {
        return ScriptError(missing);
    }
    const auto* row = std::ranges::find_if(
        kTranslations, [&](const Translation& wanted) { return error == wanted.system; });
    return ScriptError(row == kTranslations.end() ? ErrorNumber::DeviceIoError : row->number);
}

std::optional<DiskStatus> status_of(const Path& path) {
    struct statx status {};

    if (::statx(AT_FDCWD, path.c_str(), AT_STATX_SYNC_AS_STAT, STATX_BASIC_STATS | STATX_BTIME,
                &status) != 0) {
        return std::nullopt;
    }
    const bool is_folder = S_ISDIR(status.stx_mode);
    if (!is_folder && !S_ISREG(status.stx_mode)) {
        return std::nullopt;
    }
    const bool has_birth = (status.stx_mask & STATX_BTIME) != 0;
    constexpr unsigned kAnyWriting = S_IWUSR | S_IWGRP | S_IWOTH;
    return DiskStatus{
        .is_folder = is_folder,
        .is_read_only = (status.stx_mode & kAnyWriting) == 0,
        .size = is_folder ? 0 : status.stx_size,
        .created = local_date(has_birth ? status.stx_btime.tv_sec : status.stx_mtime.tv_sec),
        .accessed = local_date(status.stx_atime.tv_sec),
        .modified = local_date(status.stx_mtime.tv_sec)};
}

std::uintmax_t size_of_folder(const Path& folder) {
    std::uintmax_t size = 0;
    for (const Path& path : entries_below(folder)) {
        if (const auto status = status_of(path)) {
            size += status->size;
        }
    }
    return size;
}

void make_folder(const Path& folder) {
    std::error_code error;
    const bool is_new = fs::create_directory(folder, error);
    check(error);
    if (!is_new) {
        throw ScriptError(ErrorNumber::FileAlreadyExists);
    }
}

void copy_file(const Path& from, const Path& to, Replace replace) {
    const auto status = status_of(to);
    if (status && status->is_folder) {
        throw ScriptError(ErrorNumber::PermissionDenied);
    }
    if (status && replace == Replace::No) {
        throw ScriptError(ErrorNumber::FileAlreadyExists);
    }
    if (status && (status->is_read_only || is_same_entry(from, to))) {
        throw ScriptError(ErrorNumber::PermissionDenied);
    }
    std::error_code error;
    fs::copy_file(from, to, fs::copy_options::overwrite_existing, error);
    check(error);
}

void copy_folder(const Path& from, const Path& to, Replace replace) {
    const std::vector<Path> entries = entries_below(from);
    const auto status = status_of(to);
    if (status && !status->is_folder) {
        throw ScriptError(ErrorNumber::FileAlreadyExists);
    }
    if (!status) {
        make_folder(to);
    }
    for (const Path& entry : entries) {
        const auto kind = status_of(entry);
        if (!kind) {
            continue;
        }
        const Path target = to / entry.lexically_relative(from);
        if (!kind->is_folder) {
            copy_file(entry, target, replace);
        } else if (!status_of(target)) {
            make_folder(target);
        }
    }
}

void move_entry(const Path& from, const Path& to) {
    if (status_of(to)) {
        throw ScriptError(ErrorNumber::FileAlreadyExists);
    }
    std::error_code error;
    fs::rename(from, to, error);
    if (error != std::errc::cross_device_link) {
        return check(error);
    }
    if (status_of(from).value_or(DiskStatus{}).is_folder) {
        copy_folder(from, to, Replace::No);
        delete_folder(from, Force::Yes);
    } else {
        copy_file(from, to, Replace::No);
        delete_file(from, Force::Yes);
    }
}

void delete_file(const Path& file, Force force) {
    if (force == Force::No) {
        refuse_read_only(file);
    }
    std::error_code error;
    fs::remove(file, error);
    check(error, ErrorNumber::FileNotFound);
}

void delete_folder(const Path& folder, Force force) {
    if (force == Force::No) {
        refuse_read_only(folder);
        std::ranges::for_each(entries_below(folder), refuse_read_only);
    }
    std::error_code error;
    fs::remove_all(folder, error);
    check(error);
}

void set_read_only(const Path& path, bool read_only) {
    std::error_code error;
    if (read_only) {
        fs::permissions(path, kWriting, fs::perm_options::remove, error);
    } else {
        fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, error);
    }
    check(error);
}

}  // namespace vbscript
