#include <algorithm>
#include <cmath>
#include <limits>

#include "vbscript/value/convert.h"
#include "vbscript/value/date_parts.h"
#include "vbscript/value/operand.h"
#include "vbscript/value/operators.h"

namespace vbscript {
namespace {

__extension__ using Wide = __int128;

enum class Operation : std::uint8_t { Add, Subtract, Multiply };

// The sub-type that an operand counts in: the order of sub-types is that of their precision.
Type counting_type(const Value& value) noexcept {
    switch (value.type()) {
        case Type::Empty:
        case Type::Boolean:
            return Type::Integer;
        case Type::String:
            return Type::Double;
        default:
            return value.type();
    }
}

bool is_pair(Type one, Type other, Type left, Type right) noexcept {
    return (one == left && other == right) || (one == right && other == left);
}

Type sum_type(Type left, Type right) noexcept {
    if (is_pair(Type::Single, Type::Long, left, right)) {
        return Type::Double;
    }
    return std::max(left, right);
}

Type difference_type(Type left, Type right) noexcept {
    if (left == Type::Date && right == Type::Date) {
        return Type::Double;
    }
    return sum_type(left, right);
}

// A product with a fraction of its own is no longer an amount or a day.
Type product_type(Type left, Type right) noexcept {
    const bool has_fraction = left == Type::Single || left == Type::Double ||
                              right == Type::Single || right == Type::Double;
    const Type type = sum_type(left, right);
    if (type == Type::Date || (type == Type::Currency && has_fraction)) {
        return Type::Double;
    }
    return type;
}

template <typename Number>
Number calculate(Operation operation, Number left, Number right) noexcept {
    switch (operation) {
        case Operation::Add:
            return left + right;
        case Operation::Subtract:
            return left - right;
        case Operation::Multiply:
            break;
    }
    return left * right;
}

template <typename Number>
bool fits(std::int64_t number) noexcept {
    return number >= std::numeric_limits<Number>::min() &&
           number <= std::numeric_limits<Number>::max();
}

// In `type`, or the next wider sub-type that holds the number.
Value whole_value(Type type, std::int64_t number) {
    if (type == Type::Byte && fits<std::uint8_t>(number)) {
        return Value(static_cast<std::uint8_t>(number));
    }
    if (type <= Type::Integer && fits<std::int16_t>(number)) {
        return Value(static_cast<std::int16_t>(number));
    }
    if (fits<std::int32_t>(number)) {
        return Value(static_cast<std::int32_t>(number));
    }
    return Value(static_cast<double>(number));
}

Value double_value(double number) {
    if (!std::isfinite(number)) {
        throw ScriptError(ErrorNumber::Overflow);
    }
    return Value(number);
}

Value single_value(Operation operation, double left, double right) {
    const float single = calculate(operation, static_cast<float>(left), static_cast<float>(right));
    if (std::isfinite(single)) {
        return Value(single);
    }
    return Value(calculate(operation, left, right));
}

Value date_value(double days) {
    const Date date{days};
    return is_in_calendar(date) ? Value(date) : double_value(days);
}

// Of ten-thousandths of ten-thousandths, to the nearest, ties to even.
Wide rounded_units(Wide product) noexcept {
    constexpr Wide kUnits = 10000;
    const Wide quotient = product / kUnits;
    const Wide rest = product % kUnits;
    const Wide twice = (rest < 0 ? -rest : rest) * 2;
    const bool is_away = twice > kUnits || (twice == kUnits && quotient % 2 != 0);
    if (!is_away) {
        return quotient;
    }
    return product < 0 ? quotient - 1 : quotient + 1;
}

Value currency_value(Operation operation, Currency left, Currency right) {
    Wide units = calculate(operation, Wide{left.units}, Wide{right.units});
    if (operation == Operation::Multiply) {
        units = rounded_units(units);
    }
    if (units < std::numeric_limits<std::int64_t>::min() ||
        units > std::numeric_limits<std::int64_t>::max()) {
        throw ScriptError(ErrorNumber::Overflow);
    }
    return Value(Currency{static_cast<std::int64_t>(units)});
}

Value calculate_as(Context& context, Operation operation, Type type, const Value& left,
                   const Value& right) {
    switch (type) {
        case Type::Byte:
        case Type::Integer:
        case Type::Long:
            return whole_value(type, calculate(operation, std::int64_t{whole_number(left)},
                                               std::int64_t{whole_number(right)}));
        case Type::Single:
            return single_value(operation, to_double(context, left), to_double(context, right));
        case Type::Currency:
            return currency_value(operation, to_currency(context, left),
                                  to_currency(context, right));
        case Type::Date:
            return date_value(
                calculate(operation, to_double(context, left), to_double(context, right)));
        default:
            return double_value(
                calculate(operation, to_double(context, left), to_double(context, right)));
    }
}

// The sub-type of a whole division: the wider of both, where everything with a fraction and every
// text is a Long.
Type whole_type(const Value& left, const Value& right) noexcept {
    const Type type = std::max(counting_type(left), counting_type(right));
    return std::min(type, Type::Long);
}

// Throws: ScriptError 11.
std::int32_t divisor_of(Context& context, const Value& value) {
    const std::int32_t divisor = to_long(context, value);
    if (divisor == 0) {
        throw ScriptError(ErrorNumber::DivisionByZero);
    }
    return divisor;
}

bool is_single_quotient(const Value& left, const Value& right) noexcept {
    return std::max(counting_type(left), counting_type(right)) == Type::Single &&
           counting_type(left) != Type::Long && counting_type(right) != Type::Long;
}

}  // namespace

Value add(Context& context, const Value& left, const Value& right) {
    if (left.is(Type::String) && right.is(Type::String)) {
        return concatenate(context, left, right);
    }
    if (is_object(left, right)) {
        return on_plain(context, left, right, add);
    }
    require_operands(left, right);
    if (is_null(left, right)) {
        return Value(kNull);
    }
    if (left.is(Type::Empty)) {
        return right.is(Type::Empty) ? Value(std::int16_t{0}) : right;
    }
    if (right.is(Type::Empty)) {
        return left;
    }
    return calculate_as(context, Operation::Add,
                        sum_type(counting_type(left), counting_type(right)), left, right);
}

Value subtract(Context& context, const Value& left, const Value& right) {
    if (is_object(left, right)) {
        return on_plain(context, left, right, subtract);
    }
    require_operands(left, right);
    if (is_null(left, right)) {
        return Value(kNull);
    }
    return calculate_as(context, Operation::Subtract,
                        difference_type(counting_type(left), counting_type(right)), left, right);
}

Value multiply(Context& context, const Value& left, const Value& right) {
    if (is_object(left, right)) {
        return on_plain(context, left, right, multiply);
    }
    require_operands(left, right);
    if (is_null(left, right)) {
        return Value(kNull);
    }
    return calculate_as(context, Operation::Multiply,
                        product_type(counting_type(left), counting_type(right)), left, right);
}

Value divide(Context& context, const Value& left, const Value& right) {
    if (is_object(left, right)) {
        return on_plain(context, left, right, divide);
    }
    require_operands(left, right);
    if (is_null(left, right)) {
        return Value(kNull);
    }
    const double dividend = to_double(context, left);
    const double divisor = to_double(context, right);
    if (divisor == 0) {
        throw ScriptError(dividend == 0 ? ErrorNumber::Overflow : ErrorNumber::DivisionByZero);
    }
    if (!is_single_quotient(left, right)) {
        return double_value(dividend / divisor);
    }
    const auto quotient = static_cast<float>(dividend / divisor);
    if (!std::isfinite(quotient)) {
        throw ScriptError(ErrorNumber::Overflow);
    }
    return Value(quotient);
}

Value divide_whole(Context& context, const Value& left, const Value& right) {
    if (is_object(left, right)) {
        return on_plain(context, left, right, divide_whole);
    }
    require_operands(left, right);
    if (is_null(left, right)) {
        return Value(kNull);
    }
    const std::int64_t dividend = to_long(context, left);
    const std::int64_t quotient = dividend / divisor_of(context, right);
    if (!fits<std::int32_t>(quotient)) {
        throw ScriptError(ErrorNumber::Overflow);
    }
    return whole_value(whole_type(left, right), quotient);
}

Value remainder(Context& context, const Value& left, const Value& right) {
    if (is_object(left, right)) {
        return on_plain(context, left, right, remainder);
    }
    require_operands(left, right);
    if (is_null(left, right)) {
        return Value(kNull);
    }
    const std::int64_t dividend = to_long(context, left);
    return whole_value(whole_type(left, right), dividend % divisor_of(context, right));
}

Value power(Context& context, const Value& left, const Value& right) {
    if (is_object(left, right)) {
        return on_plain(context, left, right, power);
    }
    require_operands(left, right);
    if (is_null(left, right)) {
        return Value(kNull);
    }
    const double base = to_double(context, left);
    const double exponent = to_double(context, right);
    const bool is_fraction = std::trunc(exponent) != exponent;
    if ((base < 0 && is_fraction) || (base == 0 && exponent < 0)) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    return double_value(std::pow(base, exponent));
}

Value negate(Context& context, const Value& operand) {
    if (operand.is(Type::Object)) {
        return negate(context, context.plain(operand));
    }
    require_operand(operand);
    if (operand.is(Type::Null)) {
        return Value(kNull);
    }
    const Value zero(std::int16_t{0});
    const Type type = std::max(counting_type(operand), counting_type(zero));
    return calculate_as(context, Operation::Subtract, type, zero, operand);
}

Value plus(Context& context, const Value& operand) {
    if (operand.is(Type::Object)) {
        return context.plain(operand);
    }
    require_operand(operand);
    return operand;
}

}  // namespace vbscript
