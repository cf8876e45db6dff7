#include <algorithm>
#include <vector>

#include "vbscript/machine/compiler.h"

namespace vbscript {

namespace {

using ast::ExpressionKind;

// The parts of `target & a & b ...` behind the target; none for another expression.
std::vector<const ast::Expression*> parts_behind(std::u16string_view target,
                                                 const ast::Expression& value) {
    std::vector<const ast::Expression*> parts;
    const ast::Expression* rest = &value;
    while (rest->kind == ExpressionKind::Binary) {
        const auto& operation = ast::as<ast::Binary>(*rest);
        if (operation.operation != ast::BinaryOperator::Concatenate) {
            return {};
        }
        parts.insert(parts.begin(), operation.right);
        rest = operation.left;
    }
    const bool is_target = rest->kind == ExpressionKind::Identifier &&
                           ast::as<ast::Identifier>(*rest).name.folded == target;
    return is_target ? parts : std::vector<const ast::Expression*>{};
}

}  // namespace

void Compiler::assign(const ast::Expression& target, const ast::Expression& value, Access access) {
    switch (target.kind) {
        case ExpressionKind::Identifier:
            assign_name(ast::as<ast::Identifier>(target), value, access);
            return;
        case ExpressionKind::Member:
            assign_member(ast::as<ast::Member>(target), {}, value, access);
            return;
        case ExpressionKind::Apply:
            assign_element(ast::as<ast::Apply>(target), value, access);
            return;
        default:
            return;
    }
}

void Compiler::assign_name(const ast::Identifier& target, const ast::Expression& value,
                           Access access) {
    const Binding binding = scope_.resolve(target.name);
    switch (binding.kind) {
        case Binding::Kind::Variable:
            assign_variable(binding.place, value, access, target, binding);
            return;
        case Binding::Kind::OwnMember:
            assign_own(*binding.member, target, {}, value, access);
            return;
        case Binding::Kind::GlobalMember:
            assign_member_of(binding.place, target, target.name, {}, value, access);
            return;
        case Binding::Kind::Undefined:
            fail(ErrorNumber::VariableUndefined, target.name, {});
            return;
        default:
            fail(ErrorNumber::IllegalAssignment, target.name, {});
            return;
    }
}

void Compiler::assign_variable(Place variable, const ast::Expression& value, Access access,
                               const ast::Identifier& target, const Binding& binding) {
    const std::uint32_t height = builder_.temporaries();
    if (access == Access::Let) {
        if (!append(target, binding, value)) {
            expression(value, {variable, ResultUse::Let});
        }
    } else {
        const Place source = this->value(value);
        builder_.about(value);
        builder_.emit(Op::Set, variable.field, source.field);
    }
    builder_.release_to(height);
}

// `s = s & x`: the text of the variable grows in place, when no other variable shares it.
bool Compiler::append(const ast::Identifier& target, const Binding& binding,
                      const ast::Expression& value) {
    const auto parts = parts_behind(target.name.folded, value);
    if (parts.empty()) {
        return false;
    }
    const bool may_change = std::ranges::any_of(
        parts, [this](const ast::Expression* part) { return may_run_script(*part); });
    if (parts.size() == 1 && !may_change) {
        builder_.emit(Op::Append, binding.place.field, this->value(*parts.front()).field);
        return true;
    }
    // What the parts do could change the variable: then its text of before counts, which is kept.
    const std::uint32_t kept = may_change ? 1 : 0;
    const auto count = static_cast<std::uint32_t>(parts.size()) + kept;
    const Place window = builder_.new_window(count);
    if (may_change) {
        builder_.emit(Op::Move, window.field, binding.place.field);
    }
    for (std::uint32_t place = kept; place < count; ++place) {
        value_into(*parts[place - kept], CodeBuilder::neighbour(window, place));
    }
    builder_.emit(Op::AppendMany, binding.place.field, window.field,
                  static_cast<std::int32_t>(kept), static_cast<int>(count));
    return true;
}

void Compiler::assign_own(const ClassMember& member, const ast::Expression& target,
                          Arguments arguments, const ast::Expression& value, Access access) {
    const std::uint32_t height = builder_.temporaries();
    if (member.is_field() && arguments.empty()) {
        const Place source = this->value(value);
        builder_.about(value);
        builder_.emit(access == Access::Let ? Op::LetField : Op::SetField, member.field,
                      source.field);
        builder_.release_to(height);
        return;
    }
    if (member.is_field()) {
        store_element(std::nullopt, ast::as<ast::Apply>(target), value, access);
        return;
    }
    const Ref<Procedure>& procedure = access == Access::Let ? member.let : member.set;
    const ast::Expression& named =
        target.kind == ExpressionKind::Apply ? *ast::as<ast::Apply>(target).callee : target;
    const ast::Name& name = ast::as<ast::Identifier>(named).name;
    if (!procedure) {
        const bool is_property = member.let || member.set;
        fail(is_property ? ErrorNumber::PropertyOrMethodNotSupported
                         : ErrorNumber::IllegalAssignment,
             name, {});
        return;
    }
    std::vector<const ast::Expression*> all(arguments.begin(), arguments.end());
    all.push_back(&value);
    Window window = open_window(static_cast<std::uint32_t>(all.size()) + 1, all,
                                {.place = {}, .use = ResultUse::Nothing});
    pass_arguments(window, 1, arguments, procedure.get());
    value_into(value, CodeBuilder::neighbour(window.first,
                                             static_cast<std::uint32_t>(arguments.size()) + 1));
    builder_.code().callees.push_back(procedure.get());
    builder_.about(name.spelled);
    builder_.emit(Op::CallOwn, window.first.field, window.result.field,
                  static_cast<std::int32_t>(builder_.code().callees.size() - 1),
                  extra(all.size(), ResultUse::Nothing));
    close_window(window);
}

void Compiler::assign_member(const ast::Member& target, Arguments arguments,
                             const ast::Expression& value, Access access) {
    const std::uint32_t height = builder_.temporaries();
    Place object = this->value(*target.object);
    if (may_run_script(arguments)) {
        object = copy_of(object);
    }
    object = keep(object, value);
    assign_member_of(object, target, target.name, arguments, value, access);
    builder_.release_to(height);
}

void Compiler::assign_member_of(Place object, const ast::Expression& subject, const ast::Name& name,
                                Arguments arguments, const ast::Expression& value, Access access) {
    const auto count = static_cast<std::uint32_t>(arguments.size()) + 1;
    Window window = open_window(count + 1, arguments, {.place = {}, .use = ResultUse::Nothing});
    pass_arguments(window, 1, arguments, nullptr);
    value_into(value, CodeBuilder::neighbour(window.first, count));
    builder_.about(subject);
    builder_.emit(access == Access::Let ? Op::LetMember : Op::SetMember, window.first.field, 0,
                  static_cast<std::int32_t>(new_site(name, object)),
                  extra(count, ResultUse::Nothing));
    close_window(window);
}

void Compiler::assign_element(const ast::Apply& target, const ast::Expression& value,
                              Access access) {
    if (target.callee->kind == ExpressionKind::Member) {
        assign_member(ast::as<ast::Member>(*target.callee), target.arguments, value, access);
        return;
    }
    if (target.callee->kind == ExpressionKind::Identifier) {
        const auto& name = ast::as<ast::Identifier>(*target.callee);
        const Binding binding = scope_.resolve(name.name);
        if (binding.kind != Binding::Kind::Variable && binding.kind != Binding::Kind::Object) {
            assign_call(target, binding, value, access);
            return;
        }
        store_element(binding.place, target, value, access);
        return;
    }
    store_element(std::nullopt, target, value, access);
}

// `name(arguments) = value` where the name is no variable.
void Compiler::assign_call(const ast::Apply& target, const Binding& binding,
                           const ast::Expression& value, Access access) {
    const auto& callee = ast::as<ast::Identifier>(*target.callee);
    switch (binding.kind) {
        case Binding::Kind::OwnMember:
            assign_own(*binding.member, target, target.arguments, value, access);
            return;
        case Binding::Kind::GlobalMember:
            assign_member_of(binding.place, callee, callee.name, target.arguments, value, access);
            return;
        case Binding::Kind::Undefined:
            fail(ErrorNumber::VariableUndefined, callee.name, {});
            return;
        case Binding::Kind::Constant:
        case Binding::Kind::Procedure:
            fail(ErrorNumber::TypeMismatch, callee.name, {});
            return;
        default:
            fail(ErrorNumber::IllegalAssignment, callee.name, {});
            return;
    }
}

// Indexes and value come before the array is looked for, since reading them may run script.
// `array` is where it stands; without one it is what `target` names.
void Compiler::store_element(std::optional<Place> array, const ast::Apply& target,
                             const ast::Expression& value, Access access) {
    const std::uint32_t height = builder_.temporaries();
    const std::uint32_t references = builder_.references();
    const auto& indexes = target.arguments;
    const auto count = static_cast<std::uint32_t>(indexes.size());
    const auto where = [&] {
        const Place place = array ? *array : address(*target.callee);
        builder_.about(*target.callee);
        return place;
    };
    if (count == 1 && indexes.front() != nullptr) {
        const Place index = keep(this->value(*indexes.front()), value);
        const Place source = this->value(value);
        const Place place = where();
        builder_.emit(access == Access::Let ? Op::LetElement : Op::SetElement, place.field,
                      index.field, source.field);
        if (place.is_temporary) {
            builder_.emit(Op::Clear, place.field);
        }
    } else {
        const Place window = builder_.new_window(count + 1);
        for (std::uint32_t place = 0; place < count; ++place) {
            const Place into = CodeBuilder::neighbour(window, place);
            if (indexes[place] == nullptr) {
                builder_.emit(Op::Move, into.field, builder_.constant(Value(kMissing)).field);
            } else {
                value_into(*indexes[place], into);
            }
        }
        value_into(value, CodeBuilder::neighbour(window, count));
        const Place place = where();
        builder_.emit(access == Access::Let ? Op::LetElementMany : Op::SetElementMany, place.field,
                      window.field, 0, static_cast<int>(count));
    }
    builder_.release_to(height);
    // What stands in the stead of a reference, when an index led to no array, ends here.
    if (!array && target.callee->kind == ExpressionKind::Apply) {
        clear_references(references);
    }
    builder_.release_references_to(references);
}

void Compiler::clear_references(std::uint32_t height) {
    for (std::uint32_t number = height; number < builder_.references(); ++number) {
        builder_.emit(Op::Clear, builder_.reference(number).field);
    }
}

std::optional<Place> Compiler::address_of_name(const ast::Identifier& node) {
    const Binding binding = scope_.resolve(node.name);
    if (binding.kind == Binding::Kind::Variable) {
        return binding.place;
    }
    if (binding.kind == Binding::Kind::OwnMember && binding.member->is_field()) {
        const Place reference = builder_.new_reference();
        builder_.emit(Op::FieldReference, reference.field, binding.member->field);
        return reference;
    }
    return std::nullopt;
}

// Whether the innermost callee of a(1)(2) is a variable, so that the elements can be changed.
bool Compiler::is_element_of_variable(const ast::Expression& node) {
    const ast::Expression* callee = &node;
    while (callee->kind == ExpressionKind::Apply) {
        const auto& element = ast::as<ast::Apply>(*callee);
        const bool has_indexes =
            !element.arguments.empty() &&
            std::ranges::find(element.arguments, nullptr) == element.arguments.end();
        if (!has_indexes) {
            return false;
        }
        callee = element.callee;
    }
    if (callee->kind != ExpressionKind::Identifier || callee == &node) {
        return false;
    }
    const Binding binding = scope_.resolve(ast::as<ast::Identifier>(*callee).name);
    return binding.kind == Binding::Kind::Variable ||
           (binding.kind == Binding::Kind::OwnMember && binding.member->is_field());
}

Place Compiler::address(const ast::Expression& node) {
    if (node.kind == ExpressionKind::Identifier) {
        if (const auto place = address_of_name(ast::as<ast::Identifier>(node))) {
            return *place;
        }
    }
    if (!is_element_of_variable(node)) {
        return value(node);
    }
    const auto& element = ast::as<ast::Apply>(node);
    const Place reference = builder_.new_reference();
    const auto count = static_cast<std::uint32_t>(element.arguments.size());
    const Place window = builder_.new_window(count);
    for (std::uint32_t place = 0; place < count; ++place) {
        value_into(*element.arguments[place], CodeBuilder::neighbour(window, place));
    }
    const Place array = address(*element.callee);
    builder_.about(*element.callee);
    builder_.emit(Op::ElementReference, reference.field, array.field, window.field,
                  static_cast<int>(count));
    return reference;
}

}  // namespace vbscript
