#include "automation/strings.h"

#include <gtest/gtest.h>

namespace automation {
namespace {

using Fields = std::vector<std::string>;

TEST(Strings, SplitKeepsEmptyFields) {
    EXPECT_EQ(split("", ';'), Fields{""});
    EXPECT_EQ(split(";a;;b;", ';'), (Fields{"", "a", "", "b", ""}));
    EXPECT_EQ(split("a\r\nb", "\r\n"), (Fields{"a", "b"}));
    EXPECT_EQ(join(split("a;;b", ';'), "--"), "a----b");
}

TEST(Strings, ReplacesFromTheLeftAndOnlyOnce) {
    EXPECT_EQ(replace_all("aaa", "aa", "a"), "aa");
    EXPECT_EQ(replace_all("x", "y", "z"), "x");
}

}  // namespace
}  // namespace automation
