#include <algorithm>
#include <array>

#include "vbscript/machine/machine.h"
#include "vbscript/machine/source_text.h"

namespace vbscript {

namespace {

// The statement that an instruction belongs to. Requires: the code has one.
std::vector<StatementPlace>::const_iterator place_of(const Code& code, std::uint32_t instruction) {
    const auto behind =
        std::ranges::upper_bound(code.places, instruction, {}, &StatementPlace::begin);
    return behind == code.places.begin() ? behind : behind - 1;
}

std::uint32_t instruction_of(const Frame& frame) noexcept {
    return static_cast<std::uint32_t>(frame.pc - frame.code->instructions.data());
}

bool is_bare(const ScriptError& error) noexcept {
    return error.subject.empty() && error.description == error_text(error.number);
}

// Errors that tell what they are about.
constexpr auto kNamed = std::to_array<ErrorNumber>({
    ErrorNumber::InvalidProcedureCall,
    ErrorNumber::Overflow,
    ErrorNumber::SubscriptOutOfRange,
    ErrorNumber::TypeMismatch,
    ErrorNumber::ObjectVariableNotSet,
    ErrorNumber::InvalidUseOfNull,
    ErrorNumber::ObjectRequired,
    ErrorNumber::PropertyOrMethodNotSupported,
    ErrorNumber::WrongNumberOfArguments,
    ErrorNumber::ClassNotDefined,
});

bool is_named(const ScriptError& error) noexcept {
    return std::ranges::find(kNamed, static_cast<ErrorNumber>(error.number)) != kNamed.end();
}

// "object" of "object.member": what an error about the object of an access is about.
std::u16string text_of_object(const ast::Expression& access) {
    if (access.kind != ast::ExpressionKind::Member) {
        return text_of(access);
    }
    return text_of(*ast::as<ast::Member>(access).object);
}

bool is_about_object(ErrorNumber number) noexcept {
    return number == ErrorNumber::ObjectRequired || number == ErrorNumber::ObjectVariableNotSet;
}

}  // namespace

const Code::Subject* Machine::subject() const noexcept {
    const Code& code = *top_->code;
    const std::uint32_t instruction = instruction_of(*top_);
    const auto found =
        std::ranges::lower_bound(code.subjects, instruction, {}, &Code::Subject::instruction);
    const bool is_there = found != code.subjects.end() && found->instruction == instruction;
    return is_there ? &*found : nullptr;
}

// Whether the statement is a call of a member of `Err`: what it raises is told as it is.
bool Machine::is_raised() const noexcept {
    if (top_->pc->op != Op::CallMember) {
        return false;
    }
    const MemberSite& site = top_->code->sites[static_cast<std::size_t>(top_->pc->c)];
    return site.identity == error_->class_identity();
}

// Adds what the error is about, in the words of the source: the x of "Type mismatch: 'x'".
void Machine::describe(ScriptError& error) const {
    if (!is_bare(error) || !is_named(error) || is_raised()) {
        return;
    }
    const Code::Subject* const about = subject();
    if (about == nullptr) {
        return;
    }
    std::u16string text(about->name);
    if (about->expression != nullptr) {
        text = is_about_object(static_cast<ErrorNumber>(error.number))
                   ? text_of_object(*about->expression)
                   : text_of(*about->expression);
    }
    error.subject = std::move(text);
}

void Machine::locate(ScriptError& error) const {
    const Code& code = *top_->code;
    if (code.places.empty()) {
        return;
    }
    const ast::Position position = place_of(code, instruction_of(*top_))->position;
    error.line = static_cast<std::int32_t>(position.line);
    error.column = static_cast<std::int32_t>(position.column);
    error.source_line = line_of(code.program->source(), position.line);
}

// Goes on in the innermost procedure, up to `entry`, that has said On Error Resume Next; otherwise
// leaves them all and throws.
void Machine::recover(ScriptError error, const Frame* entry) {
    if (error.line == 0) {
        describe(error);
        locate(error);
    }
    Frame* handler = top_;
    while (handler >= entry && !handler->resumes_next) {
        --handler;
    }
    const bool is_handled = handler >= entry && !is_timed_out_;
    while (top_ != (is_handled ? handler : entry - 1)) {
        abandon();
    }
    error_->set(error);
    if (!is_handled) {
        throw error;
    }
    release_registers(handler->base + handler->code->local_count, handler->end);
    if (handler->code->is_outside) {
        const std::span<Value> own = handler->code->own_temporaries();
        release_registers(own.data(), own.data() + own.size());
    }
    const Code& code = *handler->code;
    const auto place = place_of(code, instruction_of(*handler));
    const auto next = place + 1;
    const std::uint32_t resume = place->resume != StatementPlace::kNext ? place->resume
                                 : next == code.places.end()            ? place->begin
                                                                        : next->begin;
    handler->pc = code.instructions.data() + resume;
}

}  // namespace vbscript
