#include <utility>

#include "vbscript/machine/machine.h"
#include "vbscript/value/array.h"

// How values get from place to place. A place that is written to gets its new value before the old
// one ends, since that may run script which reads the place.

namespace vbscript {

void Machine::unlock(Value* lock) noexcept {
    if (lock->type() != Value::kLockedArray) {
        return;
    }
    if (lock->type() != Value::kLockedArray) {
        return;
    }
    Array& array = lock->array();
    lock->set_number(Type::Empty, 0);
    array.unlock();
    array.release();
}

// The value of a place; out of a temporary it is moved.
Value Machine::taken(Value* place) {
    if (place->is_reference()) {
        Value copy(place->variable());
        consume(place);
        return copy;
    }
    if (!place->is_heavy() || !is_temporary(place)) {
        return *place;
    }
    return std::move(*place);
}

void Machine::put(Value* place, Value value) noexcept {
    Value& target = place->is_reference() ? place->variable() : *place;
    target.swap(value);
}

// A copy as another variable or a parameter by value gets it: fixed arrays become dynamic.
Value Machine::copy_of(const Value& value) {
    if (value.is(Type::Array) && value.array().is_fixed()) {
        return Value(value.array().copy());
    }
    return value;
}

// What an assignment without `Set` stores.
Value Machine::let_form(Value value) {
    if (value.is(Type::Object)) {
        return context_.plain(value);
    }
    if (value.is(Type::Array) && value.array().is_fixed()) {
        return Value(value.array().copy());
    }
    return value;
}

void Machine::put_result(Value* place, Value value, ResultUse use) {
    if (use == ResultUse::Nothing) {
        return;
    }
    put(place, use == ResultUse::Let ? let_form(std::move(value)) : std::move(value));
}

void Machine::move(Value* target, Value* source) {
    put(target, taken(source));
}

void Machine::let(Value* target, Value* source) {
    put(target, let_form(taken(source)));
}

void Machine::set(Value* target, Value* source) {
    Value value = taken(source);
    if (!value.is(Type::Object)) {
        throw ScriptError(ErrorNumber::ObjectRequired);
    }
    put(target, std::move(value));
}

}  // namespace vbscript
