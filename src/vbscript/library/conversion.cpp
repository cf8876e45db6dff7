#include "vbscript/library/conversion.h"

#include <array>
#include <charconv>
#include <cmath>

#include "vbscript/library/text_arguments.h"
#include "vbscript/value/operators.h"

namespace vbscript {
namespace {

template <auto convert>
Value converted(Context& context, Arguments arguments) {
    return Value(convert(context, arguments[0]));
}

// The bits of a number: a sub-type of 16 bits has at most four digits of base 16.
std::uint32_t bits_of(Context& context, const Value& value) {
    constexpr std::uint32_t kInteger = 0xFFFF;
    const auto bits = static_cast<std::uint32_t>(to_long(context, value));
    const bool is_integer = value.is(Type::Integer) || value.is(Type::Boolean);
    return is_integer ? bits & kInteger : bits;
}

template <int base>
Value digits_of_base(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    if (value.is(Type::Null)) {
        return Value(kNull);
    }
    std::array<char, 16> digits{};
    const char* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), bits_of(context, value), base)
            .ptr;
    std::u16string text;
    for (const char* digit = digits.data(); digit != end; ++digit) {
        text.push_back(to_upper(static_cast<char16_t>(*digit)));
    }
    return Value(std::move(text));
}

// Ten-thousandths without the fraction of the whole they make.
Currency whole_currency(Currency amount, double (*to_whole)(double)) {
    constexpr std::int64_t kUnits = 10000;
    const std::int64_t fraction = amount.units % kUnits;
    const std::int64_t toward_zero = amount.units - fraction;
    const bool is_below = fraction < 0 && to_whole(-0.5) < 0;
    if (!is_below) {
        return {toward_zero};
    }
    std::int64_t below = 0;
    if (__builtin_sub_overflow(toward_zero, kUnits, &below)) {
        throw ScriptError(ErrorNumber::Overflow);
    }
    return {below};
}

// The sub-type stays; a text becomes a Double, a truth value or Empty an Integer.
template <double (*to_whole)(double)>
Value without_fraction(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    switch (value.type()) {
        case Type::Null:
        case Type::Byte:
        case Type::Integer:
        case Type::Long:
            return value;
        case Type::Empty:
        case Type::Boolean:
            return Value(to_integer(context, value));
        case Type::Single:
            return Value(static_cast<float>(to_whole(value.real())));
        case Type::Currency:
            return Value(whole_currency(value.currency(), to_whole));
        case Type::Date:
            return Value(Date{to_whole(value.real())});
        default:
            return Value(to_whole(to_double(context, value)));
    }
}

double toward_zero(double number) {
    return std::trunc(number);
}

double downward(double number) {
    return std::floor(number);
}

constexpr auto kFunctions = std::to_array<LibraryFunction>({
    {u"CBool", 1, 1, converted<to_boolean>},
    {u"CByte", 1, 1, converted<to_byte>},
    {u"CInt", 1, 1, converted<to_integer>},
    {u"CLng", 1, 1, converted<to_long>},
    {u"CSng", 1, 1, converted<to_single>},
    {u"CDbl", 1, 1, converted<to_double>},
    {u"CCur", 1, 1, converted<to_currency>},
    {u"CDate", 1, 1, converted<to_date>},
    {u"CStr", 1, 1, converted<to_text>},
    {u"Hex", 1, 1, digits_of_base<16>},
    {u"Oct", 1, 1, digits_of_base<8>},
    {u"Fix", 1, 1, without_fraction<toward_zero>},
    {u"Int", 1, 1, without_fraction<downward>},
});

}  // namespace

std::span<const LibraryFunction> conversion_functions() {
    return kFunctions;
}

}  // namespace vbscript
