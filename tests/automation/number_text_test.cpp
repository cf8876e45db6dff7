#include <gtest/gtest.h>

#include <limits>

#include "automation/convert.h"

namespace automation {
namespace {

template <typename Number>
struct Case {
    Number number;
    std::string_view text;
};

TEST(NumberText, SingleHasSevenDigits) {
    constexpr Case<float> kCases[] = {
        {0.0F, "0"},
        {-0.0F, "0"},
        {1.7055475F, "1.705547"},
        {1.5F, "1.5"},
        {0.1F, "0.1"},
        {-0.25F, "-0.25"},
        {9999999.0F, "9999999"},
        {16777216.0F, "1.677722E+07"},
        {0.0000001F, "0.0000001"},
        {0.00000001F, "1E-08"},
        {0.01234567F, "1.234567E-02"},
    };
    for (const auto& row : kCases) {
        EXPECT_EQ(text_of(row.number), row.text);
    }
}

TEST(NumberText, DoubleHasFifteenDigits) {
    constexpr Case<double> kCases[] = {
        {0.1, "0.1"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3.0, "0.333333333333333"},
        {-2.0 / 3.0, "-0.666666666666667"},
        {100, "100"},
        {999999999999999.0, "999999999999999"},
        {1e15, "1E+15"},
        {1.5e20, "1.5E+20"},
        {1e100, "1E+100"},
        {0.0001, "0.0001"},
        {1e-15, "0.000000000000001"},
        {1e-16, "1E-16"},
        {123456.789, "123456.789"},
        {0.9999999999999999, "1"},
        {-0.0, "0"},
        {std::numeric_limits<double>::infinity(), "1.#INF"},
        {-std::numeric_limits<double>::infinity(), "-1.#INF"},
        {std::numeric_limits<double>::quiet_NaN(), "-1.#IND"},
    };
    for (const auto& row : kCases) {
        EXPECT_EQ(text_of(row.number), row.text);
    }
}

TEST(NumberText, CurrencyHasFourPlaces) {
    constexpr Case<Currency> kCases[] = {
        {{0}, "0"},         {{10000}, "1"},
        {{-1}, "-0.0001"},  {{12500}, "1.25"},
        {{10020}, "1.002"}, {{std::numeric_limits<std::int64_t>::min()}, "-922337203685477.5808"},
    };
    for (const auto& row : kCases) {
        EXPECT_EQ(text_of(row.number), row.text);
    }
}

}  // namespace
}  // namespace automation
