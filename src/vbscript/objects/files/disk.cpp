#include "vbscript/objects/files/disk.h"

#include <algorithm>
#include <tuple>

#include "vbscript/objects/files/path_names.h"
#include "vbscript/value/convert.h"

namespace vbscript {
namespace {

namespace fs = std::filesystem;

// What names cannot hold where scripts come from; a pattern may hold the wildcards.
constexpr std::u16string_view kForbidden = u"<>:\"|*?";

[[nodiscard]] bool is_there(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

// A name on disk as scripts write it; absent for one that they could not find again.
[[nodiscard]] std::optional<std::u16string> name_for_scripts(const fs::path& name) {
    std::u16string units = from_utf8(name.native());
    if (units.find(u'\\') != std::u16string::npos || to_utf8(units) != name.native()) {
        return std::nullopt;
    }
    return units;
}

// The name in `folder` that differs from `wanted` in case only, the first in byte order; `wanted`
// itself when there is none.
[[nodiscard]] fs::path find_in_any_case(const fs::path& folder, const fs::path& wanted) {
    const std::u16string wanted_name = from_utf8(wanted.native());
    std::optional<fs::path> found;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    while (!error && entry != fs::directory_iterator()) {
        const fs::path name = entry->path().filename();
        const auto candidate = name_for_scripts(name);
        if (candidate && equals_ignoring_case(*candidate, wanted_name) &&
            (!found || name < *found)) {
            found = name;
        }
        entry.increment(error);
    }
    return found.value_or(wanted);
}

struct NamedPath {
    std::u16string name;  // in lower case
    fs::path path;
};

template <typename Accepts>
[[nodiscard]] std::vector<fs::path> sorted_entries(const fs::path& folder, const Accepts& accepts) {
    std::vector<NamedPath> found;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    while (!error && entry != fs::directory_iterator()) {
        const auto name = name_for_scripts(entry->path().filename());
        if (name && accepts(*entry, *name)) {
            found.push_back({to_lower(*name), entry->path()});
        }
        entry.increment(error);
    }
    if (error) {
        throw disk_error(error, ErrorNumber::PathNotFound);
    }
    std::ranges::sort(found, [](const NamedPath& left, const NamedPath& right) {
        return std::tie(left.name, left.path) < std::tie(right.name, right.path);
    });
    std::vector<fs::path> paths;
    paths.reserve(found.size());
    for (NamedPath& row : found) {
        paths.push_back(std::move(row.path));
    }
    return paths;
}

[[nodiscard]] bool is_file(const fs::directory_entry& entry) {
    std::error_code ignored;
    return entry.is_regular_file(ignored);
}

[[nodiscard]] bool is_folder(const fs::directory_entry& entry) {
    std::error_code ignored;
    return entry.is_directory(ignored);
}

}  // namespace

Disk::Disk(Path current_folder) : current_folder_(std::move(current_folder)) {}

std::optional<Disk::Path> Disk::find(std::u16string_view name) const {
    if (name.empty() || name.find(u'\0') != std::u16string_view::npos) {
        return std::nullopt;
    }
    if (name.size() >= 2 && name[1] == u':') {
        return std::nullopt;
    }
    std::string with_slashes = to_utf8(name);
    std::ranges::replace(with_slashes, '\\', '/');
    std::error_code ignored;
    const Path base = current_folder_.empty() ? fs::current_path(ignored) : current_folder_;
    Path wanted = (base / Path(with_slashes)).lexically_normal();
    if (!wanted.has_filename() && wanted != wanted.root_path()) {
        wanted = wanted.parent_path();
    }
    if (is_there(wanted)) {
        return wanted;
    }
    Path resolved = wanted.root_path();
    for (const Path& component : wanted.relative_path()) {
        const bool there = is_there(resolved / component);
        resolved /= there ? component : find_in_any_case(resolved, component);
    }
    return resolved;
}

Disk::Path Disk::file(std::u16string_view name) const {
    const auto path = find(name);
    const auto status = path ? status_of(*path) : std::nullopt;
    if (!status || status->is_folder) {
        throw ScriptError(ErrorNumber::FileNotFound);
    }
    return *path;
}

Disk::Path Disk::folder(std::u16string_view name) const {
    const auto path = find(name);
    const auto status = path ? status_of(*path) : std::nullopt;
    if (!status || !status->is_folder) {
        throw ScriptError(ErrorNumber::PathNotFound);
    }
    return *path;
}

Disk::Path Disk::target(std::u16string_view name) const {
    const std::u16string_view last = file_name_of(name);
    if (last.empty() || last.find_first_of(kForbidden) != std::u16string_view::npos ||
        name.find(u'\0') != std::u16string_view::npos) {
        throw ScriptError(ErrorNumber::BadFileNameOrNumber);
    }
    const auto path = find(name);
    const auto parent = path ? status_of(path->parent_path()) : std::nullopt;
    if (!parent || !parent->is_folder) {
        throw ScriptError(ErrorNumber::PathNotFound);
    }
    return *path;
}

bool Disk::has_file(std::u16string_view name) const {
    const auto path = find(name);
    const auto status = path ? status_of(*path) : std::nullopt;
    return status && !status->is_folder;
}

bool Disk::has_folder(std::u16string_view name) const {
    const auto path = find(name);
    const auto status = path ? status_of(*path) : std::nullopt;
    return status && status->is_folder;
}

std::vector<Disk::Path> Disk::matching_files(std::u16string_view pattern) const {
    std::vector<Path> files = matching(pattern, Kind::File);
    if (files.empty()) {
        throw ScriptError(ErrorNumber::FileNotFound);
    }
    return files;
}

std::vector<Disk::Path> Disk::matching_folders(std::u16string_view pattern) const {
    std::vector<Path> folders = matching(pattern, Kind::Folder);
    if (folders.empty()) {
        throw ScriptError(ErrorNumber::PathNotFound);
    }
    return folders;
}

std::vector<Disk::Path> Disk::matching(std::u16string_view pattern, Kind kind) const {
    const std::u16string_view last = file_name_of(pattern);
    if (!has_wildcards(last)) {
        return {kind == Kind::File ? file(pattern) : folder(pattern)};
    }
    const std::u16string_view parent = parent_folder_name_of(pattern);
    return sorted_entries(folder(parent.empty() ? u"." : parent),
                          [&](const fs::directory_entry& entry, std::u16string_view name) {
                              return (kind == Kind::File ? is_file(entry) : is_folder(entry)) &&
                                     matches_wildcards(name, last);
                          });
}

Disk::Path Disk::temporary_folder() const {
    std::error_code error;
    Path folder = fs::temp_directory_path(error);
    if (error) {
        throw disk_error(error, ErrorNumber::PathNotFound);
    }
    return folder;
}

std::u16string script_name(const Disk::Path& path) {
    std::u16string name = from_utf8(path.native());
    std::ranges::replace(name, u'/', u'\\');
    return name;
}

std::vector<Disk::Path> files_in(const Disk::Path& folder) {
    return sorted_entries(folder, [](const fs::directory_entry& entry, std::u16string_view) {
        return is_file(entry);
    });
}

std::vector<Disk::Path> folders_in(const Disk::Path& folder) {
    return sorted_entries(folder, [](const fs::directory_entry& entry, std::u16string_view) {
        return is_folder(entry);
    });
}

}  // namespace vbscript
