#include "vbscript/machine/compiler.h"

namespace vbscript {

namespace {

// Conditions up to this height stand twice in the code, at both ends of the loop.
constexpr std::uint16_t kMostRepeatedHeight = 6;

}  // namespace

void Compiler::compile_do(const ast::Do& node) {
    using ast::LoopTest;
    if (node.test == LoopTest::WhileFirst || node.test == LoopTest::UntilFirst) {
        loop_while(*node.condition, node.test == LoopTest::UntilFirst, node.body, node.position,
                   node.end, Enclosing::Kind::Do);
        return;
    }
    const Label body = builder_.new_label();
    const Label exit = builder_.new_label();
    builder_.bind(body);
    enclosing_.push_back({Enclosing::Kind::Do, exit});
    block(node.body);
    enclosing_.pop_back();
    builder_.begin_statement(node.end);
    switch (node.test) {
        case LoopTest::WhileLast:
            jump_if(*node.condition, {body, exit});
            break;
        case LoopTest::UntilLast:
            jump_unless(*node.condition, {body, exit});
            break;
        default:
            builder_.jump(Op::Jump, body);
            break;
    }
    builder_.bind(exit);
}

void Compiler::loop_while(const ast::Expression& condition, bool until, ast::Block body,
                          ast::Position head, ast::Position end, Enclosing::Kind kind) {
    const bool is_repeated = condition.height <= kMostRepeatedHeight;
    const Label test = builder_.new_label();
    const Label start = builder_.new_label();
    const Label exit = builder_.new_label();
    builder_.bind(test);
    if (until) {
        jump_if(condition, {exit, start});
    } else {
        jump_unless(condition, {exit, start});
    }
    builder_.bind(start);
    const std::uint32_t first = builder_.size();
    enclosing_.push_back({kind, exit});
    block(body);
    enclosing_.pop_back();
    if (!is_repeated) {
        builder_.begin_statement(end);
        builder_.jump(Op::Jump, test);
    } else {
        // An error in the condition goes on in the body, as it does at the head.
        builder_.begin_statement(head, first);
        if (until) {
            jump_unless(condition, {start, start});
        } else {
            jump_if(condition, {start, start});
        }
    }
    builder_.bind(exit);
}

std::optional<Place> Compiler::loop_variable(const ast::Name& name) {
    const Binding binding = scope_.resolve(name);
    if (binding.kind == Binding::Kind::Variable) {
        return binding.place;
    }
    if (binding.kind == Binding::Kind::OwnMember && binding.member->is_field()) {
        const Place reference = CodeBuilder::local(builder_.new_local());
        builder_.emit(Op::FieldReference, reference.field, binding.member->field);
        return reference;
    }
    fail(binding.kind == Binding::Kind::Undefined ? ErrorNumber::VariableUndefined
                                                  : ErrorNumber::IllegalAssignment,
         name, {});
    return std::nullopt;
}

void Compiler::compile_for(const ast::For& node) {
    const std::uint32_t control = builder_.new_locals(3);
    const Place limit = CodeBuilder::local(control);
    const Place step = CodeBuilder::local(control + 1);
    const Place start = CodeBuilder::local(control + 2);
    const std::uint32_t height = builder_.temporaries();
    // If an error keeps the loop from starting, its end finds no limit.
    if (resumes_next_) {
        clear(control);
    }
    const auto counter = loop_variable(node.variable);
    if (!counter) {
        return;
    }
    value_into(*node.from, start);
    const std::optional<std::int16_t> fixed_step =
        node.step == nullptr ? std::int16_t{1} : small_number(*node.step);
    const Place temporary_limit = builder_.new_temporary();
    value_into(*node.to, temporary_limit);
    if (node.step != nullptr) {
        value_into(*node.step, step);
    } else {
        builder_.emit(Op::Move, step.field, builder_.constant(Value(std::int16_t{1})).field);
    }
    builder_.emit(Op::Move, limit.field, temporary_limit.field);
    builder_.release_to(height);
    const Label body = builder_.new_label();
    const Label exit = builder_.new_label();
    builder_.jump(Op::ForStart, exit, counter->field, limit.field);
    builder_.bind(body);
    enclosing_.push_back({Enclosing::Kind::For, exit});
    block(node.body);
    enclosing_.pop_back();
    builder_.begin_statement(node.end);
    const bool is_one = fixed_step && *fixed_step == 1;
    builder_.jump(is_one ? Op::ForNextOne : Op::ForNext, body, counter->field, limit.field);
    builder_.bind(exit);
}

void Compiler::compile_for_each(const ast::ForEach& node) {
    const std::uint32_t walk = builder_.new_local();
    const Place state = CodeBuilder::local(walk);
    const auto variable = loop_variable(node.variable);
    if (!variable) {
        return;
    }
    const std::uint32_t height = builder_.temporaries();
    const Place collection = value(*node.collection);
    builder_.about(*node.collection);
    builder_.emit(Op::EachStart, state.field, collection.field);
    builder_.release_to(height);
    const Label body = builder_.new_label();
    const Label next = builder_.new_label();
    const Label exit = builder_.new_label();
    builder_.jump(Op::Jump, next);
    builder_.bind(body);
    enclosing_.push_back({Enclosing::Kind::For, exit, walk, true});
    block(node.body);
    enclosing_.pop_back();
    builder_.begin_statement(node.end);
    builder_.bind(next);
    builder_.jump(Op::EachNext, body, variable->field, state.field);
    builder_.begin_statement(node.end);
    builder_.bind(exit);
    clear(walk);
}

}  // namespace vbscript
