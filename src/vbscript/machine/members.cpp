#include <utility>
#include <vector>

#include "vbscript/machine/machine.h"
#include "vbscript/value/array.h"
#include "vbscript/value/convert.h"

namespace vbscript {

namespace {

bool is_same(const Value& left, const Value& right) noexcept {
    if (left.type() != right.type()) {
        return false;
    }
    switch (left.type()) {
        case Type::Empty:
        case Type::Null:
            return true;
        case Type::Single:
        case Type::Double:
        case Type::Date:
            return left.real() == right.real();
        case Type::String:
            return &left.text() == &right.text();
        case Type::Object:
            return left.object() == right.object();
        case Type::Array:
            return &left.array() == &right.array();
        default:
            return left.currency() == right.currency();
    }
}

// A public procedure, or none.
Procedure* visible(const Ref<Procedure>& procedure) noexcept {
    return procedure && is_public(*procedure->tree) ? procedure.get() : nullptr;
}

Procedure* procedure_for(const ClassMember& member, Access access) noexcept {
    switch (access) {
        case Access::Call:
            return visible(member.get);
        case Access::Let:
            return visible(member.let);
        case Access::Set:
            return visible(member.set);
    }
    return nullptr;
}

// The arguments of a call to an object of the program. Variables that are passed by reference are
// given as values; those that the object changed are written back afterwards.
class PassedValues {
  public:
    explicit PassedValues(std::span<Value> arguments) : arguments_(arguments) {
        for (Value& argument : arguments_) {
            if (!argument.is_reference()) {
                continue;
            }
            Value& variable = argument.variable();
            argument = Value(variable);
            passed_.push_back({&argument, &variable, variable});
        }
    }

    void write_back() {
        for (Passed& row : passed_) {
            if (!is_same(*row.argument, row.before)) {
                row.variable->swap(*row.argument);
            }
        }
    }

  private:
    struct Passed {
        Value* argument;
        Value* variable;
        Value before;
    };

    std::span<Value> arguments_;
    std::vector<Passed> passed_;
};

}  // namespace

Object& Machine::object_at(Value* place) {
    const Value& holder = place->is_reference() ? place->variable() : *place;
    if (!holder.is(Type::Object)) {
        [[unlikely]] throw ScriptError(ErrorNumber::ObjectRequired);
    }
    Object* const object = holder.object();
    if (object == nullptr) {
        [[unlikely]] throw ScriptError(ErrorNumber::ObjectVariableNotSet);
    }
    return *object;
}

// Finds the member and remembers it, if objects of this class allow that.
void Machine::look_up(MemberSite& site, Object& object, Access access) {
    site.identity = nullptr;
    site.procedure = nullptr;
    site.field = ClassMember::kNoField;
    if (const auto* instance = dynamic_cast<const Instance*>(&object)) {
        const ClassMember* const member = instance->info().find(site.folded);
        if (member == nullptr) {
            throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
        }
        site.procedure = procedure_for(*member, access);
        if (member->is_field() && member->is_public_field) {
            site.field = member->field;
        }
        if (site.procedure == nullptr && site.field == ClassMember::kNoField) {
            throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
        }
    } else {
        const auto number = object.find_member(site.name);
        if (!number) {
            throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
        }
        site.number = *number;
    }
    site.identity = object.class_identity();
}

// The object stands at `window`, the arguments behind it.
void Machine::read_member(MemberSite& site, Value* window, int count, Value* result,
                          ResultUse use) {
    Value value;
    if (site.field == ClassMember::kNoField) {
        value = invoke(*window->object(), site.number, Access::Call, window, count);
    } else {
        Value& field = static_cast<Instance*>(window->object())->field(site.field);
        value = count == 0 ? field : element_of_field(field, window + 1, count);
        release_registers(window, window + 1 + count);
    }
    if (result != nullptr) {
        put_result(result, std::move(value), use);
    }
}

Value Machine::element_of_field(const Value& field, Value* window, int count) {
    const PassedValues passed({window, static_cast<std::size_t>(count)});
    return element_of(field, {window, static_cast<std::size_t>(count)});
}

// The new value is the last argument.
void Machine::write_member(MemberSite& site, Value* window, int count, Access access) {
    if (site.field == ClassMember::kNoField) {
        static_cast<void>(invoke(*window->object(), site.number, access, window, count));
        return;
    }
    Value& field = static_cast<Instance*>(window->object())->field(site.field);
    Value value = std::move(window[count]);
    if (count == 1) {
        value = access == Access::Set ? object_form(std::move(value)) : let_form(std::move(value));
        field.swap(value);
    } else {
        const std::span<Value> arguments(window + 1, static_cast<std::size_t>(count) - 1);
        const PassedValues passed(arguments);
        set_element_of(field, arguments, std::move(value), access);
    }
    release_registers(window, window + 1 + count);
}

Value Machine::invoke(Object& object, MemberId member, Access access, Value* window, int count) {
    const std::span<Value> arguments(window + 1, static_cast<std::size_t>(count));
    PassedValues passed(arguments);
    Value value = object.invoke(context_, member, access, arguments);
    passed.write_back();
    release_registers(window, window + 1 + count);
    return value;
}

void Machine::call_library(const LibraryFunction& function, Value* window, int count, Value* result,
                           ResultUse use) {
    Value value = function.call(context_, {window, static_cast<std::size_t>(count)});
    release_registers(window, window + count);
    put_result(result, std::move(value), use);
}

void Machine::call_library_one(const LibraryFunction& function, Value* argument, Value* result,
                               ResultUse use) {
    const Value& given = argument->is_reference() ? argument->variable() : *argument;
    Value value = function.call(context_, {&given, 1});
    consume(argument);
    put_result(result, std::move(value), use);
}

Ref<Object> Machine::new_instance(ClassInfo& info) {
    auto instance = make<Instance>(Ref<ClassInfo>(&info), link_);
    instances_.add(*instance);
    return instance;
}

void Machine::new_named(Value* target, NameId name) {
    const ModuleName* const found = symbols_.find(running_module(), name);
    if (const auto* info = found != nullptr ? std::get_if<Ref<ClassInfo>>(found) : nullptr) {
        Ref<Object> object = new_instance(**info);
        if (Procedure* const initialize = (*info)->initialize()) {
            static_cast<void>(call(*initialize, static_cast<Instance*>(object.get()), {}));
        }
        put(target, Value(std::move(object)));
        return;
    }
    Ref<Object> object = context_.create_builtin_class(symbols_.names().text(name));
    if (!object) {
        throw ScriptError(ErrorNumber::ClassNotDefined);
    }
    put(target, Value(std::move(object)));
}

}  // namespace vbscript
