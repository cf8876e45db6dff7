#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

#include "vbscript/value/operators.h"
#include "vbscript/value/value.h"

// The cases of the operators that the machine carries out by itself: whole numbers and doubles,
// where they stay what they are. Each tells whether it was one of them.
namespace vbscript {

// The value itself, or the variable that it refers to.
[[nodiscard]] inline Value& referred(Value& value) noexcept {
    return value.is_reference() ? value.variable() : value;
}

[[nodiscard]] inline const Value& referred(const Value& value) noexcept {
    return value.is_reference() ? value.variable() : value;
}

}  // namespace vbscript

namespace vbscript::fast {

[[nodiscard]] inline std::uint8_t distance(Type type, Type from) noexcept {
    return static_cast<std::uint8_t>(static_cast<std::uint8_t>(type) -
                                     static_cast<std::uint8_t>(from));
}

// Integer or Long.
[[nodiscard]] inline bool is_whole(const Value& value) noexcept {
    return distance(value.type(), Type::Integer) <= 1;
}

[[nodiscard]] inline bool are_whole(const Value& left, const Value& right) noexcept {
    return (distance(left.type(), Type::Integer) | distance(right.type(), Type::Integer)) <= 1;
}

// The wider one of Integer and Long.
[[nodiscard]] inline Type whole_type(Type left, Type right) noexcept {
    static_assert((static_cast<int>(Type::Integer) | static_cast<int>(Type::Long)) ==
                  static_cast<int>(Type::Long));
    return static_cast<Type>(static_cast<std::uint8_t>(left) | static_cast<std::uint8_t>(right));
}

[[nodiscard]] inline bool fits_integer(std::int32_t number) noexcept {
    return number == static_cast<std::int16_t>(number);
}

[[nodiscard]] inline bool has_double(const Value& left, const Value& right) noexcept {
    return left.is(Type::Double) || right.is(Type::Double);
}

// Integer, Long or Double as a double.
[[nodiscard]] inline bool real_of(const Value& value, double& real) noexcept {
    if (value.is(Type::Double)) {
        real = value.real();
        return true;
    }
    if (!is_whole(value)) {
        return false;
    }
    real = value.number();
    return true;
}

[[nodiscard]] inline bool reals_of(const Value& left, const Value& right, double& first,
                                   double& second) noexcept {
    return real_of(left, first) && real_of(right, second);
}

// Writes a number to a place that holds a number.
[[nodiscard]] inline bool put_whole(Value& target, Type type, std::int32_t number) noexcept {
    if (target.is_heavy()) {
        [[unlikely]] return false;
    }
    target.set_light(type == Type::Integer && !fits_integer(number) ? Type::Long : type, number);
    return true;
}

[[nodiscard]] inline bool put_real(Value& target, double number) noexcept {
    if (target.is_heavy() || !std::isfinite(number)) {
        [[unlikely]] return false;
    }
    target.set_light(Type::Double, number);
    return true;
}

[[nodiscard]] inline bool put_boolean(Value& target, bool truth) noexcept {
    if (target.is_heavy()) {
        [[unlikely]] return false;
    }
    target.set_light(Type::Boolean, truth ? -1 : 0);
    return true;
}

struct Add {
    static bool whole(std::int32_t left, std::int32_t right, std::int32_t& result) noexcept {
        return !__builtin_add_overflow(left, right, &result);
    }

    static double real(double left, double right) noexcept { return left + right; }
};

struct Subtract {
    static bool whole(std::int32_t left, std::int32_t right, std::int32_t& result) noexcept {
        return !__builtin_sub_overflow(left, right, &result);
    }

    static double real(double left, double right) noexcept { return left - right; }
};

struct Multiply {
    static bool whole(std::int32_t left, std::int32_t right, std::int32_t& result) noexcept {
        return !__builtin_mul_overflow(left, right, &result);
    }

    static double real(double left, double right) noexcept { return left * right; }
};

template <typename Operation>
[[nodiscard]] inline bool calculate(Value& target, const Value& left, const Value& right) noexcept {
    if (are_whole(left, right)) {
        std::int32_t result = 0;
        return Operation::whole(left.number(), right.number(), result) &&
               put_whole(target, whole_type(left.type(), right.type()), result);
    }
    double first = 0;
    double second = 0;
    return has_double(left, right) && reals_of(left, right, first, second) &&
           put_real(target, Operation::real(first, second));
}

template <typename Operation>
[[nodiscard]] inline bool calculate_number(Value& target, const Value& left,
                                           std::int16_t right) noexcept {
    if (is_whole(left)) {
        std::int32_t result = 0;
        return Operation::whole(left.number(), right, result) &&
               put_whole(target, left.type(), result);
    }
    return left.is(Type::Double) && put_real(target, Operation::real(left.real(), right));
}

[[nodiscard]] inline bool divide(Value& target, const Value& left, const Value& right) noexcept {
    double first = 0;
    double second = 0;
    return reals_of(left, right, first, second) && second != 0 && put_real(target, first / second);
}

// Whole numbers whose quotient cannot leave their type.
[[nodiscard]] inline bool are_divisible(const Value& left, const Value& right) noexcept {
    return are_whole(left, right) && right.number() != 0 && right.number() != -1;
}

[[nodiscard]] inline bool divide_whole(Value& target, const Value& left,
                                       const Value& right) noexcept {
    return are_divisible(left, right) &&
           put_whole(target, whole_type(left.type(), right.type()), left.number() / right.number());
}

[[nodiscard]] inline bool remainder(Value& target, const Value& left, const Value& right) noexcept {
    return are_divisible(left, right) &&
           put_whole(target, whole_type(left.type(), right.type()), left.number() % right.number());
}

[[nodiscard]] inline bool negate(Value& target, const Value& operand) noexcept {
    if (is_whole(operand)) {
        return operand.number() != std::numeric_limits<std::int32_t>::min() &&
               put_whole(target, operand.type(), -operand.number());
    }
    return operand.is(Type::Double) && put_real(target, -operand.real());
}

// Both Boolean, both Integer or both Long.
[[nodiscard]] inline bool are_bits(const Value& left, const Value& right) noexcept {
    return left.type() == right.type() && (left.is(Type::Boolean) || is_whole(left));
}

template <typename Operation>
[[nodiscard]] inline bool combine(Value& target, const Value& left, const Value& right) noexcept {
    if (!are_bits(left, right) || target.is_heavy()) {
        return false;
    }
    target.set_light(left.type(), Operation()(left.number(), right.number()));
    return true;
}

[[nodiscard]] inline bool invert(Value& target, const Value& operand) noexcept {
    if (!are_bits(operand, operand) || target.is_heavy()) {
        return false;
    }
    target.set_light(operand.type(), ~operand.number());
    return true;
}

template <Comparison comparison, typename Number>
[[nodiscard]] inline bool holds(Number left, Number right) noexcept {
    switch (comparison) {
        case Comparison::Equal:
            return left == right;
        case Comparison::NotEqual:
            return left != right;
        case Comparison::Less:
            return left < right;
        case Comparison::LessOrEqual:
            return left <= right;
        case Comparison::Greater:
            return left > right;
        case Comparison::GreaterOrEqual:
            return left >= right;
    }
    return false;
}

template <Comparison comparison>
[[nodiscard]] inline bool compare(const Value& left, const Value& right, bool& result) noexcept {
    if (are_whole(left, right)) {
        result = holds<comparison>(left.number(), right.number());
        return true;
    }
    double first = 0;
    double second = 0;
    if (reals_of(left, right, first, second)) {
        result = holds<comparison>(first, second);
        return true;
    }
    return false;
}

template <Comparison comparison>
[[nodiscard]] inline bool compare_number(const Value& left, std::int16_t right,
                                         bool& result) noexcept {
    if (is_whole(left)) {
        result = holds<comparison, std::int32_t>(left.number(), right);
        return true;
    }
    if (!left.is(Type::Double)) {
        return false;
    }
    result = holds<comparison, double>(left.real(), right);
    return true;
}

// The next round of a loop whose counter grows by 1; false for the last one as well.
[[nodiscard]] inline bool count_up(Value& counter, const Value& limit) noexcept {
    if (!are_whole(counter, limit) || counter.number() >= limit.number()) {
        return false;
    }
    const std::int32_t next = counter.number() + 1;
    counter.set_light(fits_integer(next) ? counter.type() : Type::Long, next);
    return true;
}

}  // namespace vbscript::fast
