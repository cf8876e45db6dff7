#include "vbscript/machine/compiler.h"

namespace vbscript {

using ast::StatementKind;

void Compiler::block(ast::Block statements) {
    for (const ast::Statement* node : statements) {
        statement(*node);
    }
}

void Compiler::statement(const ast::Statement& node) {
    builder_.begin_statement(node.position);
    if (!is_outside_of_loops()) {
        compile(node);
        return;
    }
    switch (node.kind) {
        case StatementKind::For:
        case StatementKind::ForEach:
        case StatementKind::Do:
        case StatementKind::While:
            begin_variables_in_loop(node);
            ++loop_depth_;
            compile(node);
            --loop_depth_;
            return;
        case StatementKind::Call:
            begin_variables_of(node);
            compile(node);
            return;
        default:
            compile(node);
            begin_variables_of(node);
            return;
    }
}

// One case for each kind of statement. NOLINTNEXTLINE(readability-function-size)
void Compiler::compile(const ast::Statement& node) {
    switch (node.kind) {
        case StatementKind::Dim:
        case StatementKind::Const:
        case StatementKind::Stop:
            return;
        case StatementKind::ReDim:
            compile_redim(ast::as<ast::ReDim>(node));
            return;
        case StatementKind::Erase:
            compile_erase(ast::as<ast::Erase>(node));
            return;
        case StatementKind::Assign: {
            const auto& assignment = ast::as<ast::Assign>(node);
            assign(*assignment.target, *assignment.value, Access::Let);
            return;
        }
        case StatementKind::SetAssign: {
            const auto& assignment = ast::as<ast::SetAssign>(node);
            assign(*assignment.target, *assignment.value, Access::Set);
            return;
        }
        case StatementKind::Call:
            call_statement(ast::as<ast::Call>(node));
            return;
        case StatementKind::If:
            compile_if(ast::as<ast::If>(node));
            return;
        case StatementKind::SelectCase:
            compile_select(ast::as<ast::SelectCase>(node));
            return;
        case StatementKind::For:
            compile_for(ast::as<ast::For>(node));
            return;
        case StatementKind::ForEach:
            compile_for_each(ast::as<ast::ForEach>(node));
            return;
        case StatementKind::Do:
            compile_do(ast::as<ast::Do>(node));
            return;
        case StatementKind::While: {
            const auto& loop = ast::as<ast::While>(node);
            loop_while(*loop.condition, false, loop.body, loop.position, loop.end,
                       Enclosing::Kind::Other);
            return;
        }
        case StatementKind::With:
            compile_with(ast::as<ast::With>(node));
            return;
        case StatementKind::Exit:
            compile_exit(ast::as<ast::Exit>(node));
            return;
        case StatementKind::OnError:
            builder_.emit(ast::as<ast::OnError>(node).resume_next ? Op::OnErrorResumeNext
                                                                  : Op::OnErrorGoToZero);
            return;
    }
}

// The jumps out of branches are statements of their own: an error in the last statement of a
// branch goes on there, not in the next branch.
void Compiler::compile_if(const ast::If& node) {
    const Label end = builder_.new_label();
    for (std::size_t number = 0; number < node.branches.size(); ++number) {
        const ast::Branch& branch = node.branches[number];
        const bool is_last = number + 1 == node.branches.size() && node.otherwise.empty();
        const Label next = builder_.new_label();
        builder_.begin_statement(branch.position);
        const Label body = builder_.new_label();
        jump_unless(*branch.condition, {next, body});
        builder_.bind(body);
        block(branch.body);
        if (!is_last) {
            builder_.begin_statement(branch.position);
            builder_.jump(Op::Jump, end);
        }
        builder_.bind(next);
    }
    block(node.otherwise);
    builder_.bind(end);
}

void Compiler::compile_select(const ast::SelectCase& node) {
    const std::uint32_t subject = builder_.new_local();
    const Place place = CodeBuilder::local(subject);
    const std::uint32_t height = builder_.temporaries();
    expression(*node.subject, {place, ResultUse::Let});
    builder_.release_to(height);
    const Label end = builder_.new_label();
    for (const ast::Case& branch : node.cases) {
        const Label body = builder_.new_label();
        const Label next = builder_.new_label();
        builder_.begin_statement(branch.position);
        for (const ast::Expression* candidate : branch.values) {
            builder_.jump(Op::JumpIfCase, body, place.field, value(*candidate).field);
            builder_.release_to(height);
        }
        builder_.jump(Op::Jump, next);
        builder_.bind(body);
        block(branch.body);
        builder_.begin_statement(branch.position);
        builder_.jump(Op::Jump, end);
        builder_.bind(next);
    }
    block(node.otherwise);
    builder_.bind(end);
    clear(subject);
}

void Compiler::compile_with(const ast::With& node) {
    const std::uint32_t object = builder_.new_local();
    const std::uint32_t height = builder_.temporaries();
    const Place source = value(*node.object);
    builder_.about(*node.object);
    builder_.emit(Op::WithObject, CodeBuilder::local(object).field, source.field);
    builder_.release_to(height);
    with_objects_.push_back(object);
    enclosing_.push_back({Enclosing::Kind::With, {}, object, true});
    block(node.body);
    enclosing_.pop_back();
    with_objects_.pop_back();
    builder_.begin_statement(node.position);
    clear(object);
}

void Compiler::clear(std::uint32_t local) {
    builder_.emit(Op::Clear, CodeBuilder::local(local).field);
}

void Compiler::compile_exit(const ast::Exit& node) {
    const bool leaves_loop =
        node.target == ast::ExitTarget::Do || node.target == ast::ExitTarget::For;
    if (!leaves_loop) {
        builder_.emit(Op::ClearError);
        leave_return();
        return;
    }
    const auto wanted =
        node.target == ast::ExitTarget::Do ? Enclosing::Kind::Do : Enclosing::Kind::For;
    for (auto around = enclosing_.rbegin(); around != enclosing_.rend(); ++around) {
        if (around->kind == wanted) {
            builder_.jump(Op::Jump, around->exit);
            return;
        }
        if (around->has_local) {
            clear(around->local);
        }
    }
}

void Compiler::leave_return() {
    if (result_) {
        builder_.emit(Op::Return, CodeBuilder::local(*result_).field);
    } else {
        builder_.emit(Op::ReturnNothing);
    }
}

void Compiler::compile_redim(const ast::ReDim& node) {
    for (const ast::ReDimItem& item : node.items) {
        builder_.begin_statement(item.position);
        const std::uint32_t height = builder_.temporaries();
        const std::uint32_t references = builder_.references();
        const auto count = static_cast<std::uint32_t>(item.bounds.size());
        const Place window = builder_.new_window(count);
        for (std::uint32_t place = 0; place < count; ++place) {
            value_into(*item.bounds[place], CodeBuilder::neighbour(window, place));
        }
        ast::Identifier target;
        target.kind = ast::ExpressionKind::Identifier;
        target.position = item.position;
        target.name = item.name;
        if (const auto variable = address_of_name(target)) {
            builder_.about(item.name.spelled);
            builder_.emit(Op::Redim, variable->field, window.field, node.preserve ? 1 : 0,
                          static_cast<int>(count));
        } else {
            fail(ErrorNumber::IllegalAssignment, item.name, {});
        }
        builder_.release_to(height);
        builder_.release_references_to(references);
    }
}

void Compiler::compile_erase(const ast::Erase& node) {
    for (const ast::Expression* target : node.targets) {
        const std::uint32_t height = builder_.temporaries();
        const std::uint32_t references = builder_.references();
        const Place array = address(*target);
        builder_.about(*target);
        builder_.emit(Op::Erase, array.field);
        builder_.release_to(height);
        clear_references(references);
        builder_.release_references_to(references);
    }
}

}  // namespace vbscript
