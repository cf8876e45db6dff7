#include "vbscript/machine/symbols.h"

#include <algorithm>
#include <utility>

#include "vbscript/library/functions.h"
#include "vbscript/value/convert.h"
#include "vbscript/value/object.h"

namespace vbscript {

namespace {

// The one function of the language that needs to know the procedures of the scripts.
Value get_ref(Context& context, std::span<const Value> arguments) {
    return Value(context.procedure_reference(to_units(context, arguments.front())));
}

constexpr LibraryFunction kGetRef{u"GetRef", 1, 1, &get_ref};

}  // namespace

Symbols::Symbols() {
    modules_.emplace_back(u"Global");
    for (const LibraryFunction& function : library_functions()) {
        functions_.emplace(names_.intern(function.name), &function);
    }
    functions_.emplace(names_.intern(kGetRef.name), &kGetRef);
    for (const LibraryConstant& constant : library_constants()) {
        constants_.emplace(names_.intern(constant.name), &constant.value);
    }
}

Module& Symbols::add_module(std::u16string_view name) {
    if (Module* found = find_module(name)) {
        return *found;
    }
    return modules_.emplace_back(name);
}

Module* Symbols::find_module(std::u16string_view name) noexcept {
    const auto found = std::ranges::find_if(modules_, [name](const Module& module) {
        return equals_ignoring_case(module.name(), name);
    });
    return found == modules_.end() ? nullptr : &*found;
}

const ModuleName* Symbols::find(const Module& module, NameId name) noexcept {
    if (const ModuleName* own = module.find(name)) {
        return own;
    }
    return &module == &global_module() ? nullptr : global_module().find(name);
}

ModuleName& Symbols::meaning(Module& module, NameId name) {
    const auto [place, is_new] = module.names_.try_emplace(name);
    if (is_new) {
        module.order_.push_back(name);
    }
    if (const auto* variable = std::get_if<ModuleVariable>(&place->second);
        variable != nullptr && !is_new) {
        orphans_.push_back(variable->slot);
    }
    changed(name);
    return place->second;
}

std::uint32_t Symbols::declare_variable(Module& module, NameId name, Declaration declaration) {
    const bool is_stated = declaration == Declaration::Stated;
    if (const ModuleName* found = module.find(name)) {
        if (const auto* variable = std::get_if<ModuleVariable>(found)) {
            if (is_stated) {
                begin_variable(module, name);
            }
            return variable->slot;
        }
    }
    const std::uint32_t slot = arena_.allocate(1);
    meaning(module, name) = ModuleVariable{slot, is_stated};
    return slot;
}

void Symbols::begin_variable(Module& module, NameId name) {
    const auto found = module.names_.find(name);
    if (found == module.names_.end()) {
        return;
    }
    auto* variable = std::get_if<ModuleVariable>(&found->second);
    if (variable == nullptr || variable->is_there) {
        return;
    }
    variable->is_there = true;
    changed(name);
}

void Symbols::declare_constant(Module& module, NameId name, Value value) {
    meaning(module, name) = ModuleConstant{std::move(value)};
}

Procedure& Symbols::add_procedure(Module& module, const ast::Procedure& tree,
                                  const std::shared_ptr<const Program>& program) {
    Procedure& procedure = *procedures_.emplace_back(make<Procedure>());
    define(procedure, module, tree, program);
    return procedure;
}

void Symbols::define(Procedure& procedure, Module& module, const ast::Procedure& tree,
                     const std::shared_ptr<const Program>& program) {
    retire(procedure);
    procedure.name = names_.intern_folded(tree.name.folded);
    procedure.tree = &tree;
    procedure.program = program;
    procedure.module = &module;
}

std::optional<std::uint32_t> Symbols::declare_procedure(
    Module& module, const ast::Procedure& tree, const std::shared_ptr<const Program>& program) {
    ModuleName& place = meaning(module, names_.intern_folded(tree.name.folded));
    const auto* variable = std::get_if<ModuleVariable>(&place);
    const bool was_variable = variable != nullptr && variable->slot != ModuleVariable::kNone;
    const auto slot = was_variable ? std::optional(variable->slot) : std::nullopt;
    if (auto* known = std::get_if<Ref<Procedure>>(&place); known != nullptr && *known) {
        define(**known, module, tree, program);
    } else {
        place = Ref<Procedure>(&add_procedure(module, tree, program));
    }
    return slot;
}

Procedure* Symbols::find_procedure(const Module& module, std::u16string_view folded) {
    const ModuleName* const found = module.find(names_.intern_folded(folded));
    const auto* procedure = found != nullptr ? std::get_if<Ref<Procedure>>(found) : nullptr;
    return procedure != nullptr ? procedure->get() : nullptr;
}

void Symbols::declare_class(Module& module, const ast::Class& tree,
                            const std::shared_ptr<const Program>& program) {
    ModuleName& place = meaning(module, names_.intern_folded(tree.name.folded));
    place = classes_.emplace_back(make<ClassInfo>(tree, program, module, names_));
}

void Symbols::add_object(std::u16string_view name, Ref<Object> object, bool has_global_members) {
    const NameId id = names_.intern(name);
    const auto found = std::ranges::find(objects_, id, &NamedObject::name);
    if (found == objects_.end()) {
        objects_.push_back({id, arena_.allocate(1), has_global_members});
        arena_.at(objects_.back().slot) = Value(std::move(object));
    } else {
        found->has_global_members = has_global_members;
        arena_.at(found->slot) = Value(std::move(object));
    }
    // Any name may now be one of its members.
    std::vector<NameId> watched;
    for (const auto& [watched_name, procedures] : watchers_) {
        watched.push_back(watched_name);
    }
    for (const NameId watched_name : watched) {
        changed(watched_name);
    }
}

const Symbols::NamedObject* Symbols::find_object(NameId name) const noexcept {
    const auto found = std::ranges::find(objects_, name, &NamedObject::name);
    return found == objects_.end() ? nullptr : &*found;
}

const Symbols::NamedObject* Symbols::find_global_member(std::u16string_view name) {
    const auto found = std::ranges::find_if(objects_, [&](const NamedObject& row) {
        if (!row.has_global_members) {
            return false;
        }
        const Object* object = arena_.at(row.slot).object();
        return object != nullptr && object->find_member(name).has_value();
    });
    return found == objects_.end() ? nullptr : &*found;
}

const LibraryFunction* Symbols::find_function(NameId name) const noexcept {
    const auto found = functions_.find(name);
    return found == functions_.end() ? nullptr : found->second;
}

const Value* Symbols::find_constant(NameId name) const noexcept {
    const auto found = constants_.find(name);
    return found == constants_.end() ? nullptr : found->second;
}

void Symbols::watch(NameId name, Procedure& procedure) {
    watchers_[name].insert(&procedure);
}

void Symbols::changed(NameId name) {
    const auto found = watchers_.find(name);
    if (found == watchers_.end()) {
        return;
    }
    for (Procedure* procedure : found->second) {
        retire(*procedure);
    }
    watchers_.erase(found);
}

void Symbols::retire(Procedure& procedure) {
    if (procedure.code) {
        retired_.push_back(std::exchange(procedure.code, nullptr));
    }
}

void Symbols::release_variables() noexcept {
    const auto release = [this](std::uint32_t slot) {
        Value ended;
        ended.swap(arena_.at(slot));
    };
    for (Module& module : modules_) {
        // By index, since a last wish may declare more of them.
        for (std::size_t place = 0; place < module.order_.size(); ++place) {
            const ModuleName* name = module.find(module.order_[place]);
            if (const auto* variable = std::get_if<ModuleVariable>(name)) {
                release(variable->slot);
            }
        }
    }
    for (const std::uint32_t slot : orphans_) {
        release(slot);
    }
}

void Symbols::release_objects() noexcept {
    for (const NamedObject& row : objects_) {
        arena_.at(row.slot) = Value();
    }
}

void Symbols::release_code() noexcept {
    watchers_.clear();
    for (const Ref<Procedure>& procedure : procedures_) {
        procedure->code = nullptr;
    }
    for (const Ref<ClassInfo>& info : classes_) {
        info->release_code();
    }
    retired_.clear();
}

}  // namespace vbscript
