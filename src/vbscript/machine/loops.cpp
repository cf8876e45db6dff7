#include <memory>
#include <utility>

#include "vbscript/machine/fast_values.h"
#include "vbscript/machine/machine.h"
#include "vbscript/value/array.h"

namespace vbscript {

namespace {

// The control of a loop: three registers.
constexpr int kLimit = 0;
constexpr int kStep = 1;
constexpr int kStart = 2;

// What a For Each walks over. Stands in a register of the loop.
class Walk final : public Object {
  public:
    explicit Walk(std::unique_ptr<Enumerator> enumerator) noexcept
        : enumerator_(std::move(enumerator)) {}

    // The bounds of the array stay as they are meanwhile.
    explicit Walk(Ref<Array> array) noexcept : array_(std::move(array)) { array_->lock(); }

    ~Walk() override {
        if (array_) {
            array_->unlock();
        }
    }

    std::optional<Value> next() {
        if (enumerator_) {
            return enumerator_->next();
        }
        const auto elements = array_->elements();
        if (place_ >= elements.size()) {
            return std::nullopt;
        }
        return elements[place_++];
    }

    [[nodiscard]] std::u16string type_name() const override { return u"Object"; }

    [[nodiscard]] std::optional<MemberId> find_member(std::u16string_view /*name*/) const override {
        return std::nullopt;
    }

    Value invoke(Context& /*context*/, MemberId /*member*/, Access /*access*/,
                 std::span<Value> /*arguments*/) override {
        throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
    }

  private:
    std::unique_ptr<Enumerator> enumerator_;
    Ref<Array> array_;
    std::size_t place_ = 0;
};

}  // namespace

// Counters, limits and steps are numbers: texts are read as such, objects stand for their value.
Value Machine::loop_number(Value* place) {
    Value value = context_.plain(*place);
    if (value.is(Type::Null)) {
        throw ScriptError(ErrorNumber::InvalidUseOfNull);
    }
    if (value.is(Type::String) || value.is(Type::Empty)) {
        value = add(context_, value, Value(std::int16_t{0}));
    }
    if (!fast::is_whole(value)) {
        static_cast<void>(negate(context_, value));  // must be a number
    }
    return value;
}

// Whether the counter has not passed the limit.
bool Machine::is_within(const Value& counter, Value* control) {
    const bool is_downwards =
        compare(context_, Comparison::Less, control[kStep], Value(std::int16_t{0})).boolean();
    const auto comparison = is_downwards ? Comparison::GreaterOrEqual : Comparison::LessOrEqual;
    return compare(context_, comparison, counter, control[kLimit]).boolean();
}

bool Machine::for_start(Value* counter, Value* control) {
    for (const int number : {kStart, kLimit, kStep}) {
        if (!fast::is_whole(control[number])) {
            Value value = loop_number(control + number);
            control[number].swap(value);
        }
    }
    put(counter, control[kStart]);
    return is_within(control[kStart], control);
}

bool Machine::for_next(Value* counter, Value* control) {
    if (control[kLimit].is(Type::Empty)) {
        throw ScriptError(ErrorNumber::ForLoopNotInitialized);
    }
    Value& variable = counter->is_reference() ? counter->variable() : *counter;
    const Value& step = control[kStep];
    if (!fast::calculate<fast::Add>(variable, variable, step)) {
        Value next = add(context_, variable, step);
        variable.swap(next);
    }
    bool is_going = false;
    if (fast::is_whole(step) &&
        (step.number() >= 0
             ? fast::compare<Comparison::LessOrEqual>(variable, control[kLimit], is_going)
             : fast::compare<Comparison::GreaterOrEqual>(variable, control[kLimit], is_going))) {
        return is_going;
    }
    return is_within(variable, control);
}

void Machine::each_start(Value* state, Value* collection) {
    const Value value = taken(collection);
    if (value.is(Type::Array)) {
        put(state, Value(Ref<Object>(make<Walk>(Ref<Array>(&value.array())))));
        return;
    }
    if (!value.is(Type::Object)) {
        throw ScriptError(ErrorNumber::ObjectNotACollection);
    }
    const Ref<Object> object(value.object());
    if (!object) {
        throw ScriptError(ErrorNumber::ObjectVariableNotSet);
    }
    auto enumerator = object->enumerate(context_);
    if (enumerator) {
        put(state, Value(Ref<Object>(make<Walk>(std::move(enumerator)))));
        return;
    }
    // A default property may give the array or collection that is meant.
    if (!object->has_default_member()) {
        throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
    }
    Value inner = object->invoke(context_, kDefaultMember, Access::Call, {});
    if (!inner.is(Type::Array)) {
        throw ScriptError(ErrorNumber::ObjectNotACollection);
    }
    put(state, Value(Ref<Object>(make<Walk>(Ref<Array>(&inner.array())))));
}

bool Machine::each_next(Value* target, Value* state) {
    if (!state->is(Type::Object)) {
        throw ScriptError(ErrorNumber::ForLoopNotInitialized);
    }
    std::optional<Value> next = static_cast<Walk*>(state->object())->next();
    if (!next) {
        return false;
    }
    put(target, std::move(*next));
    if (--ticks_ == 0) {
        tick();
    }
    return true;
}

}  // namespace vbscript
