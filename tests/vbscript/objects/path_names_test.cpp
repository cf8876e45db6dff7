#include "vbscript/objects/files/path_names.h"

#include <gtest/gtest.h>

#include "vbscript/value/convert.h"

namespace vbscript {
namespace {

TEST(PathNames, PartsOfAPath) {
    struct Case {
        std::u16string_view path, drive, parent, file, base, extension;
    };

    const std::vector<Case> cases{
        {u"\\home\\html\\a.b.txt", u"", u"\\home\\html", u"a.b.txt", u"a.b", u"txt"},
        {u"/home/html/", u"", u"/home", u"html", u"html", u""},
        {u"c:\\dir/file", u"c:", u"c:\\dir", u"file", u"file", u""},
        {u"c:\\a", u"c:", u"c:\\", u"a", u"a", u""},
        {u"c:\\", u"c:", u"", u"", u"", u""},
        {u"\\a.", u"", u"\\", u"a.", u"a", u""},
        {u"\\", u"", u"", u"", u"", u""},
        {u".profile", u"", u"", u".profile", u"", u"profile"},
        {u"\\\\server\\share\\x", u"\\\\server\\share", u"\\\\server\\share\\", u"x", u"x", u""},
        {u"", u"", u"", u"", u"", u""},
    };
    for (const Case& row : cases) {
        const std::string told = to_utf8(row.path);
        EXPECT_EQ(drive_name_of(row.path), row.drive) << told;
        EXPECT_EQ(parent_folder_name_of(row.path), row.parent) << told;
        EXPECT_EQ(file_name_of(row.path), row.file) << told;
        EXPECT_EQ(base_name_of(row.path), row.base) << told;
        EXPECT_EQ(extension_name_of(row.path), row.extension) << told;
    }
}

TEST(PathNames, BuiltPathsHaveOneSeparator) {
    EXPECT_EQ(build_path(u"a", u"b"), u"a\\b");
    EXPECT_EQ(build_path(u"a\\", u"b"), u"a\\b");
    EXPECT_EQ(build_path(u"a/", u"\\b"), u"a/b");
    EXPECT_EQ(build_path(u"c:", u"b"), u"c:b");
    EXPECT_EQ(build_path(u"", u"\\b"), u"\\b");
}

TEST(PathNames, Wildcards) {
    const std::vector<std::tuple<std::u16string_view, std::u16string_view, bool>> cases{
        {u"a.TXT", u"*.txt", true},
        {u"a.txt", u"?.t?t", true},
        {u"ab.txt", u"?.txt", false},
        {u"abc", u"*b*", true},
        {u"abcbd", u"a*b?", true},
        {u"noext", u"*.*", true},
        {u"a", u"a*", true},
        {u"b", u"a*", false},
        {u"a.txt.bak", u"*.txt", false},
        {u"", u"*", true},
        {u"aaaaaaaaab", u"*a*a*c", false},
    };
    for (const auto& [name, pattern, matches] : cases) {
        EXPECT_EQ(matches_wildcards(name, pattern), matches)
            << to_utf8(name) << " " << to_utf8(pattern);
    }
}

}  // namespace
}  // namespace vbscript
