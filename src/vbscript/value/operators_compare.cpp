#include <compare>

#include "vbscript/value/convert.h"
#include "vbscript/value/operand.h"
#include "vbscript/value/operators.h"

namespace vbscript {
namespace {

using Order = std::partial_ordering;

enum class Kind : std::uint8_t { Empty, Number, Text };

Kind kind_of(const Value& value) noexcept {
    if (value.is(Type::Empty)) {
        return Kind::Empty;
    }
    return value.is(Type::String) ? Kind::Text : Kind::Number;
}

bool holds(Comparison comparison, Order order) noexcept {
    switch (comparison) {
        case Comparison::Equal:
            return order == 0;
        case Comparison::NotEqual:
            return order != 0;
        case Comparison::Less:
            return order < 0;
        case Comparison::LessOrEqual:
            return order <= 0;
        case Comparison::Greater:
            return order > 0;
        case Comparison::GreaterOrEqual:
            break;
    }
    return order >= 0;
}

Order order_of_texts(const Value& left, const Value& right) noexcept {
    const Order order = left.units() <=> right.units();
    return order == 0 ? Order(left.text().byte_size() <=> right.text().byte_size()) : order;
}

Order order_of_numbers(Context& context, const Value& left, const Value& right) {
    if (is_whole_number(left.type()) && is_whole_number(right.type())) {
        return left.number() <=> right.number();
    }
    const bool is_amount = left.is(Type::Currency) || right.is(Type::Currency);
    const bool is_exact = (left.is(Type::Currency) || is_whole_number(left.type())) &&
                          (right.is(Type::Currency) || is_whole_number(right.type()));
    if (is_amount && is_exact) {
        return to_currency(context, left).units <=> to_currency(context, right).units;
    }
    return to_double(context, left) <=> to_double(context, right);
}

Order order_of_empty_and(Context& context, const Value& other) {
    switch (kind_of(other)) {
        case Kind::Text:
            return std::size_t{0} <=> other.text().byte_size();
        case Kind::Number:
            return 0.0 <=> to_double(context, other);
        case Kind::Empty:
            break;
    }
    return Order::equivalent;
}

Order order_of(Context& context, const Value& left, const Value& right) {
    const Kind left_kind = kind_of(left);
    const Kind right_kind = kind_of(right);
    if (left_kind == Kind::Empty) {
        return order_of_empty_and(context, right);
    }
    if (right_kind == Kind::Empty) {
        return 0 <=> order_of_empty_and(context, left);
    }
    if (left_kind != right_kind) {
        return left_kind == Kind::Number ? Order::less : Order::greater;
    }
    if (left_kind == Kind::Text) {
        return order_of_texts(left, right);
    }
    return order_of_numbers(context, left, right);
}

bool is_number_with_text(const Value& left, const Value& right) noexcept {
    const Kind left_kind = kind_of(left);
    const Kind right_kind = kind_of(right);
    return left_kind != right_kind && left_kind != Kind::Empty && right_kind != Kind::Empty;
}

}  // namespace

Value compare(Context& context, Comparison comparison, const Value& left, const Value& right) {
    if (left.is(Type::String) && right.is(Type::String)) {
        return Value(holds(comparison, order_of_texts(left, right)));
    }
    if (is_object(left, right)) {
        const Value plain_left = context.plain(left);
        const Value plain_right = context.plain(right);
        return compare(context, comparison, plain_left, plain_right);
    }
    require_operands(left, right);
    if (is_null(left, right)) {
        return Value(kNull);
    }
    return Value(holds(comparison, order_of(context, left, right)));
}

Value compare_with_literals(Context& context, Comparison comparison, const Value& left,
                            const Value& right, Literals literals) {
    if (is_object(left, right)) {
        const Value plain_left = context.plain(left);
        const Value plain_right = context.plain(right);
        return compare_with_literals(context, comparison, plain_left, plain_right, literals);
    }
    require_operands(left, right);
    if (is_null(left, right) || !is_number_with_text(left, right)) {
        return compare(context, comparison, left, right);
    }
    const Value& literal = literals == Literals::Right ? right : left;
    if (literals != Literals::Both && literal.is(Type::String)) {
        return compare(context, comparison, Value(to_text(context, left)),
                       Value(to_text(context, right)));
    }
    return Value(holds(comparison, to_double(context, left) <=> to_double(context, right)));
}

bool is_same_object(const Value& left, const Value& right) {
    if (!left.is(Type::Object) || !right.is(Type::Object)) {
        throw ScriptError(ErrorNumber::ObjectRequired);
    }
    return left.object() == right.object();
}

}  // namespace vbscript
