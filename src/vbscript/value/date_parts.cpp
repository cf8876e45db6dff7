#include "vbscript/value/date_parts.h"

#include <array>
#include <cmath>

namespace vbscript {
namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::int64_t kFirstSerial = -657434;  // 1 January 100
constexpr std::int64_t kLastSerial = 2958465;   // 31 December 9999

// Days from 1 March of the year 0 to day 0, and of the calendar's cycle of 400 years. A year that
// begins in March has its leap day at the end.
constexpr std::int64_t kMarchOfYearZero = 693899;
constexpr std::int64_t kDaysOfCycle = 146097;
constexpr std::int64_t kYearsOfCycle = 400;

constexpr std::int64_t floor_divide(std::int64_t number, std::int64_t divisor) noexcept {
    const std::int64_t quotient = number / divisor;
    return number % divisor < 0 ? quotient - 1 : quotient;
}

}  // namespace

bool is_leap_year(int year) noexcept {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int days_of_month(int year, int month) noexcept {
    constexpr std::array kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool is_leap_month = month == 2 && is_leap_year(year);
    return kDays[static_cast<std::size_t>(month) - 1] + (is_leap_month ? 1 : 0);
}

std::int64_t serial_of(std::int64_t year, std::int64_t month, std::int64_t day) noexcept {
    const std::int64_t months_from_march = month - 3;
    const std::int64_t march_year = year + floor_divide(months_from_march, 12);
    const std::int64_t march_month = months_from_march - floor_divide(months_from_march, 12) * 12;
    const std::int64_t cycle = floor_divide(march_year, kYearsOfCycle);
    const std::int64_t year_of_cycle = march_year - cycle * kYearsOfCycle;
    const std::int64_t day_of_cycle = year_of_cycle * 365 + year_of_cycle / 4 -
                                      year_of_cycle / 100 + (153 * march_month + 2) / 5 + day - 1;
    return cycle * kDaysOfCycle + day_of_cycle - kMarchOfYearZero;
}

DateParts parts_of_serial(std::int64_t serial) noexcept {
    const std::int64_t days = serial + kMarchOfYearZero;
    const std::int64_t cycle = floor_divide(days, kDaysOfCycle);
    const std::int64_t day_of_cycle = days - cycle * kDaysOfCycle;
    const std::int64_t year_of_cycle =
        (day_of_cycle - day_of_cycle / 1460 + day_of_cycle / 36524 - day_of_cycle / 146096) / 365;
    const std::int64_t day_of_year =
        day_of_cycle - (365 * year_of_cycle + year_of_cycle / 4 - year_of_cycle / 100);
    const std::int64_t march_month = (5 * day_of_year + 2) / 153;
    const std::int64_t month = march_month < 10 ? march_month + 3 : march_month - 9;

    DateParts parts;
    parts.day = static_cast<int>(day_of_year - (153 * march_month + 2) / 5 + 1);
    parts.month = static_cast<int>(month);
    parts.year = static_cast<int>(year_of_cycle + cycle * kYearsOfCycle + (month <= 2 ? 1 : 0));
    return parts;
}

std::optional<Date> date_of(std::int64_t serial, std::int64_t seconds) noexcept {
    const std::int64_t days = floor_divide(seconds, kSecondsPerDay);
    const std::int64_t day = serial + days;
    if (day < kFirstSerial || day > kLastSerial) {
        return std::nullopt;
    }
    const auto fraction =
        static_cast<double>(seconds - days * kSecondsPerDay) / static_cast<double>(kSecondsPerDay);
    const auto whole = static_cast<double>(day);
    return Date{day < 0 ? whole - fraction : whole + fraction};
}

std::optional<Date> date_of(const DateParts& parts) noexcept {
    constexpr std::int64_t kSecondsPerHour = 3600;
    constexpr std::int64_t kSecondsPerMinute = 60;
    return date_of(serial_of(parts.year, parts.month, parts.day),
                   parts.hour * kSecondsPerHour + parts.minute * kSecondsPerMinute + parts.second);
}

bool is_in_calendar(Date date) noexcept {
    return date.days > static_cast<double>(kFirstSerial - 1) &&
           date.days < static_cast<double>(kLastSerial + 1);
}

std::optional<DateParts> parts_of(Date date) noexcept {
    if (!is_in_calendar(date)) {
        return std::nullopt;
    }
    const double whole = std::trunc(date.days);
    const double fraction = std::abs(date.days - whole);
    auto serial = static_cast<std::int64_t>(whole);
    std::int64_t second = std::llround(fraction * static_cast<double>(kSecondsPerDay));
    if (second == kSecondsPerDay) {
        if (serial < kLastSerial) {
            ++serial;
            second = 0;
        } else {
            --second;  // the last moment of the calendar has no day behind it
        }
    }
    DateParts parts = parts_of_serial(serial);
    parts.hour = static_cast<int>(second / 3600);
    parts.minute = static_cast<int>(second / 60 % 60);
    parts.second = static_cast<int>(second % 60);
    return parts;
}

int weekday_of(std::int64_t serial) noexcept {
    constexpr std::int64_t kSaturday = 6;  // of day 0, from Sunday as 0
    const std::int64_t place = serial + kSaturday;
    return static_cast<int>(place - floor_divide(place, 7) * 7) + 1;
}

int weekday_of(const DateParts& parts) noexcept {
    return weekday_of(serial_of(parts.year, parts.month, parts.day));
}

}  // namespace vbscript
