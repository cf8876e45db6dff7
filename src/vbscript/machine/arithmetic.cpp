#include <string>
#include <utility>

#include "vbscript/machine/fast_values.h"
#include "vbscript/machine/machine.h"
#include "vbscript/value/convert.h"

namespace vbscript {

namespace {

bool is_null(const Value& value) noexcept {
    return value.is(Type::Null);
}

}  // namespace

Value Machine::same_object(Context& /*context*/, const Value& left, const Value& right) {
    return Value(is_same_object(left, right));
}

void Machine::operate(Operator operation, Value* target, Value* left, Value* right) {
    Value result = operation(context_, referred(*left), referred(*right));
    consume(left);
    consume(right);
    put(target, std::move(result));
}

void Machine::operate(UnaryOperator operation, Value* target, Value* operand) {
    Value result = operation(context_, referred(*operand));
    consume(operand);
    put(target, std::move(result));
}

void Machine::operate_number(Operator operation, Value* target, Value* left, std::int16_t number) {
    Value result = operation(context_, referred(*left), Value(number));
    consume(left);
    put(target, std::move(result));
}

Value Machine::compared(Comparison comparison, const Value* left, const Value* right) {
    const Code& code = *top_->code;
    const bool is_left = code.is_literal(left);
    const bool is_right = code.is_literal(right);
    const Value& first = referred(*left);
    const Value& second = referred(*right);
    if (!is_left && !is_right) {
        return compare(context_, comparison, first, second);
    }
    const Literals literals = is_left && is_right ? Literals::Both
                              : is_left           ? Literals::Left
                                                  : Literals::Right;
    return compare_with_literals(context_, comparison, first, second, literals);
}

bool Machine::holds(Comparison comparison, Value* left, Value* right) {
    const Value result = compared(comparison, left, right);
    consume(left);
    consume(right);
    return result.is(Type::Boolean) && result.boolean();
}

bool Machine::is_case(Value* subject, Value* candidate) {
    const Value result =
        compare(context_, Comparison::Equal, referred(*subject), referred(*candidate));
    consume(subject);
    consume(candidate);
    return result.is(Type::Boolean) && result.boolean();
}

bool Machine::holds_number(Comparison comparison, Value* left, std::int16_t number) {
    const Literals literals = top_->code->is_literal(left) ? Literals::Both : Literals::Right;
    const Value result =
        compare_with_literals(context_, comparison, referred(*left), Value(number), literals);
    consume(left);
    return result.is(Type::Boolean) && result.boolean();
}

void Machine::compare_into(Comparison comparison, Value* target, Value* left, Value* right) {
    Value result = compared(comparison, left, right);
    consume(left);
    consume(right);
    put(target, std::move(result));
}

bool Machine::is_true(Value* place) {
    const Value& value = referred(*place);
    const bool truth = !is_null(value) && to_boolean(context_, value);
    consume(place);
    return truth;
}

void Machine::concatenate_two(Value* target, Value* left, Value* right) {
    const Value& first = referred(*left);
    const Value& second = referred(*right);
    if (!first.is(Type::String) || !second.is(Type::String)) {
        operate(&concatenate, target, left, right);
        return;
    }
    const bool fits = first.units().size() + second.units().size() <= String::kMaximumUnits;
    if (!fits || first.text().has_half_unit()) {
        operate(&concatenate, target, left, right);
        return;
    }
    Value result = is_temporary(left) && append_in_place(*left, second)
                       ? std::move(*left)
                       : Value(make<String>(first.units(), second.units()));
    consume(left);
    consume(right);
    put(target, std::move(result));
}

// Null only if all of them are.
Value Machine::joined(Value first, Value* part, const Value* end) {
    bool is_own = false;
    for (; part != end; ++part) {
        if (!is_own || !append_in_place(first, *part)) {
            first = concatenate(context_, first, *part);
            is_own = true;
        }
        consume(part);
    }
    return first;
}

void Machine::concatenate_many(Value* target, Value* window, int count) {
    put(target, joined(std::move(*window), window + 1, window + count));
}

// Whether the text could take more: no other value shares it.
bool Machine::append_in_place(Value& target, const Value& source) {
    if (!target.is(Type::String) || target.text().is_shared() || target.text().has_half_unit()) {
        return false;
    }
    if (source.is(Type::String)) {
        if (&source.text() == &target.text() || source.text().has_half_unit()) {
            return false;
        }
        target.text().append(source.units());
        return true;
    }
    if (!fast::is_whole(source)) {
        return false;
    }
    char16_t digits[12];
    char16_t* first = digits + std::size(digits);
    const std::int32_t number = source.number();
    std::uint32_t rest =
        number < 0 ? 0U - static_cast<std::uint32_t>(number) : static_cast<std::uint32_t>(number);
    do {
        *--first = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    if (number < 0) {
        *--first = u'-';
    }
    target.text().append({first, static_cast<std::size_t>(digits + std::size(digits) - first)});
    return true;
}

void Machine::append(Value* target, Value* source) {
    Value& variable = referred(*target);
    if (append_in_place(variable, referred(*source))) {
        consume(source);
        return;
    }
    Value result = concatenate(context_, variable, referred(*source));
    consume(source);
    put(target, std::move(result));
}

// `target & a & b`, or `kept & a & b` if the target is no longer what was kept of it.
void Machine::append_many(Value* target, Value* window, int count, bool keeps_first) {
    Value& variable = referred(*target);
    Value* const end = window + count;
    Value* part = window;
    if (keeps_first) {
        const bool is_same = variable.is(Type::String) && window->is(Type::String) &&
                             &variable.text() == &window->text();
        if (!is_same) {
            concatenate_many(target, window, count);
            return;
        }
        consume(part++);
    }
    // A part that is the variable's own text makes it shared: then a new text is built.
    if (!variable.is(Type::String) || variable.text().is_shared()) {
        put(target, joined(variable, part, end));
        return;
    }
    for (; part != end; ++part) {
        if (!append_in_place(variable, *part)) {
            put(&variable, concatenate(context_, variable, *part));
        }
        consume(part);
    }
}

}  // namespace vbscript
