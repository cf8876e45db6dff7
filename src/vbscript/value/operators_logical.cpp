#include <algorithm>
#include <optional>

#include "vbscript/value/convert.h"
#include "vbscript/value/operand.h"
#include "vbscript/value/operators.h"

namespace vbscript {
namespace {

// A truth value or a number whose bits are combined.
struct Bits {
    Type type = Type::Integer;  // Boolean, Byte, Integer or Long
    std::int32_t number = 0;
};

Bits bits_of(Context& context, const Value& value) {
    if (is_whole_number(value.type())) {
        return {value.type(), value.number()};
    }
    if (value.is(Type::Empty)) {
        return {};
    }
    if (value.is(Type::String)) {
        const std::u16string_view text = value.units();
        if (equals_ignoring_case(text, u"True")) {
            return {Type::Boolean, -1};
        }
        if (equals_ignoring_case(text, u"False")) {
            return {Type::Boolean, 0};
        }
    }
    return {Type::Long, to_long(context, value)};
}

Value value_of(Bits bits) {
    switch (bits.type) {
        case Type::Boolean:
            return Value(bits.number != 0);
        case Type::Byte:
            return Value(static_cast<std::uint8_t>(bits.number));
        case Type::Integer:
            return Value(static_cast<std::int16_t>(bits.number));
        default:
            return Value(bits.number);
    }
}

Type common_type(Type left, Type right) noexcept {
    return left == right ? left : std::max({left, right, Type::Integer});
}

// What an operator does with bits, and with Null on either side; Null where it tells nothing.
struct Rule {
    std::int32_t (*combine)(std::int32_t left, std::int32_t right);
    Value (*with_null_left)(Bits right);
    Value (*with_null_right)(Bits left);
};

Value always_null(Bits) {
    return Value(kNull);
}

// Nothing can become of a 0, whatever Null stands for.
Value zero_or_null(Bits bits) {
    return bits.number == 0 ? value_of(bits) : Value(kNull);
}

Value other_or_null(Bits bits) {
    return bits.number != 0 ? value_of(bits) : Value(kNull);
}

// What follows from a falsehood is true.
Value all_bits_or_null(Bits bits) {
    return bits.number == 0 ? value_of({bits.type, -1}) : Value(kNull);
}

Value apply(Context& context, const Rule& rule, const Value& left, const Value& right) {
    if (is_object(left, right)) {
        const Value plain_left = context.plain(left);
        const Value plain_right = context.plain(right);
        return apply(context, rule, plain_left, plain_right);
    }
    require_operands(left, right);
    if (left.is(Type::Null)) {
        return right.is(Type::Null) ? Value(kNull) : rule.with_null_left(bits_of(context, right));
    }
    if (right.is(Type::Null)) {
        return rule.with_null_right(bits_of(context, left));
    }
    const Bits one = bits_of(context, left);
    const Bits other = bits_of(context, right);
    return value_of({common_type(one.type, other.type), rule.combine(one.number, other.number)});
}

}  // namespace

Value logical_not(Context& context, const Value& operand) {
    if (operand.is(Type::Object)) {
        return logical_not(context, context.plain(operand));
    }
    require_operand(operand);
    if (operand.is(Type::Null)) {
        return Value(kNull);
    }
    const Bits bits = bits_of(context, operand);
    return value_of({bits.type, ~bits.number});
}

Value logical_and(Context& context, const Value& left, const Value& right) {
    constexpr Rule kRule{[](std::int32_t one, std::int32_t other) { return one & other; },
                         zero_or_null, zero_or_null};
    return apply(context, kRule, left, right);
}

Value logical_or(Context& context, const Value& left, const Value& right) {
    constexpr Rule kRule{[](std::int32_t one, std::int32_t other) { return one | other; },
                         other_or_null, other_or_null};
    return apply(context, kRule, left, right);
}

Value logical_xor(Context& context, const Value& left, const Value& right) {
    constexpr Rule kRule{[](std::int32_t one, std::int32_t other) { return one ^ other; },
                         always_null, always_null};
    return apply(context, kRule, left, right);
}

Value logical_eqv(Context& context, const Value& left, const Value& right) {
    constexpr Rule kRule{[](std::int32_t one, std::int32_t other) { return ~(one ^ other); },
                         always_null, always_null};
    return apply(context, kRule, left, right);
}

Value logical_imp(Context& context, const Value& left, const Value& right) {
    constexpr Rule kRule{[](std::int32_t one, std::int32_t other) { return ~one | other; },
                         other_or_null, all_bits_or_null};
    return apply(context, kRule, left, right);
}

}  // namespace vbscript
