#include "vbscript/library/maths.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "vbscript/library/text_arguments.h"
#include "vbscript/value/operators.h"
#include "vbscript/value/random.h"

namespace vbscript {
namespace {

[[noreturn]] void throw_invalid_call() {
    throw ScriptError(ErrorNumber::InvalidProcedureCall);
}

template <double (*function)(double)>
Value of_double(Context& context, Arguments arguments) {
    const double result = function(to_double(context, arguments[0]));
    if (!std::isfinite(result)) {
        throw ScriptError(ErrorNumber::Overflow);
    }
    return Value(result);
}

double arc_tangent(double number) {
    return std::atan(number);
}

double cosine(double number) {
    return std::cos(number);
}

double exponential(double number) {
    return std::exp(number);
}

double sine(double number) {
    return std::sin(number);
}

double tangent(double number) {
    return std::tan(number);
}

double natural_logarithm(double number) {
    if (number <= 0) {
        throw_invalid_call();
    }
    return std::log(number);
}

double square_root(double number) {
    if (number < 0) {
        throw_invalid_call();
    }
    return std::sqrt(number);
}

bool is_negative(Context& context, const Value& value) {
    if (value.is(Type::Currency)) {
        return value.currency().units < 0;
    }
    return to_double(context, value) < 0;
}

// A number as itself, in the sub-type that arithmetic gives it.
Value as_number(Context& context, const Value& value) {
    switch (value.type()) {
        case Type::Empty:
        case Type::Boolean:
            return Value(to_integer(context, value));
        case Type::String:
            return Value(to_double(context, value));
        default:
            return value;
    }
}

Value absolute(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    if (value.is(Type::Null)) {
        return Value(kNull);
    }
    if (is_negative(context, value)) {
        return negate(context, value);
    }
    return as_number(context, value);
}

Value sign(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    if (value.is(Type::Null)) {
        return Value(kNull);
    }
    const double number = to_double(context, value);
    return Value(static_cast<std::int16_t>((number > 0) - (number < 0)));
}

double rounded(double number, int places) {
    const double scale = std::pow(10.0, places);
    const double scaled = number * scale;
    return std::isfinite(scaled) ? round_half_even(scaled) / scale : number;
}

Currency rounded(Currency amount, int places) {
    constexpr int kPlaces = 4;
    if (places >= kPlaces) {
        return amount;
    }
    std::int64_t unit = 1;
    for (int place = places; place < kPlaces; ++place) {
        unit *= 10;
    }
    const std::int64_t rest = amount.units % unit;
    const std::int64_t whole = amount.units / unit;
    const std::int64_t twice = std::abs(rest) * 2;
    const bool is_away = twice > unit || (twice == unit && whole % 2 != 0);
    const std::int64_t step = amount.units < 0 ? -unit : unit;
    std::int64_t result = amount.units - rest;
    if (is_away && __builtin_add_overflow(result, step, &result)) {
        throw ScriptError(ErrorNumber::Overflow);
    }
    return {result};
}

Value round(Context& context, Arguments arguments) {
    constexpr std::int32_t kMostPlaces = 22;
    const std::int32_t places = long_or(context, arguments, 1, 0);
    if (places < 0 || places > kMostPlaces) {
        throw_invalid_call();
    }
    const Value value = as_number(context, plain_argument(context, arguments, 0));
    switch (value.type()) {
        case Type::Null:
        case Type::Byte:
        case Type::Integer:
        case Type::Long:
            return value;
        case Type::Single:
            return Value(static_cast<float>(rounded(value.real(), places)));
        case Type::Currency:
            return Value(rounded(value.currency(), places));
        default:
            return Value(rounded(to_double(context, value), places));
    }
}

Value random(Context& context, Arguments arguments) {
    RandomSequence& sequence = context.random();
    if (!is_given(arguments, 0)) {
        return Value(sequence.next());
    }
    const float number = to_single(context, arguments[0]);
    if (number < 0) {
        return Value(sequence.restart(number));
    }
    return Value(number == 0 ? sequence.last() : sequence.next());
}

// Without a number the time of day seeds the sequence.
Value randomize(Context& context, Arguments arguments) {
    constexpr double kSecondsPerDay = 86400;
    if (is_given(arguments, 0)) {
        context.random().randomize(to_double(context, arguments[0]));
        return {};
    }
    const double days = context.now().days;
    context.random().randomize((days - std::floor(days)) * kSecondsPerDay);
    return {};
}

// Parts above 255 count as 255.
Value colour(Context& context, Arguments arguments) {
    constexpr std::int32_t kMost = 255;
    std::int32_t number = 0;
    for (std::size_t index = arguments.size(); index-- > 0;) {
        const std::int32_t part = to_integer(context, arguments[index]);
        if (part < 0) {
            throw_invalid_call();
        }
        number = number * (kMost + 1) + std::min(part, kMost);
    }
    return Value(number);
}

constexpr auto kFunctions = std::to_array<LibraryFunction>({
    {u"Abs", 1, 1, absolute},
    {u"Atn", 1, 1, of_double<arc_tangent>},
    {u"Cos", 1, 1, of_double<cosine>},
    {u"Exp", 1, 1, of_double<exponential>},
    {u"Log", 1, 1, of_double<natural_logarithm>},
    {u"Randomize", 0, 1, randomize},
    {u"RGB", 3, 3, colour},
    {u"Rnd", 0, 1, random},
    {u"Round", 1, 2, round},
    {u"Sgn", 1, 1, sign},
    {u"Sin", 1, 1, of_double<sine>},
    {u"Sqr", 1, 1, of_double<square_root>},
    {u"Tan", 1, 1, of_double<tangent>},
});

}  // namespace

std::span<const LibraryFunction> maths_functions() {
    return kFunctions;
}

}  // namespace vbscript
