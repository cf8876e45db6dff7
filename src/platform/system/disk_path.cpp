#include "platform/system/disk_path.h"

#include <algorithm>
#include <system_error>

#include "automation/code_page.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

bool is_ascii_letter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

bool is_on_no_disk(std::string_view path) {
    const bool has_drive_letter = path.size() >= 2 && is_ascii_letter(path[0]) && path[1] == ':';
    return path.empty() || has_drive_letter || path.find('\0') != std::string_view::npos;
}

bool is_there(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

// The name in `folder` that differs from `wanted` in case only; `wanted` itself when there is none.
fs::path find_ignoring_case(const fs::path& folder, const fs::path& wanted) {
    const std::optional<std::string> wanted_name = logic_name(wanted);
    std::optional<fs::path> found;
    std::error_code error;
    fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
    while (wanted_name && !error && entry != fs::directory_iterator()) {
        const fs::path name = entry->path().filename();
        const std::optional<std::string> candidate = logic_name(name);
        if (candidate && automation::equals_ignoring_case(*candidate, *wanted_name) &&
            (!found || name < *found)) {
            found = name;
        }
        entry.increment(error);
    }
    return found.value_or(wanted);
}

}  // namespace

std::optional<fs::path> disk_path(std::string_view path) {
    if (is_on_no_disk(path)) {
        return std::nullopt;
    }
    std::string with_slashes = automation::code_page_to_utf8(path);
    std::ranges::replace(with_slashes, '\\', '/');
    const fs::path wanted = fs::path(with_slashes).lexically_normal();
    if (is_there(wanted)) {
        return wanted;
    }
    fs::path resolved = wanted.root_path();
    for (const fs::path& component : wanted.relative_path()) {
        const bool there = is_there(resolved / component);
        resolved /= there ? component : find_ignoring_case(resolved, component);
    }
    return resolved;
}

std::optional<std::string> logic_name(const fs::path& name) {
    std::string bytes = automation::utf8_to_code_page(name.native());
    const bool can_be_found = automation::code_page_to_utf8(bytes) == name.native() &&
                              bytes.find('\\') == std::string::npos;
    return can_be_found ? std::optional(std::move(bytes)) : std::nullopt;
}

}  // namespace platform
