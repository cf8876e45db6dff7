#include "pages/include_walk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "automation/run_time_error.h"

namespace pages {
namespace {

struct Walk {
    std::string rest;
    std::vector<std::string> names;
};

Walk walk(std::string text) {
    Walk result;
    result.rest =
        without_includes(std::move(text), BrokenInclude::IsAnError,
                         [&result](std::string_view name) { result.names.emplace_back(name); });
    return result;
}

struct WalkCase {
    std::string text;
    std::string rest;
    std::vector<std::string> names;
};

TEST(IncludeWalk, CutsEachIncludeFromItsWordToTheSecondQuote) {
    const std::vector<WalkCase> cases{
        {"Dim a", "Dim a", {}},
        {"'#include \"a.txt\"\r\nDim a", "'\r\nDim a", {"a.txt"}},
        {"'#INCLUDE file=\" b c.txt \" tail", "' tail", {"b c.txt"}},
        {"'#include \"a\"'#include \"b\"", "''", {"a", "b"}},
        {"#include\r\n\"far away\"", "", {"far away"}},
    };
    for (const WalkCase& each : cases) {
        const Walk result = walk(each.text);
        EXPECT_EQ(result.rest, each.rest) << each.text;
        EXPECT_EQ(result.names, each.names) << each.text;
    }
}

TEST(IncludeWalk, AnIncludeWithoutTwoQuotesIsAnErrorWhereItMustEnd) {
    for (const char* text : {"'#include", "'#include \"open", "a '#include \"x\" '#include x"}) {
        EXPECT_THROW(static_cast<void>(walk(text)), automation::RunTimeError) << text;
    }
}

TEST(IncludeWalk, NamesWithADriveOrAShareArePathsByThemselves) {
    EXPECT_EQ(include_path("C:\\House\\Scripts", "a.txt"), "C:\\House\\Scripts\\a.txt");
    EXPECT_EQ(include_path("C:\\House\\Scripts", "\\sub\\a.txt"), "C:\\House\\Scripts\\sub\\a.txt");
    EXPECT_EQ(include_path("C:\\House\\Scripts", "D:\\a.txt"), "D:\\a.txt");
    EXPECT_EQ(include_path("C:\\House\\Scripts", "\\\\server\\a.txt"), "\\\\server\\a.txt");
}

}  // namespace
}  // namespace pages
