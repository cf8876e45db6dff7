#include "home/web/site_files.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

#include "automation/code_page.h"
#include "automation/strings.h"
#include "home/system_failure.h"

namespace home {
namespace {

namespace fs = std::filesystem;

bool is_control(char character) {
    const auto code = static_cast<unsigned char>(character);
    return code < 0x20 || code == 0x7F;
}

// Browsers write names in UTF-8, pages of this house in code page 1252; the disk has UTF-8.
bool is_same_name(const std::string& on_disk, const std::string& wanted) {
    const std::string name = automation::utf8_to_code_page(on_disk);
    const bool is_in_page = name.find('?') == std::string::npos;
    return is_in_page &&
           (automation::equals_ignoring_case(name, automation::utf8_to_code_page(wanted)) ||
            automation::equals_ignoring_case(name, wanted));
}

// Of several the first in byte order.
std::optional<fs::path> entry_of(const fs::path& folder, const std::string& name) {
    std::error_code error;
    if (fs::exists(folder / name, error)) {
        return folder / name;
    }
    std::optional<fs::path> found;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        if (is_same_name(entry->path().filename().string(), name) &&
            (!found || entry->path() < *found)) {
            found = entry->path();
        }
    }
    return found;
}

std::chrono::sys_seconds modified_of(const fs::path& path) {
    using namespace std::chrono;
    std::error_code error;
    const fs::file_time_type time = fs::last_write_time(path, error);
    return error ? sys_seconds{} : floor<seconds>(file_clock::to_sys(time));
}

}  // namespace

std::string text_of(const WebPath& path) {
    return "/" + automation::join(path, "/");
}

std::optional<WebPath> SiteFiles::resolve(const WebPath& base, std::string_view text) {
    if (std::ranges::any_of(text, is_control)) {
        return std::nullopt;
    }
    std::string slashes(text);
    std::ranges::replace(slashes, '\\', '/');
    WebPath path = slashes.starts_with('/') ? WebPath() : base;
    for (const std::string& name : automation::split(slashes, '/')) {
        if (name == "..") {
            if (path.empty()) {
                return std::nullopt;
            }
            path.pop_back();
        } else if (name.starts_with('.') && name != ".") {
            return std::nullopt;
        } else if (!name.empty() && name != ".") {
            path.push_back(name);
        }
    }
    return path;
}

bool SiteFiles::is_inside(const fs::path& path) const {
    std::error_code error;
    const fs::path top = fs::canonical(root_, error);
    const fs::path real = error ? fs::path() : fs::canonical(path, error);
    return !error && std::ranges::mismatch(top, real).in1 == top.end();
}

std::optional<SiteEntry> SiteFiles::find(const WebPath& path) const {
    SiteEntry entry{.path = root_};
    for (const std::string& name : path) {
        const std::optional<fs::path> next = entry_of(entry.path, name);
        if (!next) {
            return std::nullopt;
        }
        entry.path = *next;
    }
    std::error_code error;
    const fs::file_status status = fs::status(entry.path, error);
    if (error || !is_inside(entry.path)) {
        return std::nullopt;
    }
    entry.is_folder = fs::is_directory(status);
    if (fs::is_regular_file(status)) {
        entry.size = fs::file_size(entry.path, error);
        entry.modified = modified_of(entry.path);
    } else if (!entry.is_folder) {
        return std::nullopt;
    }
    return error ? std::nullopt : std::optional(entry);
}

std::string SiteFiles::read(const SiteEntry& file) {
    std::ifstream stream(file.path, std::ios::binary);
    if (!stream) {
        throw system_failure(ENOENT, "Cannot open", file.path);
    }
    std::string content{std::istreambuf_iterator<char>(stream), {}};
    if (stream.bad()) {
        throw system_failure(EIO, "Cannot read", file.path);
    }
    return content;
}

std::string SiteFiles::beginning(const SiteEntry& file, std::size_t count) {
    std::ifstream stream(file.path, std::ios::binary);
    std::string content(count, '\0');
    stream.read(content.data(), static_cast<std::streamsize>(count));
    content.resize(static_cast<std::size_t>(stream.gcount()));
    return content;
}

}  // namespace home
