#include "automation/date.h"

#include <array>
#include <cmath>
#include <string_view>

#include "automation/run_time_error.h"

namespace automation {
namespace {

using namespace std::chrono;

constexpr local_days kDayZero{1899y / December / 30};
constexpr local_days kFirstDay{100y / January / 1};
constexpr local_days kEnd{10000y / January / 1};
constexpr double kMillisecondsPerDay = 86'400'000;

constexpr auto kMonths =
    std::to_array<std::string_view>({"January", "February", "March", "April", "May", "June", "July",
                                     "August", "September", "October", "November", "December"});
constexpr std::size_t kShortMonth = 3;

constexpr auto kWeekdays = std::to_array<std::string_view>(
    {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"});

std::string two_digits(unsigned int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string_view month_name(const year_month_day& date) {
    return kMonths[static_cast<unsigned int>(date.month()) - 1];
}

std::string date_text(local_days day) {
    const year_month_day date(day);
    return std::to_string(static_cast<unsigned int>(date.month())) + "/" +
           std::to_string(static_cast<unsigned int>(date.day())) + "/" +
           std::to_string(static_cast<int>(date.year()));
}

std::string time_text(milliseconds since_midnight) {
    const hh_mm_ss time(floor<seconds>(since_midnight));
    const auto hour = make12(time.hours()).count();
    return std::to_string(hour) + ":" +
           two_digits(static_cast<unsigned int>(time.minutes().count())) + ":" +
           two_digits(static_cast<unsigned int>(time.seconds().count())) +
           (is_am(time.hours()) ? " AM" : " PM");
}

}  // namespace

// Before day 0 the fraction counts away from zero: -1.25 is six o'clock on 29 December 1899.
Date date_of(DateTime moment) {
    const auto day = floor<days>(moment);
    const auto whole = static_cast<double>((day - kDayZero).count());
    const double fraction = static_cast<double>((moment - day).count()) / kMillisecondsPerDay;
    return {whole < 0 ? whole - fraction : whole + fraction};
}

DateTime date_time_of(Date date) {
    constexpr double kLowest = (kFirstDay - kDayZero).count() - 1;
    constexpr double kHighest = (kEnd - kDayZero).count();
    const bool is_in_range = date.days > kLowest && date.days < kHighest;
    if (!is_in_range) {
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    }
    const double whole = std::trunc(date.days);
    const double fraction = std::abs(date.days - whole);
    const DateTime moment = kDayZero + days(static_cast<int>(whole)) +
                            milliseconds(std::llround(fraction * kMillisecondsPerDay));
    if (moment >= kEnd) {
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    }
    return moment;
}

std::string general_date(DateTime moment) {
    const auto day = floor<days>(moment);
    const milliseconds since_midnight = moment - day;
    if (day == kDayZero) {
        return time_text(since_midnight);
    }
    if (floor<seconds>(since_midnight) == seconds(0)) {
        return date_text(day);
    }
    return date_text(day) + " " + time_text(since_midnight);
}

std::string long_date(DateTime moment) {
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    return std::string(kWeekdays[weekday(day).c_encoding()])
        .append(", ")
        .append(month_name(date))
        .append(" " + std::to_string(static_cast<unsigned int>(date.day())) + ", " +
                std::to_string(static_cast<int>(date.year())));
}

std::string long_time(DateTime moment) {
    return time_text(moment - floor<days>(moment));
}

std::string compact_date_time(DateTime moment) {
    const year_month_day date(floor<days>(moment));
    std::string time = time_of_day(moment);
    std::erase(time, ':');
    return std::to_string(static_cast<int>(date.year())) +
           two_digits(static_cast<unsigned int>(date.month())) +
           two_digits(static_cast<unsigned int>(date.day())) + time;
}

std::string time_of_day(DateTime moment) {
    const hh_mm_ss time(floor<seconds>(moment - floor<days>(moment)));
    return two_digits(static_cast<unsigned int>(time.hours().count())) + ":" +
           two_digits(static_cast<unsigned int>(time.minutes().count())) + ":" +
           two_digits(static_cast<unsigned int>(time.seconds().count()));
}

std::string weekday_and_time(DateTime moment) {
    const auto day = floor<days>(moment);
    const hh_mm_ss time(floor<minutes>(moment - day));
    return std::string(kWeekdays[weekday(day).c_encoding()]) + " " +
           std::to_string(make12(time.hours()).count()) + ":" +
           two_digits(static_cast<unsigned int>(time.minutes().count())) +
           (is_am(time.hours()) ? " AM" : " PM");
}

std::string medium_date(DateTime moment) {
    const year_month_day date(floor<days>(moment));
    const auto year_in_century = static_cast<unsigned int>(static_cast<int>(date.year()) % 100);
    return two_digits(static_cast<unsigned int>(date.day())) + "-" +
           std::string(month_name(date).substr(0, kShortMonth)) + "-" + two_digits(year_in_century);
}

}  // namespace automation
