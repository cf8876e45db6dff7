#include "vbscript/library/dates.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "vbscript/support/fake_context.h"
#include "vbscript/support/values.h"

namespace vbscript {
namespace {

struct Case {
    std::u16string_view function;
    std::vector<Value> arguments;
    std::string expected;
};

[[nodiscard]] Value text(std::u16string_view units) {
    return Value(units);
}

class Dates : public ::testing::Test {
  protected:
    [[nodiscard]] Value call(std::u16string_view name, const std::vector<Value>& arguments) {
        const auto functions = date_functions();
        const auto row = std::ranges::find(functions, name, &LibraryFunction::name);
        EXPECT_NE(row, functions.end()) << to_utf8(name);
        return row->call(context, arguments);
    }

    void expect(const std::vector<Case>& cases) {
        for (const Case& row : cases) {
            EXPECT_EQ(noted_result(context, [&] { return call(row.function, row.arguments); }),
                      row.expected)
                << to_utf8(row.function) << " of "
                << noted(context, Value(make<Array>(row.arguments)));
        }
    }

    FakeContext context;
};

TEST_F(Dates, ClockGivesWholeSecondsAndTheTimerAFraction) {
    expect({
        {u"Now", {}, "11/24/2026 4:03:03 PM"},
        {u"Date", {}, "11/24/2026"},
        {u"Time", {}, "4:03:03 PM"},
        {u"Timer", {}, "57783"},
    });
    context.clock.days += 0.75 / 86400;
    EXPECT_EQ(noted(context, call(u"Time", {})), "4:03:03 PM");
    EXPECT_NEAR(call(u"Timer", {}).real(), 57783.75, 0.01);
}

TEST_F(Dates, PartsOfDates) {
    const Value when = moment(2024, 2, 29, 23, 59, 58);
    expect({
        {u"Year", {when}, "2024"},
        {u"Month", {when}, "2"},
        {u"Day", {when}, "29"},
        {u"Hour", {when}, "23"},
        {u"Minute", {when}, "59"},
        {u"Second", {when}, "58"},
        {u"Hour", {Value(-1.25)}, "6"},
        {u"Day", {Value(-1.25)}, "29"},
        {u"Day", {kNull}, "Null"},
        {u"Weekday", {when}, "5"},
        {u"Weekday", {when, integer(2)}, "4"},
        {u"Weekday", {when, integer(8)}, "error 5"},
        {u"Weekday", {kNull}, "Null"},
        {u"Year", {text(u"no date")}, "error 13"},
        {u"WeekdayName", {integer(1)}, "Sunday"},
        {u"WeekdayName", {integer(1), Value(true), integer(2)}, "Mon"},
        {u"WeekdayName", {integer(7), missing(), integer(2)}, "Sunday"},
        {u"WeekdayName", {integer(8)}, "error 5"},
        {u"MonthName", {integer(12), Value(true)}, "Dec"},
        {u"MonthName", {integer(13)}, "error 5"},
        {u"MonthName", {kNull}, "error 94"},
    });
    EXPECT_EQ(call(u"Year", {when}).type(), Type::Integer);
    context.set_locale(1031);
    expect({
        {u"WeekdayName", {integer(1), Value(false), integer(0)}, "Montag"},
        {u"Weekday", {moment(2024, 3, 4), integer(0)}, "1"},
        {u"MonthName", {integer(3)}, "M\u00E4rz"},
    });
}

TEST_F(Dates, AddingKeepsToTheCalendar) {
    const Value last_of_january = moment(2024, 1, 31, 10, 30);
    expect({
        {u"DateAdd", {text(u"m"), integer(1), last_of_january}, "2/29/2024 10:30:00 AM"},
        {u"DateAdd", {text(u"q"), integer(-1), last_of_january}, "10/31/2023 10:30:00 AM"},
        {u"DateAdd", {text(u"YYYY"), integer(1), moment(2024, 2, 29)}, "2/28/2025"},
        {u"DateAdd", {text(u"ww"), integer(2), last_of_january}, "2/14/2024 10:30:00 AM"},
        {u"DateAdd", {text(u"w"), integer(1), last_of_january}, "2/1/2024 10:30:00 AM"},
        {u"DateAdd", {text(u"y"), integer(-31), last_of_january}, "12/31/2023 10:30:00 AM"},
        {u"DateAdd", {text(u"h"), integer(-11), last_of_january}, "1/30/2024 11:30:00 PM"},
        {u"DateAdd", {text(u"n"), Value(1.5), last_of_january}, "1/31/2024 10:32:00 AM"},
        {u"DateAdd", {text(u"s"), integer(-1), moment(1899, 12, 30)}, "12/29/1899 11:59:59 PM"},
        {u"DateAdd", {text(u"d"), integer(1), text(u"2/28/2023")}, "3/1/2023"},
        {u"DateAdd", {text(u"d"), integer(-1), moment(100, 1, 1)}, "error 5"},
        {u"DateAdd", {text(u"yyyy"), integer(1), moment(9999, 1, 1)}, "error 5"},
        {u"DateAdd", {text(u"x"), integer(1), last_of_january}, "error 5"},
        {u"DateAdd", {text(u"d"), integer(1), kNull}, "Null"},
        {u"DateAdd", {text(u"d"), kNull, last_of_january}, "error 94"},
    });
}

TEST_F(Dates, DifferencesCountBoundaries) {
    const Value old_year = moment(2023, 12, 31, 23, 59, 59);
    const Value new_year = moment(2024, 1, 1);
    const Value sunday = moment(2024, 3, 3);
    const Value next_sunday = moment(2024, 3, 10);
    expect({
        {u"DateDiff", {text(u"yyyy"), old_year, new_year}, "1"},
        {u"DateDiff", {text(u"q"), new_year, old_year}, "-1"},
        {u"DateDiff", {text(u"m"), old_year, moment(2024, 3, 1)}, "3"},
        {u"DateDiff", {text(u"d"), old_year, new_year}, "1"},
        {u"DateDiff", {text(u"h"), old_year, new_year}, "1"},
        {u"DateDiff", {text(u"n"), old_year, new_year}, "1"},
        {u"DateDiff", {text(u"s"), new_year, old_year}, "-1"},
        {u"DateDiff", {text(u"w"), sunday, moment(2024, 3, 9)}, "0"},
        {u"DateDiff", {text(u"w"), next_sunday, sunday}, "-1"},
        {u"DateDiff", {text(u"ww"), sunday, next_sunday}, "1"},
        {u"DateDiff", {text(u"ww"), sunday, moment(2024, 3, 4)}, "0"},
        {u"DateDiff", {text(u"ww"), sunday, moment(2024, 3, 4), integer(2)}, "1"},
        {u"DateDiff", {text(u"h"), Value(Date{-0.5}), Value(Date{-1.25})}, "-30"},
        {u"DateDiff", {text(u"s"), moment(1900, 1, 1), moment(2024, 1, 1)}, "error 6"},
        {u"DateDiff", {text(u"d"), sunday, sunday, integer(9)}, "error 5"},
        {u"DateDiff", {text(u"d"), sunday, sunday, integer(1), integer(4)}, "error 5"},
        {u"DateDiff", {text(u"d"), kNull, sunday}, "Null"},
    });
}

TEST_F(Dates, WeeksOfTheYearFollowBothRules) {
    const Value friday = moment(2021, 1, 1);  // in a leap week by ISO 8601
    const Value monday = moment(2024, 12, 30);
    const auto week = [](const Value& day, int first_day, int first_week) {
        return std::vector<Value>{text(u"ww"), day, integer(first_day), integer(first_week)};
    };
    expect({
        {u"DatePart", week(friday, 1, 1), "1"},
        {u"DatePart", week(friday, 2, 2), "53"},
        {u"DatePart", week(friday, 2, 3), "52"},
        {u"DatePart", week(moment(2021, 1, 3), 1, 1), "2"},
        {u"DatePart", week(moment(2021, 1, 4), 2, 2), "1"},
        {u"DatePart", week(moment(2021, 1, 4), 2, 3), "1"},
        {u"DatePart", week(monday, 2, 2), "1"},
        {u"DatePart", week(monday, 1, 1), "53"},
        {u"DatePart", week(monday, 2, 3), "53"},
        {u"DatePart", week(moment(2000, 12, 31), 1, 1), "54"},
        {u"DatePart", {text(u"q"), monday}, "4"},
        {u"DatePart", {text(u"y"), monday}, "365"},
        {u"DatePart", {text(u"w"), monday, integer(2)}, "1"},
        {u"DatePart", {text(u"n"), moment(2024, 1, 1, 5, 6, 7)}, "6"},
        {u"DatePart", {text(u"d"), kNull}, "Null"},
    });
}

TEST_F(Dates, SerialsCountOnBeyondTheirRanges) {
    expect({
        {u"DateSerial", {integer(2024), integer(13), integer(0)}, "12/31/2024"},
        {u"DateSerial", {integer(2024), integer(3), integer(-1)}, "2/28/2024"},
        {u"DateSerial", {integer(29), integer(1), integer(1)}, "1/1/2029"},
        {u"DateSerial", {integer(30), integer(1), integer(1)}, "1/1/1930"},
        {u"DateSerial", {integer(10000), integer(1), integer(1)}, "error 5"},
        {u"DateSerial", {long_number(40000), integer(1), integer(1)}, "error 6"},
        {u"TimeSerial", {integer(12), integer(-15), integer(0)}, "11:45:00 AM"},
        {u"TimeSerial", {integer(23), integer(59), integer(59)}, "11:59:59 PM"},
        {u"TimeSerial", {integer(25), integer(0), integer(0)}, "12/31/1899 1:00:00 AM"},
    });
}

TEST_F(Dates, ValuesOfTextsTakeOneHalf) {
    const Value both = text(u"24 Nov 2026 4:03 PM");
    expect({
        {u"DateValue", {both}, "11/24/2026"},
        {u"TimeValue", {both}, "4:03:00 PM"},
        {u"DateValue", {moment(2024, 2, 29, 12)}, "2/29/2024"},
        {u"TimeValue", {Value(Date{-1.25})}, "6:00:00 AM"},
        {u"DateValue", {text(u"nonsense")}, "error 13"},
        {u"TimeValue", {kNull}, "error 94"},
    });
}

}  // namespace
}  // namespace vbscript
