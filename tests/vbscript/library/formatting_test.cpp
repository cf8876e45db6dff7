#include "vbscript/library/formatting.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "vbscript/support/fake_context.h"
#include "vbscript/support/values.h"

namespace vbscript {
namespace {

constexpr std::int32_t kUnitedStates = 1033;
constexpr std::int32_t kUnitedKingdom = 2057;
constexpr std::int32_t kGermany = 1031;

struct Case {
    std::int32_t locale;
    std::u16string_view function;
    std::vector<Value> arguments;
    std::string expected;
};

class Formatting : public ::testing::Test {
  protected:
    void expect(const std::vector<Case>& cases) {
        for (const Case& row : cases) {
            context.set_locale(row.locale);
            const auto functions = formatting_functions();
            const auto function =
                std::ranges::find(functions, row.function, &LibraryFunction::name);
            ASSERT_NE(function, functions.end());
            EXPECT_EQ(noted_result(context, [&] { return function->call(context, row.arguments); }),
                      row.expected)
                << row.locale << " " << to_utf8(row.function) << " of "
                << noted(context, Value(make<Array>(row.arguments)));
        }
    }

    FakeContext context;
};

TEST_F(Formatting, NumbersRoundAsTheyRead) {
    const auto number = u"FormatNumber";
    expect({
        {kUnitedStates, number, {Value(1234567.891)}, "1,234,567.89"},
        {kUnitedStates, number, {Value(2.345)}, "2.35"},
        {kUnitedStates, number, {Value(-2.5), integer(0)}, "-3"},
        {kUnitedStates, number, {Value(0.5), integer(0)}, "1"},
        {kUnitedStates, number, {Value(999.995)}, "1,000.00"},
        {kUnitedStates, number, {Value(99.996), integer(2)}, "100.00"},
        {kUnitedStates, number, {Value(0.0004), integer(2)}, "0.00"},
        {kUnitedStates, number, {Value(-0.0004), integer(2)}, "0.00"},
        {kUnitedStates, number, {Value(1e20), integer(0)}, "100,000,000,000,000,000,000"},
        {kUnitedStates, number, {Value(1.0 / 3), integer(20)}, "0.33333333333333300000"},
        {kUnitedStates, number, {Value(Currency{-12345}), integer(3)}, "-1.235"},
        {kUnitedStates, number, {Value(u"1,000.5")}, "1,000.50"},
        {kUnitedStates, number, {Value()}, "0.00"},
        {kUnitedStates, number, {Value(true)}, "-1.00"},
        {kGermany, number, {Value(1234567.891), integer(1)}, "1.234.567,9"},
    });
}

TEST_F(Formatting, NumbersFollowTheirOptions) {
    const auto number = u"FormatNumber";
    const Value yes = integer(-1);
    const Value no = integer(0);
    const Value usual = integer(-2);
    expect({
        {kUnitedStates, number, {Value(-0.5), integer(2), no}, "-.50"},
        {kUnitedStates, number, {Value(0.0), integer(0), no}, "0"},
        {kUnitedStates, number, {Value(-1234.5), integer(-1), usual, yes}, "(1,234.50)"},
        {kUnitedStates, number, {Value(-1234.5), missing(), missing(), missing(), no}, "-1234.50"},
        {kUnitedStates, number, {Value(1.0), integer(-2)}, "error 5"},
        {kUnitedStates, number, {Value(1.0), integer(2), integer(1)}, "error 5"},
        {kUnitedStates, number, {Value(u"x")}, "error 13"},
        {kUnitedStates, number, {kNull}, "error 94"},
    });
}

TEST_F(Formatting, MoneyAndPercentFollowTheCountry) {
    const Value amount(-1234.5);
    const Value yes = integer(-1);
    const Value no = integer(0);
    expect({
        {kUnitedStates, u"FormatCurrency", {Value(1234.5)}, "$1,234.50"},
        {kUnitedStates, u"FormatCurrency", {amount}, "($1,234.50)"},
        {kUnitedStates, u"FormatCurrency", {amount, integer(0), missing(), no}, "-$1,235"},
        {kUnitedKingdom, u"FormatCurrency", {amount}, "-\u00A31,234.50"},
        {kUnitedKingdom,
         u"FormatCurrency",
         {amount, missing(), missing(), yes},
         "(\u00A31,234.50)"},
        {kGermany, u"FormatCurrency", {amount}, "-1.234,50 \u20AC"},
        {kUnitedStates, u"FormatPercent", {Value(0.12345)}, "12.35%"},
        {kUnitedStates, u"FormatPercent", {Value(1.005), integer(1)}, "100.5%"},
        {kUnitedStates, u"FormatPercent", {Value(-0.5), integer(0), missing(), yes}, "(50%)"},
        {kGermany, u"FormatPercent", {Value(12.5), integer(0)}, "1.250%"},
    });
}

TEST_F(Formatting, DatesComeInFiveForms) {
    const Value when = moment(2026, 11, 24, 16, 3, 3);
    const auto form = u"FormatDateTime";
    expect({
        {kUnitedStates, form, {when}, "11/24/2026 4:03:03 PM"},
        {kUnitedStates, form, {when, integer(1)}, "Tuesday, November 24, 2026"},
        {kUnitedStates, form, {when, integer(2)}, "11/24/2026"},
        {kUnitedStates, form, {when, integer(3)}, "4:03:03 PM"},
        {kUnitedStates, form, {when, integer(4)}, "16:03"},
        {kUnitedKingdom, form, {when, integer(1)}, "24 November 2026"},
        {kGermany, form, {when, integer(1)}, "Dienstag, 24. November 2026"},
        {kGermany, form, {when, integer(2)}, "24.11.2026"},
        {kUnitedStates, form, {Value(u"3/1/2024"), integer(2)}, "3/1/2024"},
        {kUnitedStates, form, {when, integer(5)}, "error 5"},
    });
}

}  // namespace
}  // namespace vbscript
