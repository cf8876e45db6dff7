#include <algorithm>

#include "vbscript/machine/compiler.h"

namespace vbscript {

namespace {

using ast::ExpressionKind;

}  // namespace

void Compiler::require(bool fits) {
    if (!fits) {
        throw ScriptError(ErrorNumber::OutOfMemory);
    }
}

int Compiler::extra(std::size_t arguments, ResultUse use) const {
    require(arguments <= static_cast<std::size_t>(kMostArguments));
    return static_cast<int>(arguments) | (static_cast<int>(use) << kResultUseShift);
}

std::uint32_t Compiler::new_site(const ast::Name& name, Place object) {
    auto& sites = builder_.code().sites;
    MemberSite& site = sites.emplace_back();
    site.name = name.spelled;
    site.folded = name.folded;
    site.object = object.field;
    return static_cast<std::uint32_t>(sites.size() - 1);
}

bool Compiler::may_be_element(const ast::Expression* argument) noexcept {
    return argument != nullptr && argument->kind == ExpressionKind::Apply &&
           ast::as<ast::Apply>(*argument).callee->kind == ExpressionKind::Identifier;
}

Compiler::Window Compiler::open_window(std::uint32_t places, Arguments arguments,
                                       const Want& want) {
    Window window;
    window.height = builder_.temporaries();
    const bool has_locks = std::ranges::any_of(arguments, &Compiler::may_be_element);
    if (has_locks) {
        static_cast<void>(builder_.new_temporary());
    }
    window.result = want.place ? *want.place : CodeBuilder::temporary(window.height);
    for (const ast::Expression* argument : arguments) {
        if (!may_be_element(argument)) {
            continue;
        }
        const auto indexes = ast::as<ast::Apply>(*argument).arguments.size();
        window.locks.push_back({builder_.new_window(static_cast<std::uint32_t>(indexes) + 1)});
    }
    window.first = builder_.new_window(std::max(places, 1U));
    window.has_result_place = want.place.has_value();
    return window;
}

Place Compiler::close_window(Window& window) {
    for (const Lock& lock : window.locks) {
        if (lock.is_used) {
            builder_.emit(Op::Unlock, lock.place.field);
        }
    }
    builder_.release_to(window.height);
    return window.has_result_place ? window.result : builder_.new_temporary();
}

void Compiler::pass_arguments(Window& window, std::uint32_t skip, Arguments arguments,
                              const Procedure* callee) {
    std::size_t lock = 0;
    for (std::size_t number = 0; number < arguments.size(); ++number) {
        const bool by_value = callee != nullptr && number < callee->tree->parameters.size() &&
                              callee->tree->parameters[number].by_value;
        const Place place =
            CodeBuilder::neighbour(window.first, skip + static_cast<std::uint32_t>(number));
        pass_argument(window, arguments[number], place, by_value, lock);
        if (may_be_element(arguments[number])) {
            ++lock;
        }
    }
}

void Compiler::pass_argument(Window& window, const ast::Expression* argument, Place place,
                             bool by_value, std::size_t lock) {
    if (argument == nullptr) {
        builder_.emit(Op::Move, place.field, builder_.constant(Value(kMissing)).field);
        return;
    }
    const bool is_passed =
        !by_value && ((argument->kind == ExpressionKind::Identifier &&
                       pass_variable(ast::as<ast::Identifier>(*argument), place)) ||
                      (may_be_element(argument) &&
                       pass_element(window.locks[lock], ast::as<ast::Apply>(*argument), place)));
    if (!is_passed) {
        value_into(*argument, place);
    }
}

bool Compiler::pass_variable(const ast::Identifier& argument, Place place) {
    const Binding binding = scope_.resolve(argument.name);
    if (binding.kind == Binding::Kind::Variable) {
        builder_.emit(Op::PassReference, place.field, binding.place.field);
        return true;
    }
    if (binding.kind == Binding::Kind::OwnMember && binding.member->is_field()) {
        builder_.emit(Op::FieldReference, place.field, binding.member->field);
        return true;
    }
    return false;
}

bool Compiler::pass_element(Lock& lock, const ast::Apply& argument, Place place) {
    if (!is_element_of_variable(argument)) {
        return false;
    }
    const auto& name = ast::as<ast::Identifier>(*argument.callee);
    if (scope_.resolve(name.name).is_result) {
        return false;
    }
    const auto count = static_cast<std::uint32_t>(argument.arguments.size());
    for (std::uint32_t index = 0; index < count; ++index) {
        value_into(*argument.arguments[index], CodeBuilder::neighbour(lock.place, index + 1));
    }
    const std::uint32_t references = builder_.references();
    const Place array = *address_of_name(name);
    builder_.about(name);
    builder_.emit(Op::PassElement, place.field, array.field, lock.place.field,
                  static_cast<int>(count));
    builder_.release_references_to(references);
    lock.is_used = true;
    return true;
}

Place Compiler::apply(const ast::Apply& node, Want want) {
    if (node.callee->kind == ExpressionKind::Member) {
        return call_member(ast::as<ast::Member>(*node.callee), node.arguments, want);
    }
    if (node.callee->kind == ExpressionKind::Identifier) {
        const auto& callee = ast::as<ast::Identifier>(*node.callee);
        return call_named(callee, scope_.resolve(callee.name), node.arguments, want, false);
    }
    const std::uint32_t height = builder_.temporaries();
    const Place callee = value(*node.callee);
    const Place result = call_value(callee, *node.callee, node.arguments, want);
    return raise(result, height, want);
}

// The result of a call whose callee stood in a temporary goes to the lowest free one.
Place Compiler::raise(Place result, std::uint32_t height, const Want& want) {
    builder_.release_to(height);
    if (want.place) {
        return result;
    }
    const Place lowest = builder_.new_temporary();
    if (result.is_temporary && result != lowest && want.use != ResultUse::Nothing) {
        builder_.emit(Op::Move, lowest.field, result.field);
        return lowest;
    }
    return result;
}

Place Compiler::call_named(const ast::Identifier& callee, const Binding& binding,
                           Arguments arguments, Want want, bool is_statement) {
    switch (binding.kind) {
        case Binding::Kind::Variable:
            if (binding.is_result) {
                return call_itself(arguments, want);
            }
            return call_value(binding.place, callee, arguments, want);
        case Binding::Kind::Object:
            return call_value(binding.place, callee, arguments, want);
        case Binding::Kind::OwnMember:
            return call_own(*binding.member, callee, arguments, want);
        case Binding::Kind::Procedure:
            if (!is_statement && !binding.procedure->has_result()) {
                break;
            }
            return call_procedure(*binding.procedure, arguments, want);
        case Binding::Kind::Library:
            return call_library(*binding.function, callee.name, arguments, want);
        case Binding::Kind::Special:
            return call_special(binding.special, callee.name, arguments, want);
        case Binding::Kind::GlobalMember:
            return call_member_of(binding.place, callee, callee.name, arguments, want);
        case Binding::Kind::Undefined:
            return fail(ErrorNumber::VariableUndefined, callee.name, want);
        case Binding::Kind::Constant:
        case Binding::Kind::Class:
            break;
    }
    return fail(ErrorNumber::TypeMismatch, callee.name, want);
}

Place Compiler::call_itself(Arguments arguments, const Want& want) {
    Procedure& self = context_.procedure != nullptr ? *context_.procedure : *context_.around;
    return context_.owner == nullptr ? call_procedure(self, arguments, want)
                                     : call_own_procedure(self, arguments, want);
}

void Compiler::call_statement(const ast::Call& node) {
    const std::uint32_t height = builder_.temporaries();
    const Want want{.place = {}, .use = ResultUse::Nothing};
    if (node.callee->kind == ExpressionKind::Identifier) {
        const auto& callee = ast::as<ast::Identifier>(*node.callee);
        const Binding binding = scope_.resolve(callee.name);
        call_named(callee, binding, node.arguments, want, true);
    } else if (node.callee->kind == ExpressionKind::Member) {
        call_member(ast::as<ast::Member>(*node.callee), node.arguments, want);
    } else {
        const Place callee = value(*node.callee);
        call_value(callee, *node.callee, node.arguments, want);
    }
    builder_.release_to(height);
}

Place Compiler::call_procedure(Procedure& procedure, Arguments arguments, const Want& want) {
    Window window = open_window(static_cast<std::uint32_t>(arguments.size()), arguments, want);
    pass_arguments(window, 0, arguments, &procedure);
    builder_.code().callees.push_back(&procedure);
    builder_.about(procedure.tree->name.spelled);
    builder_.emit(Op::Call, window.first.field, window.result.field,
                  static_cast<std::int32_t>(builder_.code().callees.size() - 1),
                  extra(arguments.size(), want.use));
    return close_window(window);
}

Place Compiler::call_own(const ClassMember& member, const ast::Identifier& callee,
                         Arguments arguments, const Want& want) {
    if (!member.is_field() && member.get) {
        return call_own_procedure(*member.get, arguments, want);
    }
    if (!member.is_field()) {
        return fail(ErrorNumber::PropertyOrMethodNotSupported, callee.name, want);
    }
    const std::uint32_t height = builder_.temporaries();
    if (arguments.empty() && want.use != ResultUse::Nothing) {
        const bool is_direct = want.place && want.use == ResultUse::Value;
        const Place into = is_direct ? *want.place : builder_.new_temporary();
        builder_.emit(Op::LoadField, into.field, member.field);
        if (is_direct || !want.place) {
            return into;
        }
        builder_.release_to(height);
        return settle(into, want);
    }
    const std::uint32_t references = builder_.references();
    const Place reference = builder_.new_reference();
    builder_.emit(Op::FieldReference, reference.field, member.field);
    const Place result = call_value(reference, callee, arguments, want);
    builder_.release_references_to(references);
    return result;
}

Place Compiler::call_own_procedure(Procedure& procedure, Arguments arguments, const Want& want) {
    Window window = open_window(static_cast<std::uint32_t>(arguments.size()) + 1, arguments, want);
    pass_arguments(window, 1, arguments, &procedure);
    builder_.code().callees.push_back(&procedure);
    builder_.about(procedure.tree->name.spelled);
    builder_.emit(Op::CallOwn, window.first.field, window.result.field,
                  static_cast<std::int32_t>(builder_.code().callees.size() - 1),
                  extra(arguments.size(), want.use));
    return close_window(window);
}

Place Compiler::call_member(const ast::Member& node, Arguments arguments, const Want& want) {
    const std::uint32_t height = builder_.temporaries();
    Place object = value(*node.object);
    if (may_run_script(arguments)) {
        object = copy_of(object);
    }
    const Place result = call_member_of(object, node, node.name, arguments, want);
    return raise(result, height, want);
}

Place Compiler::call_member_of(Place object, const ast::Expression& subject, const ast::Name& name,
                               Arguments arguments, const Want& want) {
    Window window = open_window(static_cast<std::uint32_t>(arguments.size()) + 1, arguments, want);
    pass_arguments(window, 1, arguments, nullptr);
    builder_.about(subject);
    builder_.emit(Op::CallMember, window.first.field, window.result.field,
                  static_cast<std::int32_t>(new_site(name, object)),
                  extra(arguments.size(), want.use));
    return close_window(window);
}

Place Compiler::call_library(const LibraryFunction& function, const ast::Name& name,
                             Arguments arguments, const Want& want) {
    const bool fits = arguments.size() >= function.required &&
                      (function.accepted == kAnyNumber || arguments.size() <= function.accepted);
    if (!fits) {
        return fail(ErrorNumber::WrongNumberOfArguments, name, want);
    }
    const std::uint32_t height = builder_.temporaries();
    builder_.code().functions.push_back(&function);
    const auto number = static_cast<std::int32_t>(builder_.code().functions.size() - 1);
    const bool is_single = arguments.size() == 1 && arguments.front() != nullptr;
    Place window;
    if (is_single) {
        window = value(*arguments.front());
    } else {
        const auto count = static_cast<std::uint32_t>(arguments.size());
        window = builder_.new_window(std::max(count, 1U));
        Window passed{.height = height, .result = {}, .first = window};
        for (std::uint32_t place = 0; place < count; ++place) {
            pass_argument(passed, arguments[place], CodeBuilder::neighbour(window, place), true, 0);
        }
    }
    builder_.release_to(height);
    const Place result = target_of(want);
    builder_.about(function.name);
    builder_.emit(is_single ? Op::CallLibraryOne : Op::CallLibrary, window.field, result.field,
                  number, extra(arguments.size(), want.use));
    return result;
}

Place Compiler::call_special(Special special, const ast::Name& name, Arguments arguments,
                             const Want& want) {
    if (arguments.size() != 1 || arguments.front() == nullptr) {
        return fail(ErrorNumber::WrongNumberOfArguments, name, want);
    }
    builder_.code().has_dynamic_names = true;
    const std::uint32_t height = builder_.temporaries();
    const Place text = value(*arguments.front());
    builder_.release_to(height);
    if (special == Special::Eval) {
        const Place result = builder_.new_temporary();
        builder_.emit(Op::Evaluate, result.field, text.field);
        if (!want.place) {
            return result;
        }
        builder_.release_to(height);
        return settle(result, want);
    }
    builder_.emit(Op::Execute, 0, text.field, special == Special::ExecuteGlobal ? 1 : 0);
    return settle(builder_.constant(Value()), want);
}

Place Compiler::call_value(Place callee, const ast::Expression& subject, Arguments arguments,
                           const Want& want) {
    const std::uint32_t height = builder_.temporaries();
    const Place holder = may_run_script(arguments) ? copy_of(callee) : callee;
    const int use = extra(arguments.size(), want.use);
    // What stands in a temporary is left to the general instruction, which ends it.
    const bool is_single = arguments.size() == 1 && arguments.front() != nullptr &&
                           want.use != ResultUse::Nothing && !holder.is_temporary;
    if (is_single) {
        const Place index = value(*arguments.front());
        builder_.release_to(height);
        const Place result = target_of(want);
        builder_.about(subject);
        builder_.emit(Op::Index, result.field, holder.field, index.field, use);
        return result;
    }
    const auto count = static_cast<std::uint32_t>(arguments.size());
    const Place window = builder_.new_window(std::max(count, 1U));
    Window passed{.height = height, .result = {}, .first = window};
    for (std::uint32_t place = 0; place < count; ++place) {
        pass_argument(passed, arguments[place], CodeBuilder::neighbour(window, place), true, 0);
    }
    builder_.release_to(height);
    const Place result = target_of(want);
    builder_.about(subject);
    builder_.emit(Op::IndexMany, result.field, holder.field, window.field, use);
    return result;
}

}  // namespace vbscript
