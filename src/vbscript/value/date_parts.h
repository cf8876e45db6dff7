#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "vbscript/value/value.h"

// Between the number of days that a Date holds and what people read off a calendar and a clock.
// Day 0 is 30 December 1899; the fraction counts away from zero, so that -1.25 is six o'clock on
// 29 December 1899. The calendar goes from 1 January 100 to 31 December 9999.
namespace vbscript {

struct Locale;

struct DateParts {
    int year = 1899;
    int month = 12;  // 1 to 12
    int day = 30;    // 1 to 31
    int hour = 0;    // 0 to 23
    int minute = 0;
    int second = 0;
    friend bool operator==(const DateParts&, const DateParts&) = default;
};

// Whole days since day 0 of a date in the proleptic Gregorian calendar; a day or a month out of
// its range counts on: 31 February is 3 March or 2 March, month 0 is December of the year before.
[[nodiscard]] std::int64_t serial_of(std::int64_t year, std::int64_t month,
                                     std::int64_t day) noexcept;

// Year, month and day of a serial number.
[[nodiscard]] DateParts parts_of_serial(std::int64_t serial) noexcept;

// Days and seconds since midnight, which may be beyond one day or negative, as a Date.
// Absent outside the calendar.
[[nodiscard]] std::optional<Date> date_of(std::int64_t serial, std::int64_t seconds) noexcept;

// Absent outside the calendar.
[[nodiscard]] std::optional<Date> date_of(const DateParts& parts) noexcept;

// To the nearest second. Absent outside the calendar and for what is no number.
[[nodiscard]] std::optional<DateParts> parts_of(Date date) noexcept;

[[nodiscard]] bool is_in_calendar(Date date) noexcept;

// 1 Sunday to 7 Saturday.
[[nodiscard]] int weekday_of(std::int64_t serial) noexcept;
[[nodiscard]] int weekday_of(const DateParts& parts) noexcept;

[[nodiscard]] bool is_leap_year(int year) noexcept;
[[nodiscard]] int days_of_month(int year, int month) noexcept;

// A year of two digits as people mean it: 0 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999.
// Others stay.
[[nodiscard]] constexpr int full_year(int year) noexcept {
    if (year < 0 || year > 99) {
        return year;
    }
    return year + (year < 30 ? 2000 : 1900);
}

// A pattern of `Locale` filled in: "dddd, MMMM d, yyyy".
[[nodiscard]] std::u16string date_text(const Locale& locale, const DateParts& parts,
                                       std::u16string_view pattern);

// The general form, as `CStr` gives it: short date and long time; the time alone for day 0, the
// date alone at midnight. Throws: ScriptError 6 outside the calendar.
[[nodiscard]] std::u16string text_of_date(const Locale& locale, Date date);

// The date, the time or both that a text is, by the order and the words of the locale; an order
// that gives no date is tried the other way round. Month names in English are understood
// everywhere. A date without a year is in `current_year`. Absent for any other text.
[[nodiscard]] std::optional<Date> parse_date(const Locale& locale, std::u16string_view text,
                                             int current_year);

}  // namespace vbscript
