#include <array>
#include <charconv>
#include <cmath>

#include "automation/convert.h"
#include "vbscript/value/context.h"
#include "vbscript/value/convert.h"
#include "vbscript/value/date_parts.h"
#include "vbscript/value/locale.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

constexpr std::u16string_view kTrue = u"True";
constexpr std::u16string_view kFalse = u"False";

std::u16string widened(std::string_view text, char16_t decimal_mark) {
    std::u16string units(text.begin(), text.end());
    if (decimal_mark != u'.') {
        const std::size_t mark = units.find(u'.');
        if (mark != std::u16string::npos) {
            units[mark] = decimal_mark;
        }
    }
    return units;
}

std::u16string text_of_whole(std::int64_t number) {
    std::array<char, 24> digits{};
    char* const begin = digits.data();
    return std::u16string(begin, std::to_chars(begin, begin + digits.size(), number).ptr);
}

bool is_whole_of_few_digits(double value, double limit) noexcept {
    return std::abs(value) < limit && std::trunc(value) == value;
}

}  // namespace

std::u16string text_of_double(const Locale& locale, double value) {
    constexpr double kLimit = 1e15;
    if (is_whole_of_few_digits(value, kLimit)) {
        return text_of_whole(static_cast<std::int64_t>(value));
    }
    return widened(automation::text_of(value), locale.decimal_mark);
}

std::u16string text_of_single(const Locale& locale, float value) {
    constexpr double kLimit = 1e7;
    if (is_whole_of_few_digits(value, kLimit)) {
        return text_of_whole(static_cast<std::int64_t>(value));
    }
    return widened(automation::text_of(value), locale.decimal_mark);
}

std::u16string text_of_currency(const Locale& locale, Currency value) {
    return widened(automation::text_of(automation::Currency{value.units}), locale.decimal_mark);
}

std::u16string to_units(Context& context, const Value& value) {
    const Locale& locale = context.locale();
    switch (value.type()) {
        case Type::Empty:
            return {};
        case Type::Null:
            throw ScriptError(ErrorNumber::InvalidUseOfNull);
        case Type::Boolean:
            return std::u16string(value.boolean() ? kTrue : kFalse);
        case Type::Byte:
        case Type::Integer:
        case Type::Long:
            return text_of_whole(value.number());
        case Type::Single:
            return text_of_single(locale, static_cast<float>(value.real()));
        case Type::Double:
            return text_of_double(locale, value.real());
        case Type::Currency:
            return text_of_currency(locale, value.currency());
        case Type::Date:
            return text_of_date(locale, Date{value.real()});
        case Type::Error:
            return u"Error " + text_of_whole(value.number());
        case Type::String:
            return std::u16string(value.units());
        case Type::Object:
            return to_units(context, context.plain(value));
        case Type::Array:
            break;
    }
    throw ScriptError(ErrorNumber::TypeMismatch);
}

Ref<String> to_text(Context& context, const Value& value) {
    if (value.is(Type::String)) {
        return Ref<String>(&value.text());
    }
    if (value.is(Type::Object)) {
        return to_text(context, context.plain(value));
    }
    return make<String>(to_units(context, value));
}

}  // namespace vbscript
