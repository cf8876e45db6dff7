#include "vbscript/machine/compiler.h"

namespace vbscript {

namespace {

using ast::BinaryOperator;
using ast::ExpressionKind;

// How far a comparison stands behind the one for "=" in its family of instructions.
std::optional<int> comparison_of(BinaryOperator operation) noexcept {
    switch (operation) {
        case BinaryOperator::Equal:
            return 0;
        case BinaryOperator::NotEqual:
            return 1;
        case BinaryOperator::Less:
            return 2;
        case BinaryOperator::LessOrEqual:
            return 3;
        case BinaryOperator::Greater:
            return 4;
        case BinaryOperator::GreaterOrEqual:
            return 5;
        default:
            return std::nullopt;
    }
}

Op member_of(Op family, int distance) noexcept {
    // Each has its near form behind it.
    return static_cast<Op>(static_cast<int>(family) + 2 * distance);
}

}  // namespace

bool Compiler::jump_on_comparison(const ast::Expression& condition, Label target, Op first,
                                  Op first_with_number) {
    if (condition.kind != ExpressionKind::Binary) {
        return false;
    }
    const auto& comparison = ast::as<ast::Binary>(condition);
    const auto distance = comparison_of(comparison.operation);
    if (!distance) {
        return false;
    }
    const std::uint32_t height = builder_.temporaries();
    const Place left = keep(value(*comparison.left), *comparison.right);
    if (const auto number = small_number(*comparison.right)) {
        builder_.jump(member_of(first_with_number, *distance), target, left.field, 0, *number);
    } else {
        const Place right = value(*comparison.right);
        builder_.jump(member_of(first, *distance), target, left.field, right.field);
    }
    builder_.release_to(height);
    return true;
}

// Whether the expression gives nothing but True, False or Null.
bool Compiler::is_truth(const ast::Expression& node) noexcept {
    switch (node.kind) {
        case ExpressionKind::Parenthesized:
            return is_truth(*ast::as<ast::Parenthesized>(node).inner);
        case ExpressionKind::Unary: {
            const auto& operation = ast::as<ast::Unary>(node);
            return operation.operation == ast::UnaryOperator::Not && is_truth(*operation.operand);
        }
        case ExpressionKind::Binary: {
            const auto& operation = ast::as<ast::Binary>(node);
            if (comparison_of(operation.operation)) {
                return true;
            }
            if (operation.operation == BinaryOperator::Is) {
                return true;
            }
            const bool joins = operation.operation == BinaryOperator::And ||
                               operation.operation == BinaryOperator::Or;
            return joins && is_truth(*operation.left) && is_truth(*operation.right);
        }
        default:
            return false;
    }
}

// `a And b`, `a Or b` of truths. If `a` decides, the rest is left over: see `Leftover`.
bool Compiler::jump_on_parts(const ast::Expression& condition, Target target, bool jumps_if) {
    if (condition.kind != ExpressionKind::Binary || !is_truth(condition)) {
        return false;
    }
    const auto& operation = ast::as<ast::Binary>(condition);
    const bool is_and = operation.operation == BinaryOperator::And;
    if (!is_and && operation.operation != BinaryOperator::Or) {
        return false;
    }
    const Label behind = builder_.new_label();
    const Label decided = builder_.new_label();
    const Label then = is_and == jumps_if ? behind : target.jump;
    const ast::Position position = builder_.code().places.back().position;
    leftovers_.push_back({decided, operation.right, then, target.body, position});
    if (is_and) {
        jump_unless(*operation.left, {decided, target.body});
    } else {
        jump_if(*operation.left, {decided, target.body});
    }
    if (jumps_if) {
        jump_if(*operation.right, target);
    } else {
        jump_unless(*operation.right, target);
    }
    builder_.bind(behind);
    return true;
}

void Compiler::compile_leftovers() {
    for (std::size_t number = 0; number < leftovers_.size(); ++number) {
        const Leftover leftover = leftovers_[number];
        builder_.begin_statement(leftover.position, builder_.place_of(leftover.resume));
        builder_.bind(leftover.begin);
        const std::uint32_t height = builder_.temporaries();
        static_cast<void>(value(*leftover.part));
        builder_.jump(Op::Jump, leftover.then);
        builder_.release_to(height);
    }
}

void Compiler::jump_unless(const ast::Expression& condition, Target target) {
    if (condition.kind == ExpressionKind::Parenthesized) {
        jump_unless(*ast::as<ast::Parenthesized>(condition).inner, target);
        return;
    }
    const auto constant = constant_of(condition);
    if (constant && constant->is(Type::Boolean) && constant->boolean()) {
        return;
    }
    if (jump_on_comparison(condition, target.jump, Op::JumpUnlessEqual,
                           Op::JumpUnlessEqualNumber) ||
        jump_on_parts(condition, target, false)) {
        return;
    }
    const std::uint32_t height = builder_.temporaries();
    builder_.jump(Op::JumpUnless, target.jump, value(condition).field);
    builder_.release_to(height);
}

void Compiler::jump_if(const ast::Expression& condition, Target target) {
    if (condition.kind == ExpressionKind::Parenthesized) {
        jump_if(*ast::as<ast::Parenthesized>(condition).inner, target);
        return;
    }
    const auto constant = constant_of(condition);
    if (constant && constant->is(Type::Boolean)) {
        if (constant->boolean()) {
            builder_.jump(Op::Jump, target.jump);
        }
        return;
    }
    if (jump_on_comparison(condition, target.jump, Op::JumpIfEqual, Op::JumpIfEqualNumber) ||
        jump_on_parts(condition, target, true)) {
        return;
    }
    const std::uint32_t height = builder_.temporaries();
    builder_.jump(Op::JumpIf, target.jump, value(condition).field);
    builder_.release_to(height);
}

}  // namespace vbscript
