#include "vbscript/machine/code_object.h"

#include "vbscript/machine/machine.h"

namespace vbscript {

namespace {

// Numbers of members are those of their names, behind the default member's.
NameId name_of(MemberId member) noexcept {
    return static_cast<NameId>(member) - 1;
}

}  // namespace

std::optional<MemberId> CodeObject::find_member(std::u16string_view name) const {
    if (link_->machine == nullptr) {
        return std::nullopt;
    }
    const NameId id = link_->machine->symbols().names().intern(name);
    const ModuleName* const found = module_.find(id);
    if (found == nullptr || std::holds_alternative<Ref<ClassInfo>>(*found)) {
        return std::nullopt;
    }
    return static_cast<MemberId>(id) + 1;
}

Value CodeObject::invoke(Context& context, MemberId member, Access access,
                         std::span<Value> arguments) {
    const bool is_over = link_->machine == nullptr || member == kDefaultMember;
    const ModuleName* const found = is_over ? nullptr : module_.find(name_of(member));
    if (found == nullptr) {
        throw ScriptError(ErrorNumber::PropertyOrMethodNotSupported);
    }
    Machine& machine = *link_->machine;
    if (const auto* variable = std::get_if<ModuleVariable>(found)) {
        return access_variable(context, machine.symbols().arena().at(variable->slot), access,
                               arguments);
    }
    if (access != Access::Call) {
        throw ScriptError(ErrorNumber::IllegalAssignment);
    }
    if (const auto* procedure = std::get_if<Ref<Procedure>>(found)) {
        return machine.call(**procedure, nullptr, arguments);
    }
    return std::get<ModuleConstant>(*found).value;
}

Value CodeObject::access_variable(Context& context, Value& variable, Access access,
                                  std::span<Value> arguments) {
    Machine& machine = *link_->machine;
    if (access == Access::Call) {
        return arguments.empty() ? variable : machine.element_of(variable, arguments);
    }
    Value value = arguments.back();
    if (arguments.size() > 1) {
        machine.set_element_of(variable, arguments.first(arguments.size() - 1), value, access);
        return {};
    }
    if (access == Access::Let) {
        value = context.plain(value);
    }
    variable.swap(value);
    return {};
}

}  // namespace vbscript
