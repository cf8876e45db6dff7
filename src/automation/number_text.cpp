#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "automation/convert.h"

namespace automation {
namespace {

// A number as 0 < digits < 10 with a decimal point behind the first one, times 10^exponent.
struct Decimal {
    std::string digits;  // without trailing zeros
    int exponent = 0;
};

template <typename Number>
Decimal decimal_of(Number magnitude, int significant_digits) {
    std::array<char, 48> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                   std::chars_format::scientific, significant_digits - 1)
                         .ptr;
    const std::string_view text(buffer.data(), end);
    const auto mark = text.find('e');

    Decimal decimal;
    for (const char character : text.substr(0, mark)) {
        if (character != '.') {
            decimal.digits.push_back(character);
        }
    }
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    const std::size_t exponent_begin = text[mark + 1] == '+' ? mark + 2 : mark + 1;
    std::from_chars(text.data() + exponent_begin, end, decimal.exponent);
    return decimal;
}

std::string scientific_text(const Decimal& decimal) {
    std::string text = decimal.digits;
    if (text.size() > 1) {
        text.insert(1, ".");
    }
    text += decimal.exponent < 0 ? "E-" : "E+";
    const std::string exponent = std::to_string(std::abs(decimal.exponent));
    return text + (exponent.size() < 2 ? "0" : "") + exponent;
}

std::string fixed_text(const Decimal& decimal) {
    if (decimal.exponent < 0) {
        return "0." + std::string(static_cast<std::size_t>(-decimal.exponent - 1), '0') +
               decimal.digits;
    }
    std::string text = decimal.digits;
    const auto whole_digits = static_cast<std::size_t>(decimal.exponent) + 1;
    if (text.size() <= whole_digits) {
        return text.append(whole_digits - text.size(), '0');
    }
    return text.insert(whole_digits, ".");
}

std::string text_of_not_finite(bool is_nan, bool is_negative) {
    if (is_nan) {
        return "-1.#IND";
    }
    return is_negative ? "-1.#INF" : "1.#INF";
}

template <typename Number>
std::string number_text(Number value, int significant_digits) {
    if (!std::isfinite(value)) {
        return text_of_not_finite(std::isnan(value), value < 0);
    }
    if (value == 0) {
        return "0";
    }
    const Decimal decimal = decimal_of(std::abs(value), significant_digits);
    const int places = static_cast<int>(decimal.digits.size()) - 1 - decimal.exponent;
    const bool is_fixed = decimal.exponent < significant_digits && places <= significant_digits;
    return (value < 0 ? "-" : "") + (is_fixed ? fixed_text(decimal) : scientific_text(decimal));
}

}  // namespace

std::string text_of(bool value) {
    return value ? "True" : "False";
}

std::string text_of(float value) {
    return number_text(value, 7);
}

std::string text_of(double value) {
    return number_text(value, 15);
}

std::string text_of(Currency value) {
    constexpr std::uint64_t kUnits = 10000;
    const bool is_negative = value.units < 0;
    const auto units = static_cast<std::uint64_t>(value.units);
    const std::uint64_t magnitude = is_negative ? 0 - units : units;

    std::string text = (is_negative ? "-" : "") + std::to_string(magnitude / kUnits);
    const std::uint64_t fraction = magnitude % kUnits;
    if (fraction != 0) {
        const std::string places = std::to_string(kUnits + fraction).substr(1);
        text += "." + places.substr(0, places.find_last_not_of('0') + 1);
    }
    return text;
}

std::string text_of(Date value) {
    return general_date(date_time_of(value));
}

}  // namespace automation
