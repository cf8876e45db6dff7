#include "vbscript/machine/scope.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vbscript {

namespace {

constexpr auto kSpecials = std::to_array<std::pair<std::u16string_view, Special>>({
    {u"eval", Special::Eval},
    {u"execute", Special::Execute},
    {u"executeglobal", Special::ExecuteGlobal},
});

Binding variable_at(Place place, bool is_shared) {
    Binding binding;
    binding.kind = Binding::Kind::Variable;
    binding.place = place;
    binding.is_shared = is_shared;
    return binding;
}

}  // namespace

Scope::Scope(const UnitContext& context, CodeBuilder& builder)
    : context_(context), builder_(builder) {}

NameId Scope::id_of(const ast::Name& name) {
    return context_.symbols->names().intern_folded(name.folded);
}

void Scope::add_register(const ast::Name& name, std::uint32_t number, bool is_by_reference,
                         bool is_result) {
    Local local{variable_at(CodeBuilder::local(number), is_by_reference), number, true};
    local.binding.is_result = is_result;
    locals_.insert_or_assign(id_of(name), std::move(local));
}

void Scope::declare_variable(const ast::Name& name) {
    const NameId id = id_of(name);
    if (locals_.contains(id)) {
        return;
    }
    if (is_outside()) {
        context_.symbols->declare_variable(*context_.module, id, Symbols::Declaration::Stated);
    } else {
        add_variable(id, true);
    }
}

void Scope::declare_constant(const ast::Name& name, const Value& value) {
    const NameId id = id_of(name);
    if (is_outside()) {
        context_.symbols->declare_constant(*context_.module, id, value);
        return;
    }
    Local local;
    local.binding.kind = Binding::Kind::Constant;
    local.binding.constant = value;
    locals_.insert_or_assign(id, std::move(local));
}

void Scope::watch(NameId id) {
    if (context_.procedure != nullptr) {
        context_.symbols->watch(id, *context_.procedure);
    }
}

Binding Scope::resolve(const ast::Name& name) {
    const NameId id = id_of(name);
    if (const auto local = locals_.find(id); local != locals_.end()) {
        return local->second.binding;
    }
    if (is_inner() && context_.is_variable_around(id)) {
        return add_capture(id);
    }
    if (context_.owner != nullptr) {
        if (const ClassMember* member = context_.owner->find(name.folded)) {
            Binding binding;
            binding.kind = Binding::Kind::OwnMember;
            binding.member = member;
            return binding;
        }
    }
    watch(id);
    if (Binding found = find_in_modules(id); found.kind != Binding::Kind::Undefined) {
        return found;
    }
    if (Binding found = find_in_language(id, name); found.kind != Binding::Kind::Undefined) {
        return found;
    }
    return context_.option_explicit ? Binding{} : add_variable(id, false);
}

bool Scope::is_known(const ast::Name& name) {
    const NameId id = id_of(name);
    if (locals_.contains(id) || (is_inner() && context_.is_variable_around(id))) {
        return true;
    }
    if (context_.owner != nullptr && context_.owner->find(name.folded) != nullptr) {
        return true;
    }
    return context_.symbols->find(*context_.module, id) != nullptr;
}

bool Scope::is_still_unused(NameId id) {
    const ModuleName* const found = context_.symbols->find(*context_.module, id);
    const auto* variable = found != nullptr ? std::get_if<ModuleVariable>(found) : nullptr;
    return is_outside() && variable != nullptr && !variable->is_there;
}

Binding Scope::find_in_modules(NameId id) {
    Binding binding;
    const ModuleName* found = context_.symbols->find(*context_.module, id);
    if (found == nullptr) {
        return binding;
    }
    if (const auto* variable = std::get_if<ModuleVariable>(found)) {
        if (!variable->is_there && !is_outside()) {
            return binding;
        }
        return variable_at(builder_.slot(variable->slot), true);
    }
    if (const auto* constant = std::get_if<ModuleConstant>(found)) {
        binding.kind = Binding::Kind::Constant;
        binding.constant = constant->value;
    } else if (const auto* procedure = std::get_if<Ref<Procedure>>(found)) {
        binding.kind = Binding::Kind::Procedure;
        binding.procedure = procedure->get();
    } else {
        binding.kind = Binding::Kind::Class;
        binding.info = std::get<Ref<ClassInfo>>(*found).get();
    }
    return binding;
}

Binding Scope::find_in_language(NameId id, const ast::Name& name) {
    Symbols& symbols = *context_.symbols;
    Binding binding;
    if (const auto* object = symbols.find_object(id)) {
        binding.kind = Binding::Kind::Object;
        binding.place = builder_.slot(object->slot);
    } else if (const LibraryFunction* function = symbols.find_function(id)) {
        binding.kind = Binding::Kind::Library;
        binding.function = function;
    } else if (const Value* constant = symbols.find_constant(id)) {
        binding.kind = Binding::Kind::Constant;
        binding.constant = *constant;
    } else if (const auto* special = std::ranges::find(
                   kSpecials, name.folded, &std::pair<std::u16string_view, Special>::first);
               special != kSpecials.end()) {
        binding.kind = Binding::Kind::Special;
        binding.special = special->second;
    } else if (const auto* holder = symbols.find_global_member(name.spelled)) {
        binding.kind = Binding::Kind::GlobalMember;
        binding.place = builder_.slot(holder->slot);
    }
    return binding;
}

Binding Scope::add_variable(NameId id, bool is_declared) {
    if (is_outside()) {
        const std::uint32_t slot = context_.symbols->declare_variable(
            *context_.module, id, Symbols::Declaration::Implicit);
        return variable_at(builder_.slot(slot), true);
    }
    if (is_inner()) {
        return add_capture(id);
    }
    const std::uint32_t number = builder_.new_local();
    Local local{variable_at(CodeBuilder::local(number), false), number, true, is_declared};
    return locals_.insert_or_assign(id, std::move(local)).first->second.binding;
}

Binding Scope::add_capture(NameId id) {
    const std::uint32_t number = builder_.new_local();
    builder_.code().captures.push_back({id, number});
    Local local{variable_at(CodeBuilder::local(number), true), number, true};
    const Procedure* const around = context_.around;
    local.binding.is_result = around != nullptr && around->name == id && around->has_result();
    return locals_.insert_or_assign(id, std::move(local)).first->second.binding;
}

void Scope::list_registers(Code& code) const {
    for (const auto& [id, local] : locals_) {
        if (!local.is_register) {
            continue;
        }
        code.register_names.emplace(id, local.number);
        if (!local.is_declared) {
            code.undeclared_names.push_back(id);
        }
    }
}

}  // namespace vbscript
