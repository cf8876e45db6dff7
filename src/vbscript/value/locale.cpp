#include "vbscript/value/locale.h"

#include <algorithm>

#include "vbscript/value/convert.h"

namespace vbscript {
namespace {

using Months = std::array<std::u16string_view, 12>;
using Weekdays = std::array<std::u16string_view, 7>;

constexpr Months kEnglishMonths{u"January",   u"February", u"March",    u"April",
                                u"May",       u"June",     u"July",     u"August",
                                u"September", u"October",  u"November", u"December"};
constexpr Months kEnglishShortMonths{u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                     u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
constexpr Weekdays kEnglishWeekdays{u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                    u"Thursday", u"Friday", u"Saturday"};
constexpr Weekdays kEnglishShortWeekdays{u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"};

constexpr Months kGermanMonths{u"Januar",    u"Februar", u"M\u00E4rz", u"April",
                               u"Mai",       u"Juni",    u"Juli",      u"August",
                               u"September", u"Oktober", u"November",  u"Dezember"};
constexpr Months kGermanShortMonths{u"Jan", u"Feb", u"Mrz", u"Apr", u"Mai", u"Jun",
                                    u"Jul", u"Aug", u"Sep", u"Okt", u"Nov", u"Dez"};
constexpr Weekdays kGermanWeekdays{u"Sonntag",    u"Montag",  u"Dienstag", u"Mittwoch",
                                   u"Donnerstag", u"Freitag", u"Samstag"};
constexpr Weekdays kGermanShortWeekdays{u"So", u"Mo", u"Di", u"Mi", u"Do", u"Fr", u"Sa"};

constexpr Locale united_states() {
    Locale locale;
    locale.identifier = 1033;
    locale.name = u"English (United States)";
    locale.short_tag = u"en-us";
    locale.currency_symbol = u"$";
    locale.currency_positive = u"$n";
    locale.currency_negative = u"($n)";
    locale.number_negative = u"-n";
    locale.percent_positive = u"n%";
    locale.percent_negative = u"-n%";
    locale.short_date = u"M/d/yyyy";
    locale.long_date = u"dddd, MMMM d, yyyy";
    locale.short_time = u"HH:mm";
    locale.long_time = u"h:mm:ss tt";
    locale.am = u"AM";
    locale.pm = u"PM";
    locale.months = kEnglishMonths;
    locale.short_months = kEnglishShortMonths;
    locale.weekdays = kEnglishWeekdays;
    locale.short_weekdays = kEnglishShortWeekdays;
    return locale;
}

constexpr Locale united_kingdom() {
    Locale locale = united_states();
    locale.identifier = 2057;
    locale.name = u"English (United Kingdom)";
    locale.short_tag = u"en-gb";
    locale.currency_symbol = u"\u00A3";
    locale.currency_negative = u"-$n";
    locale.date_order = DateOrder::DayMonthYear;
    locale.short_date = u"dd/MM/yyyy";
    locale.long_date = u"dd MMMM yyyy";
    locale.long_time = u"HH:mm:ss";
    locale.first_weekday = 2;
    locale.first_week_of_year = 2;
    return locale;
}

constexpr Locale germany() {
    Locale locale = united_kingdom();
    locale.identifier = 1031;
    locale.name = u"German (Germany)";
    locale.short_tag = u"de-de";
    locale.decimal_mark = u',';
    locale.grouping_mark = u'.';
    locale.list_separator = u';';
    locale.currency_symbol = u"\u20AC";
    locale.currency_positive = u"n $";
    locale.currency_negative = u"-n $";
    locale.date_separator = u'.';
    locale.short_date = u"dd.MM.yyyy";
    locale.long_date = u"dddd, d. MMMM yyyy";
    locale.am = u"";
    locale.pm = u"";
    locale.months = kGermanMonths;
    locale.short_months = kGermanShortMonths;
    locale.weekdays = kGermanWeekdays;
    locale.short_weekdays = kGermanShortWeekdays;
    return locale;
}

constexpr std::array kLocales{united_states(), united_kingdom(), germany()};

// The country that the machine is set to, by each of the numbers that mean it.
constexpr std::array<std::int32_t, 3> kDefaultIdentifiers{0, 1024, 2048};

}  // namespace

std::span<const Locale> locales() noexcept {
    return kLocales;
}

const Locale* find_locale(std::int32_t identifier) noexcept {
    if (std::ranges::find(kDefaultIdentifiers, identifier) != kDefaultIdentifiers.end()) {
        return kLocales.data();
    }
    const auto* const row = std::ranges::find(kLocales, identifier, &Locale::identifier);
    return row == kLocales.end() ? nullptr : row;
}

const Locale* find_locale(std::u16string_view tag) noexcept {
    const auto* const row = std::ranges::find_if(kLocales, [tag](const Locale& locale) {
        const auto language = locale.short_tag.substr(0, locale.short_tag.find(u'-'));
        return equals_ignoring_case(tag, locale.short_tag) || equals_ignoring_case(tag, language);
    });
    return row == kLocales.end() ? nullptr : row;
}

}  // namespace vbscript
