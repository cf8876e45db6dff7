#include "vbscript/library/date_intervals.h"

#include <algorithm>
#include <array>

#include "vbscript/value/convert.h"

namespace vbscript {
namespace {

constexpr std::int64_t kSecondsOfMinute = 60;
constexpr std::int64_t kSecondsOfHour = 3600;
constexpr std::int64_t kSecondsOfDay = 86400;
constexpr int kDaysOfWeek = 7;
constexpr int kMonthsOfYear = 12;
constexpr int kMonthsOfQuarter = 3;

struct IntervalWord {
    std::u16string_view word;
    Interval interval;
};

constexpr auto kWords = std::to_array<IntervalWord>({
    {u"yyyy", Interval::Year},
    {u"q", Interval::Quarter},
    {u"m", Interval::Month},
    {u"y", Interval::DayOfYear},
    {u"d", Interval::Day},
    {u"w", Interval::Weekday},
    {u"ww", Interval::Week},
    {u"h", Interval::Hour},
    {u"n", Interval::Minute},
    {u"s", Interval::Second},
});

[[nodiscard]] std::int64_t floor_divide(std::int64_t number, std::int64_t by) noexcept {
    return number / by - (number % by < 0 ? 1 : 0);
}

[[nodiscard]] std::int64_t serial_of(const DateParts& parts) noexcept {
    return vbscript::serial_of(parts.year, parts.month, parts.day);
}

[[nodiscard]] std::int64_t second_of_day(const DateParts& parts) noexcept {
    return parts.hour * kSecondsOfHour + parts.minute * kSecondsOfMinute + parts.second;
}

[[nodiscard]] std::int64_t second_of_time(const DateParts& parts) noexcept {
    return serial_of(parts) * kSecondsOfDay + second_of_day(parts);
}

[[nodiscard]] std::int64_t month_of_time(const DateParts& parts) noexcept {
    return std::int64_t{parts.year} * kMonthsOfYear + parts.month - 1;
}

[[nodiscard]] int quarter_of(const DateParts& parts) noexcept {
    return (parts.month - 1) / kMonthsOfQuarter + 1;
}

[[nodiscard]] int day_of_year(const DateParts& parts) noexcept {
    return static_cast<int>(serial_of(parts) - vbscript::serial_of(parts.year, 1, 1)) + 1;
}

// The serial number of the day with which the week of a day begins.
[[nodiscard]] std::int64_t week_start(const DateParts& parts, int first_weekday) noexcept {
    return serial_of(parts) - (weekday_from(parts, first_weekday) - 1);
}

// A week belongs to the year of one of its days: the fourth, when it needs four days in the year;
// the first, when it must lie in it whole.
[[nodiscard]] int week_by_day(const DateParts& parts, int first_weekday, int which_day) noexcept {
    const DateParts day = parts_of_serial(week_start(parts, first_weekday) + which_day);
    return (day_of_year(day) - 1) / kDaysOfWeek + 1;
}

[[nodiscard]] int week_of_year(const DateParts& parts, WeekRule weeks) noexcept {
    constexpr int kFourDays = 2;
    constexpr int kFullWeek = 3;
    if (weeks.first_week_of_year == kFourDays) {
        return week_by_day(parts, weeks.first_weekday, 3);
    }
    if (weeks.first_week_of_year == kFullWeek) {
        return week_by_day(parts, weeks.first_weekday, 0);
    }
    DateParts new_year = parts;
    new_year.month = 1;
    new_year.day = 1;
    const int days_before = weekday_from(new_year, weeks.first_weekday) - 1;
    return (day_of_year(parts) - 1 + days_before) / kDaysOfWeek + 1;
}

[[nodiscard]] std::optional<Date> add_months(std::int64_t months, const DateParts& from) noexcept {
    constexpr std::int64_t kLastMonth = std::int64_t{10000} * kMonthsOfYear - 1;
    const std::int64_t month = month_of_time(from) + months;
    if (month < 0 || month > kLastMonth) {
        return std::nullopt;
    }
    DateParts parts = from;
    parts.year = static_cast<int>(month / kMonthsOfYear);
    parts.month = static_cast<int>(month % kMonthsOfYear) + 1;
    parts.day = std::min(from.day, days_of_month(parts.year, parts.month));
    return date_of(serial_of(parts), second_of_day(parts));
}

}  // namespace

std::optional<Interval> find_interval(std::u16string_view word) noexcept {
    for (const IntervalWord& row : kWords) {
        if (equals_ignoring_case(row.word, word)) {
            return row.interval;
        }
    }
    return std::nullopt;
}

std::optional<Date> add_intervals(Interval interval, std::int64_t count,
                                  const DateParts& from) noexcept {
    const auto add_seconds = [&](std::int64_t seconds) {
        const std::int64_t time = second_of_time(from) + seconds;
        const std::int64_t serial = floor_divide(time, kSecondsOfDay);
        return date_of(serial, time - serial * kSecondsOfDay);
    };
    switch (interval) {
        case Interval::Year:
            return add_months(count * kMonthsOfYear, from);
        case Interval::Quarter:
            return add_months(count * kMonthsOfQuarter, from);
        case Interval::Month:
            return add_months(count, from);
        case Interval::DayOfYear:
        case Interval::Day:
        case Interval::Weekday:
            return add_seconds(count * kSecondsOfDay);
        case Interval::Week:
            return add_seconds(count * kDaysOfWeek * kSecondsOfDay);
        case Interval::Hour:
            return add_seconds(count * kSecondsOfHour);
        case Interval::Minute:
            return add_seconds(count * kSecondsOfMinute);
        case Interval::Second:
            return add_seconds(count);
    }
    return std::nullopt;
}

std::int64_t count_intervals(Interval interval, const DateParts& from, const DateParts& to,
                             WeekRule weeks) noexcept {
    const auto seconds_in_steps_of = [&](std::int64_t step) {
        return floor_divide(second_of_time(to), step) - floor_divide(second_of_time(from), step);
    };
    switch (interval) {
        case Interval::Year:
            return to.year - from.year;
        case Interval::Quarter:
            return month_of_time(to) / kMonthsOfQuarter - month_of_time(from) / kMonthsOfQuarter;
        case Interval::Month:
            return month_of_time(to) - month_of_time(from);
        case Interval::DayOfYear:
        case Interval::Day:
            return serial_of(to) - serial_of(from);
        case Interval::Weekday:
            return (serial_of(to) - serial_of(from)) / kDaysOfWeek;
        case Interval::Week:
            return (week_start(to, weeks.first_weekday) - week_start(from, weeks.first_weekday)) /
                   kDaysOfWeek;
        case Interval::Hour:
            return seconds_in_steps_of(kSecondsOfHour);
        case Interval::Minute:
            return seconds_in_steps_of(kSecondsOfMinute);
        case Interval::Second:
            return seconds_in_steps_of(1);
    }
    return 0;
}

int part_of(Interval interval, const DateParts& parts, WeekRule weeks) noexcept {
    switch (interval) {
        case Interval::Year:
            return parts.year;
        case Interval::Quarter:
            return quarter_of(parts);
        case Interval::Month:
            return parts.month;
        case Interval::DayOfYear:
            return day_of_year(parts);
        case Interval::Day:
            return parts.day;
        case Interval::Weekday:
            return weekday_from(parts, weeks.first_weekday);
        case Interval::Week:
            return week_of_year(parts, weeks);
        case Interval::Hour:
            return parts.hour;
        case Interval::Minute:
            return parts.minute;
        case Interval::Second:
            return parts.second;
    }
    return 0;
}

int weekday_from(const DateParts& parts, int first_weekday) noexcept {
    return (weekday_of(parts) - first_weekday + kDaysOfWeek) % kDaysOfWeek + 1;
}

}  // namespace vbscript
