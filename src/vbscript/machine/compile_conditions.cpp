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
    return static_cast<Op>(static_cast<int>(family) + distance);
}

}  // namespace

bool Compiler::jump_on_comparison(const ast::Expression& condition, Label& target, Op first,
                                  Op first_with_number) {
    if (condition.kind != ExpressionKind::Binary) return false;
    const auto& comparison = ast::as<ast::Binary>(condition);
    const auto distance = comparison_of(comparison.operation);
    if (!distance) return false;
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

void Compiler::jump_unless(const ast::Expression& condition, Label& target) {
    if (condition.kind == ExpressionKind::Parenthesized) {
        jump_unless(*ast::as<ast::Parenthesized>(condition).inner, target);
        return;
    }
    const auto constant = constant_of(condition);
    if (constant && constant->is(Type::Boolean) && constant->boolean()) return;
    if (jump_on_comparison(condition, target, Op::JumpUnlessEqual, Op::JumpUnlessEqualNumber)) {
        return;
    }
    const std::uint32_t height = builder_.temporaries();
    builder_.jump(Op::JumpUnless, target, value(condition).field);
    builder_.release_to(height);
}

void Compiler::jump_if(const ast::Expression& condition, Label& target) {
    if (condition.kind == ExpressionKind::Parenthesized) {
        jump_if(*ast::as<ast::Parenthesized>(condition).inner, target);
        return;
    }
    const auto constant = constant_of(condition);
    if (constant && constant->is(Type::Boolean)) {
        if (constant->boolean()) builder_.jump(Op::Jump, target);
        return;
    }
    if (jump_on_comparison(condition, target, Op::JumpIfEqual, Op::JumpIfEqualNumber)) return;
    const std::uint32_t height = builder_.temporaries();
    builder_.jump(Op::JumpIf, target, value(condition).field);
    builder_.release_to(height);
}

}  // namespace vbscript
