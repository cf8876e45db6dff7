#include <algorithm>
#include <array>
#include <vector>

#include "vbscript/machine/compiler.h"
#include "vbscript/machine/literals.h"

namespace vbscript {

namespace {

using ast::BinaryOperator;
using ast::ExpressionKind;

// By BinaryOperator.
constexpr auto kOperations = std::to_array<Op>({
    Op::Power,
    Op::Multiply,
    Op::Divide,
    Op::DivideWhole,
    Op::Remainder,
    Op::Add,
    Op::Subtract,
    Op::Concatenate,
    Op::CompareEqual,
    Op::CompareNotEqual,
    Op::CompareLess,
    Op::CompareGreater,
    Op::CompareLessOrEqual,
    Op::CompareGreaterOrEqual,
    Op::Is,
    Op::And,
    Op::Or,
    Op::Xor,
    Op::Eqv,
    Op::Imp,
});

bool is_concatenation(const ast::Expression& node) noexcept {
    return node.kind == ExpressionKind::Binary &&
           ast::as<ast::Binary>(node).operation == BinaryOperator::Concatenate;
}

}  // namespace

Place Compiler::target_of(const Want& want) {
    return want.place ? *want.place : builder_.new_temporary();
}

Place Compiler::settle(Place place, const Want& want) {
    if (!want.place || *want.place == place) {
        return place;
    }
    const Op op = want.use == ResultUse::Let ? Op::Let : Op::Move;
    builder_.emit(op, want.place->field, place.field);
    return *want.place;
}

Place Compiler::fail(ErrorNumber number, const ast::Name& name, const Want& want) {
    builder_.about(name.spelled);
    builder_.emit(Op::Throw, 0, 0, static_cast<std::int32_t>(number));
    return settle(builder_.constant(Value()), want);
}

Place Compiler::expression(const ast::Expression& node, Want want) {
    switch (node.kind) {
        case ExpressionKind::Literal:
            return literal(ast::as<ast::Literal>(node), want);
        case ExpressionKind::Identifier:
            return identifier(ast::as<ast::Identifier>(node), want, false);
        case ExpressionKind::Me:
            return settle(CodeBuilder::local(0), want);
        case ExpressionKind::WithObject:
            return settle(CodeBuilder::local(with_objects_.back()), want);
        case ExpressionKind::Member:
            return call_member(ast::as<ast::Member>(node), {}, want);
        case ExpressionKind::Apply:
            return apply(ast::as<ast::Apply>(node), want);
        case ExpressionKind::Parenthesized:
            return expression(*ast::as<ast::Parenthesized>(node).inner, want);
        case ExpressionKind::New:
            return new_object(ast::as<ast::New>(node), want);
        case ExpressionKind::Unary:
            return unary(ast::as<ast::Unary>(node), want);
        case ExpressionKind::Binary:
            return binary(ast::as<ast::Binary>(node), want);
    }
    return {};
}

Place Compiler::literal(const ast::Literal& node, const Want& want) {
    return settle(builder_.constant(value_of(node.value)), want);
}

Place Compiler::identifier(const ast::Identifier& node, Want want, bool is_statement) {
    const Binding binding = scope_.resolve(node.name);
    const bool is_value = binding.kind == Binding::Kind::Variable && !is_statement;
    if (is_value || (binding.kind == Binding::Kind::Object && !is_statement)) {
        return settle(binding.place, want);
    }
    if (binding.kind == Binding::Kind::Constant && !is_statement) {
        return settle(builder_.constant(binding.constant), want);
    }
    return call_named(node, binding, {}, want, is_statement);
}

std::optional<Value> Compiler::constant_of(const ast::Expression& node) {
    if (node.kind == ExpressionKind::Literal) {
        return value_of(ast::as<ast::Literal>(node).value);
    }
    if (node.kind == ExpressionKind::Identifier) {
        Binding binding = scope_.resolve(ast::as<ast::Identifier>(node).name);
        if (binding.kind == Binding::Kind::Constant) {
            return binding.constant;
        }
    }
    if (node.kind == ExpressionKind::Unary) {
        const auto& operation = ast::as<ast::Unary>(node);
        const bool is_minus = operation.operation == ast::UnaryOperator::Minus;
        if (is_minus && operation.operand->kind == ExpressionKind::Literal) {
            Value value = negated(ast::as<ast::Literal>(*operation.operand).value);
            if (!value.is(Type::Empty)) {
                return value;
            }
        }
    }
    return std::nullopt;
}

std::optional<std::int16_t> Compiler::small_number(const ast::Expression& node) {
    const std::optional<Value> value = constant_of(node);
    if (!value || !value->is(Type::Integer)) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(value->number());
}

Place Compiler::keep(Place place, const ast::Expression& next) {
    return may_run_script(next) ? copy_of(place) : place;
}

Place Compiler::copy_of(Place place) {
    if (place.is_temporary || place.is_constant) {
        return place;
    }
    const Place copy = builder_.new_temporary();
    builder_.emit(Op::Move, copy.field, place.field);
    return copy;
}

Place Compiler::binary(const ast::Binary& node, const Want& want) {
    if (node.operation == BinaryOperator::Concatenate) {
        return concatenate(node, want);
    }
    return plain_binary(kOperations[static_cast<std::size_t>(node.operation)], node, want);
}

Place Compiler::plain_binary(Op op, const ast::Binary& node, const Want& want) {
    // A chain such as a + b + c is deep on its left side: walked down in a loop, and built upwards.
    std::vector<const ast::Binary*> chain{&node};
    const auto is_link = [](const ast::Expression& left) {
        return left.kind == ExpressionKind::Binary && !is_concatenation(left);
    };
    while (is_link(*chain.back()->left)) {
        chain.push_back(&ast::as<ast::Binary>(*chain.back()->left));
    }
    const std::uint32_t height = builder_.temporaries();
    Place left = value(*chain.back()->left);
    for (auto link = chain.rbegin(); link != chain.rend(); ++link) {
        const ast::Binary& part = **link;
        const bool is_last = &part == &node;
        const Op operation = is_last ? op : kOperations[static_cast<std::size_t>(part.operation)];
        const auto number = small_number(*part.right);
        const bool has_number_form = operation == Op::Add || operation == Op::Subtract;
        left = keep(left, *part.right);
        const Place right = number && has_number_form ? Place{} : value(*part.right);
        builder_.release_to(height);
        const Place target = is_last ? target_of(want) : builder_.new_temporary();
        if (number && has_number_form) {
            builder_.emit(operation == Op::Add ? Op::AddNumber : Op::SubtractNumber, target.field,
                          left.field, 0, *number);
        } else {
            builder_.emit(operation, target.field, left.field, right.field);
        }
        left = target;
    }
    return left;
}

Place Compiler::concatenate(const ast::Binary& node, const Want& want) {
    std::vector<const ast::Expression*> parts;
    const ast::Expression* rest = &node;
    while (is_concatenation(*rest)) {
        parts.push_back(ast::as<ast::Binary>(*rest).right);
        rest = ast::as<ast::Binary>(*rest).left;
    }
    parts.push_back(rest);
    if (parts.size() == 2) {
        return plain_binary(Op::Concatenate, node, want);
    }
    std::ranges::reverse(parts);
    const std::uint32_t height = builder_.temporaries();
    const auto count = static_cast<std::uint32_t>(parts.size());
    const Place window = builder_.new_window(count);
    for (std::uint32_t place = 0; place < count; ++place) {
        value_into(*parts[place], CodeBuilder::neighbour(window, place));
    }
    builder_.release_to(height);
    const Place target = target_of(want);
    builder_.emit(Op::ConcatenateMany, target.field, window.field, 0, static_cast<int>(count));
    return target;
}

Place Compiler::unary(const ast::Unary& node, const Want& want) {
    if (const auto constant = constant_of(node)) {
        return settle(builder_.constant(*constant), want);
    }
    constexpr auto kOps = std::to_array<Op>({Op::Negate, Op::Plus, Op::Not});
    const std::uint32_t height = builder_.temporaries();
    const Place operand = value(*node.operand);
    builder_.release_to(height);
    const Place target = target_of(want);
    builder_.emit(kOps[static_cast<std::size_t>(node.operation)], target.field, operand.field);
    return target;
}

Place Compiler::new_object(const ast::New& node, const Want& want) {
    const std::uint32_t height = builder_.temporaries();
    const Place result = builder_.new_temporary();
    const Place window = builder_.new_window(1);
    const NameId id = scope_.id_of(node.class_name);
    const ModuleName* found = context_.symbols->find(*context_.module, id);
    const auto* info = found != nullptr ? std::get_if<Ref<ClassInfo>>(found) : nullptr;
    Code& code = builder_.code();
    if (context_.procedure != nullptr) {
        context_.symbols->watch(id, *context_.procedure);
    }
    if (info != nullptr) {
        code.classes.push_back(info->get());
        builder_.emit(Op::New, window.field, result.field,
                      static_cast<std::int32_t>(code.classes.size() - 1));
    } else {
        code.class_names.push_back(id);
        builder_.about(node.class_name.spelled);
        builder_.emit(Op::NewNamed, 0, result.field,
                      static_cast<std::int32_t>(code.class_names.size() - 1));
    }
    builder_.release_to(height);
    if (want.place) {
        return settle(result, want);
    }
    return builder_.new_temporary();
}

bool Compiler::is_call(const Binding& binding) const noexcept {
    switch (binding.kind) {
        case Binding::Kind::Procedure:
        case Binding::Kind::GlobalMember:
        case Binding::Kind::Special:
            return true;
        case Binding::Kind::OwnMember:
            return !binding.member->is_field();
        default:
            return false;
    }
}

bool Compiler::may_run_script(Arguments arguments) {
    return std::ranges::any_of(arguments, [this](const ast::Expression* argument) {
        return argument != nullptr && may_run_script(*argument);
    });
}

bool Compiler::may_run_script(const ast::Expression& node) {
    switch (node.kind) {
        case ExpressionKind::Literal:
        case ExpressionKind::Me:
        case ExpressionKind::WithObject:
            return false;
        case ExpressionKind::Identifier:
            return is_call(scope_.resolve(ast::as<ast::Identifier>(node).name));
        case ExpressionKind::Member:
        case ExpressionKind::New:
            return true;
        case ExpressionKind::Parenthesized:
            return may_run_script(*ast::as<ast::Parenthesized>(node).inner);
        case ExpressionKind::Unary:
            return may_run_script(*ast::as<ast::Unary>(node).operand);
        case ExpressionKind::Binary: {
            const auto& operation = ast::as<ast::Binary>(node);
            return may_run_script(*operation.left) || may_run_script(*operation.right);
        }
        case ExpressionKind::Apply: {
            const auto& call = ast::as<ast::Apply>(node);
            if (call.callee->kind == ExpressionKind::Identifier) {
                const Binding callee = scope_.resolve(ast::as<ast::Identifier>(*call.callee).name);
                if (callee.is_result || callee.kind == Binding::Kind::Object) {
                    return true;
                }
            }
            return may_run_script(*call.callee) || may_run_script(call.arguments);
        }
    }
    return true;
}

}  // namespace vbscript
