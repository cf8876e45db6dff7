#include "vbscript/machine/code_builder.h"

#include <bit>
#include <limits>

namespace vbscript {

namespace {

// Provisional places lie below all final ones, in four ranges.
constexpr std::int32_t kSize = sizeof(Value);
constexpr std::int32_t kConstants = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kTemporaries = kConstants + (std::int32_t{1} << 28);
constexpr std::int32_t kWindows = kTemporaries + (std::int32_t{1} << 28);
constexpr std::int32_t kLocals = kWindows + (std::int32_t{1} << 28);
constexpr std::int32_t kEnd = kLocals + (std::int32_t{1} << 28);
static_assert(kEnd <= -kFarBias);

std::int32_t bytes(std::uint32_t count) noexcept {
    return static_cast<std::int32_t>(count) * kSize;
}

bool is_number(const Value& value) noexcept {
    return value.type() < Type::String;
}

std::uint64_t bits_of(const Value& value) noexcept {
    switch (value.type()) {
        case Type::Empty:
        case Type::Null:
            return 0;
        case Type::Single:
        case Type::Double:
        case Type::Date:
            return std::bit_cast<std::uint64_t>(value.real());
        case Type::Currency:
            return static_cast<std::uint64_t>(value.currency().units);
        default:
            return static_cast<std::uint64_t>(value.number());
    }
}

// The near form, if there is one and all places are near.
Op final_form(const Instruction& instruction) noexcept {
    const OpRow& row = row_of(instruction.op);
    const auto is_far = [&row](std::size_t field, std::int32_t place) {
        return (row.fields[field] == 'v' || row.fields[field] == 'w') && place < 0;
    };
    const bool has_far =
        is_far(0, instruction.a) || is_far(1, instruction.b) || is_far(2, instruction.c);
    if (!row.has_near_form || has_far) {
        return instruction.op;
    }
    return static_cast<Op>(static_cast<int>(instruction.op) + 1);
}

}  // namespace

CodeBuilder::CodeBuilder(ValueArena& arena, Kind kind) : kind_(kind), code_(make<Code>(arena)) {
    code_->is_outside = kind == Kind::Outside;
}

std::uint32_t CodeBuilder::emit(Op op, std::int32_t a, std::int32_t b, std::int32_t c, int extra) {
    code_->instructions.push_back({op, static_cast<std::int16_t>(extra), a, b, c});
    return size() - 1;
}

Label CodeBuilder::new_label() {
    Label label;
    label.number_ = static_cast<std::uint32_t>(labels_.size());
    labels_.emplace_back();
    return label;
}

void CodeBuilder::jump(Op op, Label target, std::int32_t a, std::int32_t b, int extra) {
    const std::uint32_t place = emit(op, a, b, 0, extra);
    LabelState& label = labels_[target.number_];
    if (label.target == kUnbound) {
        label.waiting.push_back(place);
    } else {
        code_->instructions[place].c =
            static_cast<std::int32_t>(label.target) - static_cast<std::int32_t>(place);
    }
}

void CodeBuilder::bind(Label target) {
    LabelState& label = labels_[target.number_];
    label.target = size();
    for (const std::uint32_t place : label.waiting) {
        code_->instructions[place].c = static_cast<std::int32_t>(size() - place);
    }
    label.waiting.clear();
}

void CodeBuilder::begin_statement(ast::Position position) {
    begin_statement(position, StatementPlace::kNext);
}

void CodeBuilder::begin_statement(ast::Position position, std::uint32_t resume) {
    const StatementPlace place{size(), resume, position};
    // A statement without instructions makes way for the next one.
    if (!code_->places.empty() && code_->places.back().begin == size()) {
        code_->places.back() = place;
    } else {
        code_->places.push_back(place);
    }
}

void CodeBuilder::about(const ast::Expression& subject) {
    code_->subjects.push_back({size(), &subject, {}});
}

void CodeBuilder::about(std::u16string_view name) {
    code_->subjects.push_back({size(), nullptr, name});
}

Place CodeBuilder::local(std::uint32_t number) noexcept {
    return {kLocals + bytes(number)};
}

Place CodeBuilder::new_reference() {
    if (references_in_use_ == references_.size()) {
        references_.push_back(new_local());
    }
    return local(references_[references_in_use_++]);
}

Place CodeBuilder::slot(std::uint32_t index) const noexcept {
    const std::int32_t distance = bytes(index);
    return {kind_ == Kind::Outside ? distance : distance - kFarBias};
}

Place CodeBuilder::constant(const Value& value) {
    const auto next = static_cast<std::uint32_t>(constants_.size());
    std::uint32_t place = next;
    if (is_number(value)) {
        place = numbers_.try_emplace({value.type(), bits_of(value)}, next).first->second;
    } else if (value.is(Type::String)) {
        place = texts_.try_emplace(std::u16string(value.units()), next).first->second;
    }
    if (place == next) {
        constants_.push_back(value);
    }
    return {kConstants + bytes(place), false, true};
}

void CodeBuilder::take(std::uint32_t count) noexcept {
    temporaries_ += count;
    most_temporaries_ = std::max(most_temporaries_, temporaries_);
}

Place CodeBuilder::new_temporary() {
    take(1);
    return temporary(temporaries_ - 1);
}

Place CodeBuilder::temporary(std::uint32_t number) noexcept {
    return {kTemporaries + bytes(number), true, false};
}

Place CodeBuilder::new_window(std::uint32_t count) {
    take(count);
    return {kWindows + bytes(temporaries_ - count), true, false};
}

Place CodeBuilder::neighbour(Place window, std::uint32_t distance) noexcept {
    window.field += bytes(distance);
    return window;
}

// Code outside of procedures runs once at a time, so that its locals and temporaries can stand
// beside its constants, where they are near; only windows stand on the stack.
std::int32_t CodeBuilder::final_place(std::int32_t field) const noexcept {
    if (field >= kEnd) {
        return field;
    }
    const bool is_outside = kind_ == Kind::Outside;
    const std::int32_t own = is_outside ? bytes(code_->first_own()) : 0;
    if (field >= kLocals) {
        return own + (field - kLocals);
    }
    if (field >= kWindows) {
        return is_outside ? field - kWindows - kFarBias : bytes(locals_) + (field - kWindows);
    }
    if (field >= kTemporaries) {
        return own + bytes(locals_) + (field - kTemporaries);
    }
    const std::int32_t constant = bytes(code_->first_constant()) + (field - kConstants);
    return is_outside ? constant : constant - kFarBias;
}

Ref<Code> CodeBuilder::finish() {
    const bool is_outside = kind_ == Kind::Outside;
    code_->adopt_constants(std::move(constants_));
    if (is_outside) {
        code_->allocate_own(locals_, most_temporaries_);
    }
    for (Instruction& instruction : code_->instructions) {
        instruction.a = final_place(instruction.a);
        instruction.b = final_place(instruction.b);
        instruction.c = final_place(instruction.c);
        instruction.op = final_form(instruction);
    }
    for (MemberSite& site : code_->sites) {
        site.object = final_place(site.object);
    }
    code_->local_count = is_outside ? 0 : locals_;
    code_->has_by_value = !code_->by_value.empty();
    code_->register_count = code_->local_count + most_temporaries_;
    return std::move(code_);
}

}  // namespace vbscript
