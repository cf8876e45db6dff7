#include "automation/array.h"

#include <gtest/gtest.h>

#include <limits>

#include "automation/thrown_error.h"

namespace automation {
namespace {

using Indexes = std::vector<std::int32_t>;

TEST(Array, FirstDimensionRunsFastest) {
    Array array(Indexes{1, 2});
    for (std::int32_t row = 0; row <= 2; ++row) {
        for (std::int32_t column = 0; column <= 1; ++column) {
            array.at(Indexes{column, row}) = Value(std::int32_t{row * 2 + column});
        }
    }
    std::int32_t wanted = 0;
    for (const Value& element : array.elements()) {
        EXPECT_EQ(element, Value(wanted++));
    }
    EXPECT_EQ(wanted, 6);
}

TEST(Array, ListHasOneDimension) {
    EXPECT_EQ(Array(std::vector<Value>(3)).upper_bound(0), 2);
    EXPECT_EQ(Array(std::vector<Value>()).upper_bound(0), -1);
    EXPECT_TRUE(Array(Indexes{-1}).elements().empty());
}

TEST(Array, RefusesIndexesOutOfBounds) {
    const Array array(Indexes{1, 2});
    for (const Indexes& indexes : {Indexes{}, {0}, {0, 0, 0}, {2, 0}, {0, 3}, {-1, 0}}) {
        EXPECT_EQ(thrown_error([&] { return array.at(indexes); }), 9)
            << ::testing::PrintToString(indexes);
    }
    EXPECT_EQ(thrown_error([&] { return array.upper_bound(2); }), 9);
}

TEST(Array, RefusesImpossibleBounds) {
    constexpr std::int32_t kHuge = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(thrown_error([] { return Array(Indexes{}); }), 9);
    EXPECT_EQ(thrown_error([] { return Array(Indexes{-2}); }), 9);
    EXPECT_EQ(thrown_error([] { return Array(Indexes(61, 0)); }), 9);
    EXPECT_EQ(thrown_error([&] { return Array(Indexes(60, kHuge)); }), 7);
    EXPECT_EQ(thrown_error([] { return Array(Indexes(60, 0)); }), 0);
}

}  // namespace
}  // namespace automation
