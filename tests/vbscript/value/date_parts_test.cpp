#include "vbscript/value/date_parts.h"

#include <gtest/gtest.h>

#include "vbscript/value/convert.h"
#include "vbscript/value/locale.h"

namespace vbscript {
namespace {

TEST(DateParts, EveryDayOfTheCalendarComesBack) {
    const std::int64_t first = serial_of(100, 1, 1);
    const std::int64_t last = serial_of(9999, 12, 31);
    EXPECT_EQ(first, -657434);
    EXPECT_EQ(last, 2958465);
    DateParts before = parts_of_serial(first - 1);
    for (std::int64_t serial = first; serial <= last; ++serial) {
        const DateParts parts = parts_of_serial(serial);
        const bool is_next_day =
            parts.year == before.year && parts.month == before.month && parts.day == before.day + 1;
        const bool is_first_of_month =
            parts.day == 1 && before.day == days_of_month(before.year, before.month);
        ASSERT_TRUE(is_next_day || is_first_of_month) << serial;
        ASSERT_EQ(serial_of(parts.year, parts.month, parts.day), serial);
        before = parts;
    }
}

TEST(DateParts, DaysAndMonthsCountOn) {
    EXPECT_EQ(serial_of(2026, 2, 31), serial_of(2026, 3, 3));
    EXPECT_EQ(serial_of(2026, 0, 1), serial_of(2025, 12, 1));
    EXPECT_EQ(serial_of(2026, -11, 1), serial_of(2025, 1, 1));
    EXPECT_EQ(serial_of(2026, 25, 0), serial_of(2027, 12, 31));
    EXPECT_EQ(weekday_of(serial_of(2026, 11, 24)), 3);
    EXPECT_EQ(weekday_of(serial_of(1899, 12, 30)), 7);
    EXPECT_EQ(weekday_of(serial_of(100, 1, 1)), 6);
}

TEST(DateParts, BeforeDayZeroTheTimeCountsAwayFromZero) {
    EXPECT_EQ(parts_of(Date{-1.25}), (DateParts{1899, 12, 29, 6, 0, 0}));
    EXPECT_EQ(date_of(DateParts{1899, 12, 29, 6, 0, 0}), Date{-1.25});
    EXPECT_EQ(parts_of(Date{0.25}), (DateParts{1899, 12, 30, 6, 0, 0}));
    EXPECT_EQ(parts_of(Date{-0.25}), (DateParts{1899, 12, 30, 6, 0, 0}));
    EXPECT_EQ(date_of(0, -1), date_of(DateParts{1899, 12, 29, 23, 59, 59}));
    EXPECT_EQ(date_of(5, 90000), Date{6 + 3600.0 / 86400});
}

TEST(DateParts, TheCalendarHasTwoEnds) {
    EXPECT_TRUE(is_in_calendar(Date{-657434.9}));
    EXPECT_FALSE(is_in_calendar(Date{-657435}));
    EXPECT_FALSE(parts_of(Date{2958466}));
    EXPECT_FALSE(date_of(DateParts{99, 12, 31}));
    EXPECT_FALSE(date_of(serial_of(9999, 12, 31), 86400));
    EXPECT_EQ(parts_of(Date{2958465.9999999}), (DateParts{9999, 12, 31, 23, 59, 59}));
    EXPECT_EQ(parts_of(Date{1.9999999}), (DateParts{1900, 1, 1, 0, 0, 0}));
}

TEST(DateParts, TextsByPatternAndLocale) {
    const Locale& us = *find_locale(1033);
    const Locale& uk = *find_locale(2057);
    const Locale& germany = *find_locale(1031);
    const DateParts parts{2026, 3, 4, 16, 5, 9};

    struct Case {
        const Locale* locale;
        std::u16string_view pattern;
        std::string_view expected;
    };

    const std::vector<Case> cases{
        {&us, us.short_date, "3/4/2026"},
        {&us, us.long_date, "Wednesday, March 4, 2026"},
        {&us, us.long_time, "4:05:09 PM"},
        {&us, u"ddd dd-MMM-yy hh:m:s", "Wed 04-Mar-26 04:5:9"},
        {&uk, uk.short_date, "04/03/2026"},
        {&uk, uk.long_date, "04 March 2026"},
        {&germany, germany.long_date, "Mittwoch, 4. M\u00E4rz 2026"},
        {&germany, germany.long_time, "16:05:09"},
        {&germany, germany.short_time, "16:05"},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(to_utf8(date_text(*row.locale, parts, row.pattern)), row.expected);
    }
    EXPECT_EQ(to_utf8(text_of_date(us, Date{0.5})), "12:00:00 PM");
    EXPECT_EQ(to_utf8(text_of_date(us, *date_of(parts))), "3/4/2026 4:05:09 PM");
}

TEST(Locale, IsFoundByNumberAndTag) {
    EXPECT_EQ(find_locale(0)->identifier, 1033);
    EXPECT_EQ(find_locale(9999), nullptr);
    EXPECT_EQ(find_locale(u"DE-de")->identifier, 1031);
    EXPECT_EQ(find_locale(u"en")->identifier, 1033);
    EXPECT_EQ(find_locale(u"fr"), nullptr);
    EXPECT_EQ(find_locale(u""), nullptr);
}

}  // namespace
}  // namespace vbscript
