#include "vbscript/machine/instance.h"

#include <utility>

#include "vbscript/machine/machine.h"
#include "vbscript/value/array.h"
#include "vbscript/value/convert.h"

namespace vbscript {

namespace {

// Numbers of members begin behind the default member's.
MemberId id_of(std::size_t place) noexcept {
    return static_cast<MemberId>(place) + 1;
}

[[noreturn]] void refuse() {
    throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
}

Procedure& public_one(const Ref<Procedure>& procedure) {
    if (!procedure || !is_public(*procedure->tree)) {
        refuse();
    }
    return *procedure;
}

}  // namespace

Instance::Instance(Ref<ClassInfo> info, Ref<MachineLink> link)
    : info_(std::move(info)), link_(std::move(link)), fields_(info_->fields().size()) {
    for (std::size_t place = 0; place < fields_.size(); ++place) {
        const ast::Declarator& variable = info_->fields()[place].variable;
        if (!variable.is_array) {
            continue;
        }
        fields_[place] =
            Value(variable.bounds.empty() ? make<Array>() : make<Array>(variable.bounds, true));
    }
}

std::optional<MemberId> Instance::find_member(std::u16string_view name) const {
    const ClassMember* const member = info_->find(to_lower(name));
    if (member == nullptr || !ClassInfo::is_visible(*member)) {
        return std::nullopt;
    }
    return id_of(static_cast<std::size_t>(member - info_->members().data()));
}

Value Instance::invoke(Context& context, MemberId number, Access access,
                       std::span<Value> arguments) {
    const ClassMember* const member = number == kDefaultMember
                                          ? info_->default_member()
                                          : &info_->members()[static_cast<std::size_t>(number) - 1];
    Machine* const machine = link_->machine;
    if (member == nullptr || machine == nullptr) {
        refuse();
    }
    if (member->is_field()) {
        if (!member->is_public_field) {
            refuse();
        }
        return field_access(context, field(member->field), access, arguments);
    }
    const Ref<Object> alive(this);
    switch (access) {
        case Access::Call:
            return machine->call(public_one(member->get), this, arguments);
        case Access::Let:
            return machine->call(public_one(member->let), this, arguments);
        case Access::Set:
            return machine->call(public_one(member->set), this, arguments);
    }
    return {};
}

Value Instance::field_access(Context& context, Value& field, Access access,
                             std::span<Value> arguments) {
    Machine& machine = *link_->machine;
    if (access == Access::Call) {
        return arguments.empty() ? field : machine.element_of(field, arguments);
    }
    Value value = arguments.back();
    if (arguments.size() > 1) {
        machine.set_element_of(field, arguments.first(arguments.size() - 1), std::move(value),
                               access);
        return {};
    }
    const bool is_object = value.is(Type::Object);
    if (access == Access::Set && !is_object) {
        throw ScriptError(ErrorNumber::ObjectRequired);
    }
    if (access == Access::Let && is_object) {
        value = context.plain(value);
    }
    field.swap(value);
    return {};
}

void Instance::clear_fields() noexcept {
    std::vector<Value> ended;
    ended.swap(fields_);
    fields_.resize(ended.size());
}

void Instance::last_reference_gone() noexcept {
    if (link_->machine != nullptr) {
        link_->machine->instances().bury(*this);
    } else {
        delete this;
    }
}

void InstanceList::add(Instance& instance) noexcept {
    instance.next_ = first_;
    if (first_ != nullptr) {
        first_->previous_ = &instance;
    }
    first_ = &instance;
}

void InstanceList::remove(Instance& instance) noexcept {
    if (instance.next_ != nullptr) {
        instance.next_->previous_ = instance.previous_;
    }
    (instance.previous_ != nullptr ? instance.previous_->next_ : first_) = instance.next_;
    instance.previous_ = nullptr;
    instance.next_ = nullptr;
}

void InstanceList::bury(Instance& instance) noexcept {
    dying_.push_back(&instance);
    if (is_burying_) {
        return;
    }
    is_burying_ = true;
    while (!dying_.empty()) {
        Instance& next = *dying_.front();
        dying_.pop_front();
        end(next);
    }
    is_burying_ = false;
}

// While the last words run, other objects may end and say theirs.
void InstanceList::terminate(Instance& instance) noexcept {
    Procedure* const procedure = instance.info().terminate();
    if (instance.has_terminated_ || procedure == nullptr || is_over_) {
        return;
    }
    instance.has_terminated_ = true;
    const bool was_burying = std::exchange(is_burying_, false);
    machine_.call_last_words(*procedure, instance);
    is_burying_ = was_burying;
}

void InstanceList::end(Instance& instance) noexcept {
    instance.retain();
    terminate(instance);
    if (instance.is_shared()) {
        instance.release();
        return;
    }
    remove(instance);
    instance.clear_fields();
    delete &instance;
}

void InstanceList::end_all() noexcept {
    std::vector<Ref<Instance>> left;
    for (Instance* instance = first_; instance != nullptr; instance = instance->next_) {
        left.emplace_back(instance);
    }
    for (const Ref<Instance>& instance : left) {
        terminate(*instance);
    }
    is_over_ = true;
    // Instances that the last words have made are in the list, but not in `left`.
    while (first_ != nullptr) {
        const Ref<Instance> instance(first_);
        remove(*instance);
        instance->clear_fields();
    }
}

}  // namespace vbscript
