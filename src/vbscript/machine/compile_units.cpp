#include <utility>

#include "vbscript/machine/compiler.h"
#include "vbscript/machine/literals.h"
#include "vbscript/machine/statement_walk.h"

namespace vbscript {

namespace {

using ast::StatementKind;

CodeBuilder::Kind kind_of(const UnitContext& context) noexcept {
    const bool is_outside = context.procedure == nullptr && !context.is_variable_around;
    return is_outside ? CodeBuilder::Kind::Outside : CodeBuilder::Kind::Procedure;
}

}  // namespace

Compiler::Compiler(UnitContext context)
    : context_(std::move(context)),
      builder_(context_.symbols->arena(), kind_of(context_)),
      scope_(context_, builder_) {}

// Variables exist from the start of a unit, wherever their Dim stands; so do constants.
void Compiler::declare_all(ast::Block block) {
    for_each_statement(block, [this](const ast::Statement& node) {
        switch (node.kind) {
            case StatementKind::Dim: {
                const auto& dim = ast::as<ast::Dim>(node);
                for (const ast::Declarator& variable : dim.variables) {
                    scope_.declare_variable(variable.name);
                }
                make_arrays(dim.variables);
                break;
            }
            case StatementKind::Const:
                for (const ast::Constant& constant : ast::as<ast::Const>(node).constants) {
                    scope_.declare_constant(constant.name, value_of(constant.value));
                }
                break;
            case StatementKind::ReDim:
                declare_redim(ast::as<ast::ReDim>(node));
                break;
            case StatementKind::OnError:
                resumes_next_ = resumes_next_ || ast::as<ast::OnError>(node).resume_next;
                break;
            default:
                break;
        }
    });
}

// ReDim makes a variable of a name that has no other meaning, also under Option Explicit.
void Compiler::declare_redim(const ast::ReDim& node) {
    for (const ast::ReDimItem& item : node.items) {
        if (!scope_.is_known(item.name)) {
            scope_.declare_variable(item.name);
        }
    }
}

void Compiler::make_arrays(std::span<const ast::Declarator> variables) {
    for (const ast::Declarator& variable : variables) {
        if (!variable.is_array) {
            continue;
        }
        auto& bounds = builder_.code().bounds;
        bounds.emplace_back(variable.bounds.begin(), variable.bounds.end());
        builder_.begin_statement(variable.position);
        builder_.emit(Op::MakeArray, scope_.resolve(variable.name).place.field, 0,
                      static_cast<std::int32_t>(bounds.size() - 1));
    }
}

void Compiler::finish_body(ast::Position end) {
    builder_.begin_statement(end);
    leave_return();
    compile_leftovers();
}

Ref<Code> Compiler::finish(std::shared_ptr<const Program> program) {
    Code& code = builder_.code();
    code.module = context_.module;
    code.owner = context_.owner;
    code.procedure = context_.procedure != nullptr ? context_.procedure : context_.around;
    code.program = std::move(program);
    code.option_explicit = context_.option_explicit;
    if (code.has_dynamic_names) {
        scope_.list_registers(code);
    }
    return builder_.finish();
}

// Me is the first register of a method.
void Compiler::add_me() {
    static_cast<void>(builder_.new_local());
}

Ref<Code> Compiler::compile_procedure(const Procedure& procedure) {
    const ast::Procedure& tree = *procedure.tree;
    Code& code = builder_.code();
    if (context_.owner != nullptr) {
        add_me();
    }
    for (const ast::Parameter& parameter : tree.parameters) {
        const std::uint32_t number = builder_.new_local();
        scope_.add_register(parameter.name, number, !parameter.by_value, false);
        if (parameter.by_value) {
            code.by_value.push_back(number);
        }
    }
    code.argument_count = static_cast<std::uint32_t>(tree.parameters.size());
    code.first_local = code.argument_count + (context_.owner != nullptr ? 1 : 0);
    if (procedure.has_result()) {
        result_ = builder_.new_local();
        scope_.add_register(tree.name, *result_, false, true);
    }
    declare_all(tree.body);
    block(tree.body);
    finish_body(tree.end);
    return finish(procedure.program);
}

Ref<Code> Compiler::compile_outside(std::shared_ptr<const Program> program) {
    compile_body_or_expression(*program);
    return finish(std::move(program));
}

Ref<Code> Compiler::compile_inside(std::shared_ptr<const Program> program) {
    if (context_.owner != nullptr) {
        add_me();
    }
    builder_.code().has_dynamic_names = true;
    compile_body_or_expression(*program);
    return finish(std::move(program));
}

void Compiler::compile_body_or_expression(const Program& program) {
    if (const ast::Expression* expression = program.expression()) {
        builder_.begin_statement(expression->position);
        builder_.emit(Op::Return, value(*expression).field);
        return;
    }
    declare_all(program.body());
    block(program.body());
    finish_body(program.body().empty() ? ast::Position{} : program.body().back()->position);
}

}  // namespace vbscript
