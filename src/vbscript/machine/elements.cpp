#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "vbscript/machine/fast_values.h"
#include "vbscript/machine/machine.h"
#include "vbscript/value/array.h"
#include "vbscript/value/convert.h"

namespace vbscript {

namespace {

// The numbers of indexes.
class IndexNumbers {
  public:
    IndexNumbers(Context& context, std::span<const Value> indexes) : count_(indexes.size()) {
        if (count_ > numbers_.size()) {
            throw ScriptError(ErrorNumber::SubscriptOutOfRange);
        }
        for (std::size_t place = 0; place < count_; ++place) {
            const Value& index = indexes[place];
            numbers_[place] = fast::is_whole(index) ? index.number() : to_long(context, index);
        }
    }

    [[nodiscard]] std::span<const std::int32_t> all() const noexcept {
        return {numbers_.data(), count_};
    }

  private:
    std::size_t count_;
    std::array<std::int32_t, Array::kMaximumDimensions> numbers_;
};

}  // namespace

// Where an element stands. The array is the holder's own afterwards.
Value* Machine::find_element(Value& holder, std::span<const Value> indexes) {
    const IndexNumbers numbers(context_, indexes);
    return &writable(holder).at(numbers.all());
}

Value Machine::element_of(const Value& holder, std::span<Value> arguments) {
    if (holder.is(Type::Array)) {
        const Ref<Array> array(&holder.array());
        return array->at(IndexNumbers(context_, arguments).all());
    }
    if (!holder.is(Type::Object)) {
        throw ScriptError(ErrorNumber::TypeMismatch);
    }
    const Ref<Object> object(holder.object());
    if (!object) {
        throw ScriptError(ErrorNumber::ObjectVariableNotSet);
    }
    if (!object->has_default_member()) {
        throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
    }
    return object->invoke(context_, kDefaultMember, Access::Call, arguments);
}

void Machine::index(Value* target, Value* holder, Value* place, ResultUse use) {
    const Value& source = referred(*holder);
    if (source.is(Type::Array)) {
        const Value& index = referred(*place);
        const std::int32_t number =
            fast::is_whole(index) ? index.number() : to_long(context_, index);
        const Value* element = source.array().find(number);
        if (element == nullptr) {
            element = &source.array().at(std::array{number});
        }
        Value value(*element);
        consume(place);
        consume(holder);
        put_result(target, std::move(value), use);
        return;
    }
    Value argument(referred(*place));
    consume(place);
    Value value = element_of(source, {&argument, 1});
    consume(holder);
    put_result(target, std::move(value), use);
}

// The element, if the holder is an array and all indexes are whole numbers.
Value* Machine::plain_element(const Value& holder, std::span<const Value> indexes) {
    const bool is_plain = holder.is(Type::Array) && std::ranges::all_of(indexes, fast::is_whole);
    if (!is_plain) {
        return nullptr;
    }
    return &holder.array().at(IndexNumbers(context_, indexes).all());
}

void Machine::index_many(Value* target, Value* holder, Value* window, int count, ResultUse use) {
    const std::span<Value> indexes(window, static_cast<std::size_t>(count));
    const Value* const element = plain_element(referred(*holder), indexes);
    if (element != nullptr && !element->is_heavy() && !target->is_heavy()) {
        target->copy_light(*element);
        consume(holder);
        return;
    }
    Value value = element_of(referred(*holder), indexes);
    release_registers(window, window + count);
    consume(holder);
    put_result(target, std::move(value), use);
}

void Machine::set_element_of(Value& holder, std::span<Value> arguments, Value value,
                             Access access) {
    if (holder.is(Type::Array)) {
        value = access == Access::Set ? object_form(std::move(value)) : let_form(std::move(value));
        find_element(holder, arguments)->swap(value);
        return;
    }
    if (!holder.is(Type::Object)) {
        throw ScriptError(ErrorNumber::TypeMismatch);
    }
    const Ref<Object> object(holder.object());
    if (!object) {
        throw ScriptError(ErrorNumber::ObjectVariableNotSet);
    }
    if (!object->has_default_member()) {
        throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
    }
    std::vector<Value> all(arguments.begin(), arguments.end());
    all.push_back(std::move(value));
    object->invoke(context_, kDefaultMember, access, all);
}

void Machine::let_element(Value* holder, Value* place, Value* source, Access access) {
    Value& target = referred(*holder);
    Value index(referred(*place));
    consume(place);
    set_element_of(target, {&index, 1}, taken(source), access);
    consume(holder);
}

void Machine::let_element_many(Value* holder, Value* window, int count, Access access) {
    const std::span<Value> indexes(window, static_cast<std::size_t>(count));
    Value& target = referred(*holder);
    const bool is_light = access == Access::Let && !window[count].is_heavy();
    if (is_light && target.is(Type::Array) && !target.array().is_held_twice()) {
        Value* const element = plain_element(target, indexes);
        if (element != nullptr && !element->is_heavy()) {
            element->copy_light(window[count]);
            consume(holder);
            return;
        }
    }
    Value value = std::move(window[count]);
    set_element_of(target, indexes, std::move(value), access);
    release_registers(window, window + count);
    consume(holder);
}

// Becomes the element's value where the holder is no array.
void Machine::element_reference(Value* target, Value* array, Value* window, int count) {
    Value& holder = referred(*array);
    const std::span<Value> indexes(window, static_cast<std::size_t>(count));
    if (holder.is(Type::Array)) {
        Value* const element = find_element(holder, indexes);
        consume(array);
        target->set_reference(*element);
    } else {
        Value value = element_of(holder, indexes);
        consume(array);
        *target = std::move(value);
    }
    release_registers(window, window + count);
}

void Machine::pass_element(Value* target, Value* array, Value* lock, int count) {
    Value& holder = referred(*array);
    const std::span<Value> indexes(lock + 1, static_cast<std::size_t>(count));
    if (holder.is(Type::Array)) {
        Value* const element = find_element(holder, indexes);
        Array& locked = holder.array();
        locked.retain();
        locked.lock();
        lock->set_locked_array(locked);
        target->set_reference(*element);
    } else {
        lock->set_number(Type::Empty, 0);
        *target = element_of(holder, indexes);
    }
    release_registers(lock + 1, lock + 1 + count);
    consume(array);
}

Value Machine::object_form(Value value) {
    if (!value.is(Type::Object)) {
        throw ScriptError(ErrorNumber::ObjectRequired);
    }
    return value;
}

void Machine::redim(Value* target, Value* window, int count, bool preserve) {
    std::vector<std::int32_t> bounds;
    for (int place = 0; place < count; ++place) {
        bounds.push_back(to_long(context_, window[place]));
        consume(window + place);
    }
    Value& variable = referred(*target);
    if (variable.is(Type::Array)) {
        const bool is_empty_preserve = variable.array().dimensions() == 0;
        writable(variable).redim(bounds, preserve && !is_empty_preserve);
    } else if (preserve && !variable.is(Type::Empty)) {
        throw ScriptError(ErrorNumber::TypeMismatch);
    } else {
        Value array(make<Array>(bounds, false));
        variable.swap(array);
    }
    consume(target);
}

void Machine::erase(Value* target) {
    Value& variable = referred(*target);
    if (!variable.is(Type::Array)) {
        throw ScriptError(ErrorNumber::TypeMismatch);
    }
    writable(variable).erase();
    consume(target);
}

void Machine::make_array(Value* target, const std::vector<std::int32_t>& bounds) {
    put(target, Value(bounds.empty() ? make<Array>() : make<Array>(bounds, true)));
}

}  // namespace vbscript
