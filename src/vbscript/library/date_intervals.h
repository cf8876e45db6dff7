#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "vbscript/value/date_parts.h"

// Counting in the steps of a calendar and a clock.
namespace vbscript {

enum class Interval : std::uint8_t {
    Year,
    Quarter,
    Month,
    DayOfYear,
    Day,
    Weekday,
    Week,
    Hour,
    Minute,
    Second,
};

// "yyyy", "q", "m", "y", "d", "w", "ww", "h", "n", "s", in any case.
[[nodiscard]] std::optional<Interval> find_interval(std::u16string_view word) noexcept;

// Where weeks begin and which one is a year's first.
struct WeekRule {
    int first_weekday = 1;       // 1 Sunday to 7 Saturday
    int first_week_of_year = 1;  // 1 the week of 1 January, 2 the first with four days, 3 full
};

// A moment `count` intervals later; a day that the month does not have becomes its last one.
// Absent outside the calendar.
[[nodiscard]] std::optional<Date> add_intervals(Interval interval, std::int64_t count,
                                                const DateParts& from) noexcept;

// How many boundaries of the interval lie between two moments, negative when `to` is the earlier
// one. `Weekday` counts full weeks.
[[nodiscard]] std::int64_t count_intervals(Interval interval, const DateParts& from,
                                           const DateParts& to, WeekRule weeks) noexcept;

// The part of a moment that the interval names: quarter 1 to 4, day of the year, week of the year.
[[nodiscard]] int part_of(Interval interval, const DateParts& parts, WeekRule weeks) noexcept;

// 1 for a day that is `first_weekday`, to 7.
[[nodiscard]] int weekday_from(const DateParts& parts, int first_weekday) noexcept;

}  // namespace vbscript
