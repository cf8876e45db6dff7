#include <algorithm>
#include <string>

#include "vbscript/value/date_parts.h"
#include "vbscript/value/locale.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

constexpr std::u16string_view kLetters = u"dMyhHmst";

void append_number(std::u16string& text, int number, std::size_t least_digits) {
    std::u16string digits;
    do {
        digits.push_back(static_cast<char16_t>(u'0' + number % 10));
        number /= 10;
    } while (number != 0);
    while (digits.size() < least_digits) {
        digits.push_back(u'0');
    }
    text.append(digits.rbegin(), digits.rend());
}

int hour_to_twelve(int hour) {
    const int rest = hour % 12;
    return rest == 0 ? 12 : rest;
}

void append_day(std::u16string& text, const Locale& locale, const DateParts& parts,
                std::size_t length) {
    if (length < 3) {
        return append_number(text, parts.day, length);
    }
    const auto& names = length == 3 ? locale.short_weekdays : locale.weekdays;
    text.append(names[static_cast<std::size_t>(weekday_of(parts)) - 1]);
}

void append_month(std::u16string& text, const Locale& locale, const DateParts& parts,
                  std::size_t length) {
    if (length < 3) {
        return append_number(text, parts.month, length);
    }
    const auto& names = length == 3 ? locale.short_months : locale.months;
    text.append(names[static_cast<std::size_t>(parts.month) - 1]);
}

void append_field(std::u16string& text, const Locale& locale, const DateParts& parts,
                  char16_t letter, std::size_t length) {
    switch (letter) {
        case u'd':
            return append_day(text, locale, parts, length);
        case u'M':
            return append_month(text, locale, parts, length);
        case u'y':
            return append_number(text, length < 3 ? parts.year % 100 : parts.year, length);
        case u'h':
            return append_number(text, hour_to_twelve(parts.hour), length);
        case u'H':
            return append_number(text, parts.hour, length);
        case u'm':
            return append_number(text, parts.minute, length);
        case u's':
            return append_number(text, parts.second, length);
        default:
            text.append(parts.hour < 12 ? locale.am : locale.pm);
    }
}

bool is_midnight(const DateParts& parts) {
    return parts.hour == 0 && parts.minute == 0 && parts.second == 0;
}

bool is_day_zero(const DateParts& parts) {
    constexpr DateParts kDayZero;
    return parts.year == kDayZero.year && parts.month == kDayZero.month &&
           parts.day == kDayZero.day;
}

}  // namespace

std::u16string date_text(const Locale& locale, const DateParts& parts,
                         std::u16string_view pattern) {
    std::u16string text;
    while (!pattern.empty()) {
        const char16_t letter = pattern.front();
        if (kLetters.find(letter) == std::u16string_view::npos) {
            text.push_back(letter);
            pattern.remove_prefix(1);
            continue;
        }
        const std::size_t length = std::min(pattern.find_first_not_of(letter), pattern.size());
        append_field(text, locale, parts, letter, length);
        pattern.remove_prefix(length);
    }
    return text;
}

std::u16string text_of_date(const Locale& locale, Date date) {
    const auto parts = parts_of(date);
    if (!parts) {
        throw ScriptError(ErrorNumber::Overflow);
    }
    if (is_day_zero(*parts)) {
        return date_text(locale, *parts, locale.long_time);
    }
    std::u16string text = date_text(locale, *parts, locale.short_date);
    if (!is_midnight(*parts)) {
        text.append(u" ").append(date_text(locale, *parts, locale.long_time));
    }
    return text;
}

}  // namespace vbscript
