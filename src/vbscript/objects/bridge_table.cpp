#include "vbscript/objects/bridge_table.h"

#include <algorithm>
#include <vector>

#include "automation/array.h"
#include "vbscript/objects/handed_object.h"
#include "vbscript/objects/lent_object.h"
#include "vbscript/value/array.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

// Arrays of the program can hold themselves.
constexpr int kDeepestArray = 64;

class ClassIdentity final : public Counted {};

void check_depth(int depth) {
    if (depth > kDeepestArray) {
        throw ScriptError(ErrorNumber::OutOfStackSpace);
    }
}

// Values that have no parts, by their own type.
struct PlainValueOf {
    Value operator()(automation::Empty) const { return {}; }

    Value operator()(automation::Null) const { return kNull; }

    Value operator()(automation::Currency amount) const {
        return Value(Currency{.units = amount.units});
    }

    Value operator()(automation::Date date) const { return Value(Date{.days = date.days}); }

    Value operator()(automation::ErrorValue error) const {
        return Value(ErrorCode{.number = error.number});
    }

    Value operator()(const automation::Text& text) const { return Value(text.units()); }

    Value operator()(const std::shared_ptr<automation::Object>&) const { return {}; }

    Value operator()(const std::shared_ptr<automation::Array>&) const { return {}; }

    template <typename Number>
    Value operator()(Number number) const {
        return Value(number);
    }
};

[[nodiscard]] automation::Value plain_value(const Value& value) {
    switch (value.type()) {
        case Type::Null:
            return automation::Null{};
        case Type::Boolean:
            return value.boolean();
        case Type::Byte:
            return static_cast<std::uint8_t>(value.number());
        case Type::Integer:
            return static_cast<std::int16_t>(value.number());
        case Type::Long:
            return value.number();
        case Type::Single:
            return static_cast<float>(value.real());
        case Type::Double:
            return value.real();
        case Type::Currency:
            return automation::Currency{.units = value.currency().units};
        case Type::Date:
            return automation::Date{.days = value.real()};
        case Type::Error:
            return automation::ErrorValue{.number = value.number()};
        case Type::String:
            return automation::Text(std::u16string(value.units()));
        case Type::Empty:
        case Type::Object:
        case Type::Array:
            break;
    }
    return {};
}

}  // namespace

void BridgeTable::close() {
    context_ = nullptr;
    std::vector<std::shared_ptr<HandedObject>> handed;
    for (const auto& [object, wrapper] : handed_) {
        if (auto alive = wrapper.lock()) {
            handed.push_back(std::move(alive));
        }
    }
    for (const auto& wrapper : handed) {
        wrapper->let_go();
    }
}

automation::Value BridgeTable::to_automation(const Value& value, int depth) {
    if (value.is(Type::Object)) {
        return hand_out(Ref<Object>(value.object()));
    }
    if (value.is(Type::Array)) {
        return to_automation(value.array(), depth + 1);
    }
    return plain_value(value);
}

Value BridgeTable::from_automation(const automation::Value& value, int depth) {
    if (const auto* object = value.get_if<std::shared_ptr<automation::Object>>()) {
        return Value(lend(*object));
    }
    if (const auto* array = value.get_if<std::shared_ptr<automation::Array>>()) {
        return *array ? Value(from_automation(**array, depth + 1)) : Value();
    }
    return value.visit(PlainValueOf{});
}

// A dynamic array without dimensions is one of no elements there.
std::shared_ptr<automation::Array> BridgeTable::to_automation(const Array& array, int depth) {
    check_depth(depth);
    std::vector<std::int32_t> bounds;
    for (std::size_t i = 1; i <= array.dimensions(); ++i) {
        bounds.push_back(array.upper_bound(static_cast<std::int32_t>(i)));
    }
    if (bounds.empty()) {
        bounds.push_back(-1);
    }
    auto copy = std::make_shared<automation::Array>(std::span<const std::int32_t>(bounds));
    std::ranges::transform(array.elements(), copy->elements().begin(),
                           [&](const Value& value) { return to_automation(value, depth); });
    return copy;
}

Ref<Array> BridgeTable::from_automation(const automation::Array& array, int depth) {
    check_depth(depth);
    std::vector<std::int32_t> bounds;
    for (std::size_t i = 0; i < array.dimensions(); ++i) {
        bounds.push_back(array.upper_bound(i));
    }
    Ref<Array> copy = make<Array>(std::span<const std::int32_t>(bounds), false);
    std::ranges::transform(
        array.elements(), copy->elements().begin(),
        [&](const automation::Value& value) { return from_automation(value, depth); });
    return copy;
}

std::shared_ptr<automation::Object> BridgeTable::hand_out(const Ref<Object>& object) {
    if (!object) {
        return nullptr;
    }
    if (const auto* lent = dynamic_cast<const LentObject*>(object.get())) {
        return lent->original();
    }
    std::weak_ptr<HandedObject>& known = handed_[object.get()];
    if (auto wrapper = known.lock()) {
        return wrapper;
    }
    auto wrapper = std::make_shared<HandedObject>(shared_from_this(), object);
    known = wrapper;
    return wrapper;
}

Ref<Object> BridgeTable::lend(const std::shared_ptr<automation::Object>& object) {
    if (!object) {
        return nullptr;
    }
    // An object of another engine stays a stranger here.
    const auto* handed = dynamic_cast<const HandedObject*>(object.get());
    if (handed != nullptr && handed->is_of(*this)) {
        return handed->original();
    }
    const auto known = lent_.find(object.get());
    if (known != lent_.end()) {
        return Ref<Object>(known->second);
    }
    auto wrapper = make<LentObject>(shared_from_this(), object);
    lent_.emplace(object.get(), wrapper.get());
    return wrapper;
}

Ref<Counted> BridgeTable::class_of(const automation::Object& object) {
    const auto* table = dynamic_cast<const automation::TableObject*>(&object);
    if (table == nullptr || table->members().empty()) {
        return nullptr;
    }
    Ref<Counted>& identity = classes_[table->members().data()];
    if (!identity) {
        identity = make<ClassIdentity>();
    }
    return identity;
}

void BridgeTable::forget_lent(const automation::Object& object) noexcept {
    lent_.erase(&object);
}

void BridgeTable::forget_handed(const Object& object) noexcept {
    handed_.erase(&object);
}

}  // namespace vbscript
