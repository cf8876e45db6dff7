#include "app/home_path.h"

#include <gtest/gtest.h>

namespace app {
namespace {

namespace fs = std::filesystem;

TEST(HomePath, OptionGoesBeforeEnvironmentBeforeTheProjectsOwn) {
    const fs::path here = fs::current_path();

    const struct {
        const char* option;
        const char* environment;
        fs::path home;
    } kCases[] = {
        {"/a/b", "/c", "/a/b"},
        {"", "/c/", "/c"},
        {"/a/../b//c/", nullptr, "/b/c"},
        {"", "x", here / "x"},
        {"./x/.", nullptr, here / "x"},
        {"..", nullptr, here.parent_path()},
        {"/", nullptr, "/"},
    };

    for (const auto& test : kCases) {
        EXPECT_EQ(home_path(test.option, test.environment), test.home) << test.option;
    }
    EXPECT_TRUE(home_path("", nullptr).is_absolute());
    EXPECT_EQ(home_path("", ""), home_path("", nullptr));
    EXPECT_EQ(unit_path("/house/home", "hall"), "/house/units/hall");
}

}  // namespace
}  // namespace app
