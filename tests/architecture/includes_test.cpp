#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

// The arrows of the house. One include root lets every file see every other, so the table here is
// what keeps the rooms apart.
namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

// Rooms that the files of a room may include, beside its own.
const std::map<std::string, Names> kArrows{
    {"automation", {}},
    {"host", {"automation"}},
    {"core", {"host", "automation"}},
    {"devices", {"core", "host", "automation"}},
    {"media", {"core", "host", "automation"}},
    {"appliance", {"devices", "media", "core", "host", "automation"}},
    {"fleet", {"appliance", "devices", "media", "core", "host", "automation"}},
    {"udp", {"appliance", "core", "host", "automation"}},
    {"callerid", {"udp", "fleet", "appliance", "devices", "media", "core", "host", "automation"}},
    {"dialogs",
     {"callerid", "udp", "fleet", "appliance", "devices", "media", "core", "host", "automation"}},
    {"xap",
     {"callerid", "udp", "fleet", "appliance", "devices", "media", "core", "host", "automation"}},
    {"webserver", {"core", "host", "automation"}},
    {"pages", {"core", "host", "automation"}},
    {"status",
     {"xap", "dialogs", "pages", "fleet", "appliance", "devices", "core", "host", "automation"}},
    {"slideshow",
     {"pages", "fleet", "appliance", "devices", "media", "core", "host", "automation"}},
    {"plugin",
     {"status", "xap", "dialogs", "callerid", "udp", "slideshow", "pages", "webserver", "fleet",
      "appliance", "devices", "media", "core", "host", "automation"}},
    {"vbscript", {"host", "automation"}},
    {"platform", {"host", "automation"}},
    {"home", {"host", "automation"}},
    {"unit", {"automation"}},
    {"xapnet", {"host", "automation"}},
    {"app", {"plugin", "vbscript", "home", "platform", "unit", "xapnet", "host", "automation"}},
};

// The folders that a library from outside may be included in, by the start of the header's name;
// the longest start counts.
const std::map<std::string, Names> kLibraries{
    {"boost/", {"platform/asio", "platform/beast", "unit"}},
    {"boost/beast", {"platform/beast"}},
    {"curl/", {"platform/curl"}},
    {"gumbo", {"platform/gumbo"}},
    {"espeak-ng/", {"platform/espeak"}},
    {"sqlite3", {"home/sqlite"}},
    {"SimpleIni", {"home/ini"}},
    {"nlohmann/", {"unit", "app"}},
    {"CLI/", {"app"}},
    {"ncurses", {"app"}},
    {"pcre2", {"vbscript/objects"}},
    {"gd.h", {"platform/gd"}},
    {"zlib.h", {"home/zlib"}},
};

struct Include {
    std::string file;  // "room/name.cpp"
    std::string header;
    bool is_quoted = false;
};

std::vector<Include> includes_of(const fs::path& root, const fs::path& file) {
    std::vector<Include> includes;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        const auto begin = line.find_first_of("\"<");
        if (!line.starts_with("#include ") || begin == std::string::npos) {
            continue;
        }
        const auto end = line.find_first_of("\">", begin + 1);
        includes.push_back({file.lexically_relative(root).generic_string(),
                            line.substr(begin + 1, end - begin - 1), line[begin] == '"'});
    }
    return includes;
}

std::vector<Include> all_includes() {
    const fs::path root = ZYN_SOURCE_DIR;
    std::vector<Include> includes;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension().string();
        if (extension == ".h" || extension == ".cpp") {
            const auto found = includes_of(root, entry.path());
            includes.insert(includes.end(), found.begin(), found.end());
        }
    }
    return includes;
}

std::string room_of(const std::string& path) {
    return path.substr(0, path.find('/'));
}

bool is_allowed_arrow(const Include& include) {
    const std::string from = room_of(include.file);
    const std::string to = room_of(include.header);
    const auto arrows = kArrows.find(from);
    return arrows != kArrows.end() && (from == to || arrows->second.contains(to));
}

bool is_allowed_library(const Include& include) {
    const auto starts_header = [&](const auto& row) {
        return include.header.starts_with(row.first);
    };
    const auto row = std::find_if(kLibraries.rbegin(), kLibraries.rend(), starts_header);
    return row == kLibraries.rend() ||
           std::ranges::any_of(row->second, [&](const std::string& folder) {
               return include.file.starts_with(folder + "/");
           });
}

TEST(Architecture, ArrowsRunOneWay) {
    const auto includes = all_includes();
    ASSERT_GT(includes.size(), 500U) << "the sources were not found";
    std::vector<std::string> wrong;
    for (const Include& include : includes) {
        if (include.is_quoted && !is_allowed_arrow(include)) {
            wrong.push_back(include.file + " -> " + include.header);
        }
    }
    EXPECT_THAT(wrong, testing::IsEmpty());
}

TEST(Architecture, EachLibraryIsSeenByItsAdapterAlone) {
    std::vector<std::string> wrong;
    for (const Include& include : all_includes()) {
        if (!include.is_quoted && !is_allowed_library(include)) {
            wrong.push_back(include.file + " -> " + include.header);
        }
    }
    EXPECT_THAT(wrong, testing::IsEmpty());
}

}  // namespace
