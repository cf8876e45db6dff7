#include "vbscript/objects/files/path_names.h"

#include "vbscript/value/convert.h"

namespace vbscript {
namespace {

constexpr std::u16string_view kSeparators = u"\\/";
constexpr auto kNone = std::u16string_view::npos;

[[nodiscard]] bool is_letter(char16_t unit) noexcept {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

// Behind the drive, the part that has components.
[[nodiscard]] std::u16string_view behind_drive(std::u16string_view path) noexcept {
    return path.substr(drive_name_of(path).size());
}

[[nodiscard]] std::u16string_view without_last_separators(std::u16string_view path) noexcept {
    const std::size_t last = path.find_last_not_of(kSeparators);
    return path.substr(0, last == kNone ? 0 : last + 1);
}

}  // namespace

std::u16string_view drive_name_of(std::u16string_view path) noexcept {
    if (path.size() >= 2 && is_letter(path[0]) && path[1] == u':') {
        return path.substr(0, 2);
    }
    if (path.size() < 3 || !is_path_separator(path[0]) || !is_path_separator(path[1])) {
        return {};
    }
    const std::size_t server_end = path.find_first_of(kSeparators, 2);
    if (server_end == kNone || server_end == 2) {
        return {};
    }
    return path.substr(0, path.find_first_of(kSeparators, server_end + 1));
}

std::u16string_view file_name_of(std::u16string_view path) noexcept {
    const std::u16string_view names = without_last_separators(behind_drive(path));
    const std::size_t separator = names.find_last_of(kSeparators);
    return separator == kNone ? names : names.substr(separator + 1);
}

std::u16string_view base_name_of(std::u16string_view path) noexcept {
    const std::u16string_view name = file_name_of(path);
    return name.substr(0, name.rfind(u'.'));
}

std::u16string_view extension_name_of(std::u16string_view path) noexcept {
    const std::u16string_view name = file_name_of(path);
    const std::size_t dot = name.rfind(u'.');
    return dot == kNone ? std::u16string_view() : name.substr(dot + 1);
}

std::u16string_view parent_folder_name_of(std::u16string_view path) noexcept {
    const std::size_t drive = drive_name_of(path).size();
    const std::u16string_view names = without_last_separators(path.substr(drive));
    if (names.empty()) {
        return {};
    }
    const std::size_t separator = names.find_last_of(kSeparators);
    if (separator == kNone) {
        return path.substr(0, drive);
    }
    const std::u16string_view parent = without_last_separators(names.substr(0, separator));
    // The separator of a root belongs to it.
    return path.substr(0, drive + (parent.empty() ? 1 : parent.size()));
}

std::u16string build_path(std::u16string_view folder, std::u16string_view name) {
    std::u16string path(folder);
    const bool ends_open = path.empty() || path.back() == u':' || is_path_separator(path.back());
    if (!ends_open) {
        path += u'\\';
    }
    while (!path.empty() && !name.empty() && is_path_separator(name.front())) {
        name.remove_prefix(1);
    }
    return path.append(name);
}

bool has_wildcards(std::u16string_view name) noexcept {
    return name.find_first_of(u"*?") != kNone;
}

bool matches_wildcards(std::u16string_view name, std::u16string_view pattern) noexcept {
    if (pattern == u"*.*") {
        return true;
    }
    std::size_t at = 0;
    std::size_t in_pattern = 0;
    std::size_t star = kNone;  // the last one passed, and where it was
    std::size_t star_at = 0;
    while (at < name.size()) {
        if (in_pattern < pattern.size() && pattern[in_pattern] == u'*') {
            star = in_pattern++;
            star_at = at;
        } else if (in_pattern < pattern.size() &&
                   (pattern[in_pattern] == u'?' ||
                    to_lower(pattern[in_pattern]) == to_lower(name[at]))) {
            ++in_pattern;
            ++at;
        } else if (star != kNone) {
            in_pattern = star + 1;
            at = ++star_at;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(u'*', in_pattern) == kNone;
}

}  // namespace vbscript
