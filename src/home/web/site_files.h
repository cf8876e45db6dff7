#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace home {

// A place on the site: the names between the slashes, none of them "", "." or "..".
using WebPath = std::vector<std::string>;

// "/a/b", for people and scripts.
[[nodiscard]] std::string text_of(const WebPath& path);

// What lies at a place.
struct SiteEntry {
    std::filesystem::path path;  // on disk
    bool is_folder = false;
    std::uint64_t size = 0;  // bytes of a file
    std::chrono::sys_seconds modified{};
};

// The folder that a web site serves, and nothing outside of it. Owned by the site.
class SiteFiles {
  public:
    explicit SiteFiles(std::filesystem::path root) : root_(std::move(root)) {}

    // `text`, with slashes or backslashes, as seen from the folder `base`; a text that begins with
    // one starts at the top. Absent when it leads out of the site, or to a hidden name, or holds a
    // control character.
    [[nodiscard]] static std::optional<WebPath> resolve(const WebPath& base, std::string_view text);

    // The file or folder, its names found without regard to case where they are not there as they
    // are written. Absent when there is none, when it is something else than these two, or when a
    // link leads out of the site.
    [[nodiscard]] std::optional<SiteEntry> find(const WebPath& path) const;

    // The whole file. Throws: RunTimeError 53 or 57 with the name.
    [[nodiscard]] static std::string read(const SiteEntry& file);

    // At most `count` bytes from its start; "" when it cannot be read.
    [[nodiscard]] static std::string beginning(const SiteEntry& file, std::size_t count);

  private:
    [[nodiscard]] bool is_inside(const std::filesystem::path& path) const;

    std::filesystem::path root_;
};

}  // namespace home
