#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "automation/number_reader.h"
#include "vbscript/value/context.h"
#include "vbscript/value/convert.h"
#include "vbscript/value/date_parts.h"
#include "vbscript/value/locale.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

constexpr double kCurrencyUnits = 10000;
constexpr std::size_t kCurrencyPlaces = 4;

[[noreturn]] void throw_error(ErrorNumber number) {
    throw ScriptError(number);
}

// A text in single bytes with the marks that the number reader of the house knows; everything that
// is no part of a number there, or is a mark of another country, becomes a byte that it refuses.
char plain_unit(const Locale& locale, char16_t unit) noexcept {
    constexpr char kRefused = '\x01';
    constexpr char16_t kLastAscii = 0x7F;
    if (unit == locale.decimal_mark) {
        return '.';
    }
    if (unit == locale.grouping_mark) {
        return ',';
    }
    if (unit == locale.currency_symbol.front()) {
        return '$';
    }
    if (unit > kLastAscii || unit == u'.' || unit == u',' || unit == u'$') {
        return kRefused;
    }
    return static_cast<char>(unit);
}

std::string plain_number(const Locale& locale, std::u16string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (const char16_t unit : text) {
        plain.push_back(plain_unit(locale, unit));
    }
    return plain;
}

// Digits alone, as most texts of numbers are. Absent for anything else and for very many digits.
std::optional<double> read_digits(std::u16string_view text) noexcept {
    constexpr std::size_t kMostDigits = 15;
    if (text.empty() || text.size() > kMostDigits) {
        return std::nullopt;
    }
    std::int64_t number = 0;
    for (const char16_t unit : text) {
        if (unit < u'0' || unit > u'9') {
            return std::nullopt;
        }
        number = number * 10 + (unit - u'0');
    }
    return static_cast<double>(number);
}

std::optional<double> read_number(const Locale& locale, std::u16string_view text) {
    if (const auto number = read_digits(text)) {
        return number;
    }
    return automation::read_whole_number(plain_number(locale, text));
}

double number_of_text(const Locale& locale, std::u16string_view text) {
    const auto number = read_number(locale, text);
    if (!number) {
        throw_error(ErrorNumber::TypeMismatch);
    }
    if (!std::isfinite(*number)) {
        throw_error(ErrorNumber::Overflow);
    }
    return *number;
}

std::optional<bool> truth_of_word(std::u16string_view text) noexcept {
    if (equals_ignoring_case(text, u"True")) {
        return true;
    }
    if (equals_ignoring_case(text, u"False")) {
        return false;
    }
    return std::nullopt;
}

double number_of(Context& context, const Value& value) {
    switch (value.type()) {
        case Type::Empty:
            return 0;
        case Type::Null:
            throw_error(ErrorNumber::InvalidUseOfNull);
        case Type::Boolean:
        case Type::Byte:
        case Type::Integer:
        case Type::Long:
            return value.number();
        case Type::Single:
        case Type::Double:
        case Type::Date:
            return value.real();
        case Type::Currency:
            return static_cast<double>(value.currency().units) / kCurrencyUnits;
        case Type::String:
            return number_of_text(context.locale(), value.units());
        case Type::Object:
            return number_of(context, context.plain(value));
        case Type::Error:
        case Type::Array:
            break;
    }
    throw_error(ErrorNumber::TypeMismatch);
}

// Written so that NaN fails.
template <typename Number>
Number checked(double number) {
    const double rounded = round_half_even(number);
    const bool fits = rounded >= std::numeric_limits<Number>::min() &&
                      rounded <= std::numeric_limits<Number>::max();
    if (!fits) {
        throw_error(ErrorNumber::Overflow);
    }
    return static_cast<Number>(rounded);
}

Currency checked_currency(double amount) {
    constexpr double kLimit = 9223372036854775808.0;
    const double units = round_half_even(amount * kCurrencyUnits);
    const bool fits = units >= -kLimit && units < kLimit;
    if (!fits) {
        throw_error(ErrorNumber::Overflow);
    }
    return {static_cast<std::int64_t>(units)};
}

// "-922337203685477.5808" to the last place, which a Double cannot hold. Absent for a text that is
// not a sign, digits and at most four places.
std::optional<Currency> read_exact_currency(std::string_view text) {
    const std::size_t mark = text.find('.');
    std::string digits(text.substr(0, mark));
    std::size_t places = 0;
    if (mark != std::string_view::npos) {
        digits.append(text.substr(mark + 1));
        places = text.size() - mark - 1;
    }
    const bool has_digit = !digits.empty() && digits.back() >= '0' && digits.back() <= '9';
    if (!has_digit || places > kCurrencyPlaces) {
        return std::nullopt;
    }
    digits.append(kCurrencyPlaces - places, '0');
    Currency amount;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, amount.units);
    return error == std::errc{} && stop == end ? std::optional(amount) : std::nullopt;
}

Date checked_date(double days) {
    const Date date{days};
    if (!is_in_calendar(date)) {
        throw_error(ErrorNumber::Overflow);
    }
    return date;
}

int current_year(Context& context) {
    return parts_of(context.now()).value_or(DateParts{}).year;
}

}  // namespace

double round_half_even(double value) noexcept {
    return std::nearbyint(value);
}

std::optional<double> parse_number(const Locale& locale, std::u16string_view text) {
    const auto number = read_number(locale, text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

bool to_boolean(Context& context, const Value& value) {
    switch (value.type()) {
        case Type::Boolean:
            return value.boolean();
        case Type::Currency:
            return value.currency().units != 0;
        case Type::String: {
            const auto truth = truth_of_word(value.units());
            return truth ? *truth : number_of(context, value) != 0;
        }
        case Type::Object:
            return to_boolean(context, context.plain(value));
        default:
            return number_of(context, value) != 0;
    }
}

std::uint8_t to_byte(Context& context, const Value& value) {
    if (value.is(Type::Object)) {
        return to_byte(context, context.plain(value));
    }
    if (value.is(Type::Boolean)) {
        return value.boolean() ? 255 : 0;
    }
    return checked<std::uint8_t>(number_of(context, value));
}

std::int16_t to_integer(Context& context, const Value& value) {
    if (value.is(Type::Integer)) {
        return static_cast<std::int16_t>(value.number());
    }
    return checked<std::int16_t>(number_of(context, value));
}

std::int32_t to_long(Context& context, const Value& value) {
    if (value.is(Type::Integer) || value.is(Type::Long)) {
        return value.number();
    }
    return checked<std::int32_t>(number_of(context, value));
}

float to_single(Context& context, const Value& value) {
    const double number = number_of(context, value);
    const auto single = static_cast<float>(number);
    if (!std::isfinite(single)) {
        throw_error(ErrorNumber::Overflow);
    }
    return single;
}

double to_double(Context& context, const Value& value) {
    if (value.is(Type::Double)) {
        return value.real();
    }
    return number_of(context, value);
}

Currency to_currency(Context& context, const Value& value) {
    if (value.is(Type::Currency)) {
        return value.currency();
    }
    if (value.is(Type::Object)) {
        return to_currency(context, context.plain(value));
    }
    if (value.is(Type::String)) {
        const auto exact = read_exact_currency(plain_number(context.locale(), value.units()));
        if (exact) {
            return *exact;
        }
    }
    return checked_currency(number_of(context, value));
}

Date to_date(Context& context, const Value& value) {
    if (value.is(Type::Date)) {
        return {value.real()};
    }
    if (value.is(Type::Object)) {
        return to_date(context, context.plain(value));
    }
    if (value.is(Type::String)) {
        const auto date = parse_date(context.locale(), value.units(), current_year(context));
        if (date) {
            return *date;
        }
    }
    return checked_date(number_of(context, value));
}

}  // namespace vbscript
