#include "vbscript/machine/compiler.h"
#include "vbscript/machine/statement_walk.h"

// Variables that nobody declares, outside of procedures. They begin with their first assignment, or
// when they are passed to a procedure; procedures that are called before do not see them.

namespace vbscript {

using ast::ExpressionKind;
using ast::StatementKind;

void Compiler::begin_variable(const ast::Name& name) {
    const NameId id = scope_.id_of(name);
    static_cast<void>(scope_.resolve(name));
    if (!scope_.is_still_unused(id)) {
        return;
    }
    builder_.emit(Op::BeginVariable, 0, 0, static_cast<std::int32_t>(id));
}

void Compiler::begin_target(const ast::Expression& target) {
    if (target.kind == ExpressionKind::Identifier) {
        begin_variable(ast::as<ast::Identifier>(target).name);
    }
}

void Compiler::begin_variables_of(const ast::Statement& node) {
    switch (node.kind) {
        case StatementKind::Assign:
            begin_target(*ast::as<ast::Assign>(node).target);
            return;
        case StatementKind::SetAssign:
            begin_target(*ast::as<ast::SetAssign>(node).target);
            return;
        case StatementKind::For:
            begin_variable(ast::as<ast::For>(node).variable);
            return;
        case StatementKind::ForEach:
            begin_variable(ast::as<ast::ForEach>(node).variable);
            return;
        case StatementKind::Call:
            for (const ast::Expression* argument : ast::as<ast::Call>(node).arguments) {
                if (argument != nullptr) {
                    begin_target(*argument);
                }
            }
            return;
        default:
            return;
    }
}

// What a loop assigns begins before the loop.
void Compiler::begin_variables_in_loop(const ast::Statement& loop) {
    const ast::Statement* const statements[] = {&loop};
    for_each_statement(statements,
                       [this](const ast::Statement& node) { begin_variables_of(node); });
}

}  // namespace vbscript
