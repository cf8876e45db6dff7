#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace vbscript {

enum class DateOrder : std::uint8_t { MonthDayYear, DayMonthYear, YearMonthDay };

// How one country writes numbers, money and dates. Rows of a constant table: every reference to
// one stays valid, and one row has one address.
//
// Amounts are patterns in which 'n' stands for the digits and '$' for the currency sign: "($n)".
// Dates and times are patterns as well: d and dd the day, ddd and dddd its weekday, M and MM the
// month, MMM and MMMM its name, yy and yyyy the year, h and hh the hour to 12, H and HH to 23, m
// and mm minutes, s and ss seconds, tt the half of the day; every other character is itself.
struct Locale {
    std::int32_t identifier = 0;    // 1033
    std::u16string_view name;       // "English (United States)"
    std::u16string_view short_tag;  // "en-us", as `SetLocale` takes it

    char16_t decimal_mark = u'.';
    char16_t grouping_mark = u',';
    char16_t list_separator = u',';
    int group_size = 3;        // digits between grouping marks
    int digits = 2;            // behind the decimal mark, unless a format says otherwise
    int currency_digits = 2;   // the same of an amount of money
    bool leading_zero = true;  // "0.5" and not ".5" in formatted numbers
    std::u16string_view currency_symbol;
    std::u16string_view currency_positive;
    std::u16string_view currency_negative;
    std::u16string_view number_negative;
    std::u16string_view percent_positive;  // with the percent sign in place
    std::u16string_view percent_negative;

    DateOrder date_order = DateOrder::MonthDayYear;
    char16_t date_separator = u'/';
    char16_t time_separator = u':';
    std::u16string_view short_date;
    std::u16string_view long_date;
    std::u16string_view short_time;
    std::u16string_view long_time;
    std::u16string_view am;
    std::u16string_view pm;
    std::array<std::u16string_view, 12> months;
    std::array<std::u16string_view, 12> short_months;
    std::array<std::u16string_view, 7> weekdays;  // from Sunday
    std::array<std::u16string_view, 7> short_weekdays;
    int first_weekday = 1;       // 1 Sunday to 7 Saturday
    int first_week_of_year = 1;  // 1 the week of 1 January, 2 the first with four days, 3 full
};

// From English (United States), which a script starts with, on.
[[nodiscard]] std::span<const Locale> locales() noexcept;

// Null for a country that the table does not have. 0, 1024 and 2048 are the first row.
[[nodiscard]] const Locale* find_locale(std::int32_t identifier) noexcept;

// By its tag, without regard to case: "de-de", "de".
[[nodiscard]] const Locale* find_locale(std::u16string_view tag) noexcept;

}  // namespace vbscript
