#pragma once

#include <chrono>
#include <string>

namespace automation {

// A moment of the house's wall clock: local time, no zone. Milliseconds are the finest step that
// the system shows.
using DateTime = std::chrono::local_time<std::chrono::milliseconds>;

// Days since 30 December 1899 with the time of day as the fraction, the form in which values and
// scripts carry dates. Range 1 January 100 to 31 December 9999.
struct Date {
    double days = 0;
    friend bool operator==(const Date&, const Date&) = default;
};

[[nodiscard]] Date date_of(DateTime moment);

// Throws: RunTimeError 5 outside the range.
[[nodiscard]] DateTime date_time_of(Date date);

// "11/24/2026 4:03:03 PM": the general form of the United States; the time alone for day 0, the
// date alone at midnight.
[[nodiscard]] std::string general_date(DateTime moment);

// "24-Nov-26": day with two digits, month name of three letters, year of two digits.
[[nodiscard]] std::string medium_date(DateTime moment);

// "Tuesday, November 24, 2026" and "4:03:03 PM": the long forms of the United States.
[[nodiscard]] std::string long_date(DateTime moment);
[[nodiscard]] std::string long_time(DateTime moment);

// "20261124160303"
[[nodiscard]] std::string compact_date_time(DateTime moment);

// "16:03:09"
[[nodiscard]] std::string time_of_day(DateTime moment);

// "Tuesday 4:03 PM"
[[nodiscard]] std::string weekday_and_time(DateTime moment);

}  // namespace automation
