#include <functional>
#include <new>
#include <stdexcept>

#include "vbscript/machine/fast_values.h"
#include "vbscript/machine/machine.h"
#include "vbscript/value/array.h"

// The loop that carries out instructions. Each has a fast path here, and a function of the machine
// for everything else. After a jump table in the label form of the compiler the next instruction is
// reached without a common point, which branch prediction likes.

namespace vbscript {

namespace {

constexpr bool kIf = true;
constexpr bool kUnless = false;
constexpr auto kEqual = Comparison::Equal;
constexpr auto kNotEqual = Comparison::NotEqual;
constexpr auto kLess = Comparison::Less;
constexpr auto kLessOrEqual = Comparison::LessOrEqual;
constexpr auto kGreater = Comparison::Greater;
constexpr auto kGreaterOrEqual = Comparison::GreaterOrEqual;

}  // namespace

// The same on what references refer to, then on everything else. Numbers leave nothing behind in
// temporaries.
template <auto quick, auto general>
[[gnu::noinline]] void Machine::operate_with(Value* target, Value* left, Value* right) {
    if (quick(referred(*target), referred(*left), referred(*right))) {
        return;
    }
    operate(general, target, left, right);
}

template <auto quick, auto general>
[[gnu::noinline]] void Machine::operate_with_number(Value* target, Value* left,
                                                    std::int16_t number) {
    if (quick(referred(*target), referred(*left), number)) {
        return;
    }
    operate_number(general, target, left, number);
}

template <Comparison comparison>
[[gnu::noinline]] bool Machine::holds_for(Value* left, Value* right) {
    bool truth = false;
    const Value& first = referred(*left);
    const Value& second = referred(*right);
    if (fast::compare<comparison>(first, second, truth)) {
        return truth;
    }
    constexpr bool kIsEquality =
        comparison == Comparison::Equal || comparison == Comparison::NotEqual;
    if (kIsEquality && first.is(Type::String) && second.is(Type::String)) {
        truth = fast::holds<comparison>(first.units(), second.units());
        consume(left);
        consume(right);
        return truth;
    }
    return holds(comparison, left, right);
}

template <Comparison comparison>
[[gnu::noinline]] bool Machine::holds_for_number(Value* left, std::int16_t number) {
    bool truth = false;
    if (fast::compare_number<comparison>(referred(*left), number, truth)) {
        return truth;
    }
    return holds_number(comparison, left, number);
}

// A new frame for a call whose arguments stand at `window`, behind Me if it is a method.
[[gnu::always_inline]] inline Frame* Machine::enter(Frame* caller, const Instruction* pc,
                                                    Procedure& callee, Value* window, int arguments,
                                                    Value* result, ResultUse use) {
    caller->pc = pc;
    Code& code = callee.code ? *callee.code : code_of(callee);
    if (static_cast<std::uint32_t>(arguments) != code.argument_count) [[unlikely]] {
        refuse_arguments();
    }
    Frame* const frame = caller + 1;
    Value* const end = window + code.register_count;
    if (end > stack_end_ || frame == last_frame_) [[unlikely]] {
        grow_stack(end, frame);
    }
    frame->pc = code.instructions.data();
    frame->near = reinterpret_cast<std::uintptr_t>(window);
    frame->far = static_cast<std::ptrdiff_t>(far_base_ - frame->near);
    frame->code = &code;
    frame->base = window;
    frame->end = end;
    frame->result = result;
    frame->names = nullptr;
    frame->use = use;
    frame->is_entry = false;
    frame->resumes_next = false;
    frame->owns_names = false;
    for (Value* local = window + code.first_local; local != window + code.local_count; ++local) {
        local->set_light(Type::Empty, 0);
    }
    if (code.has_by_value) {
        settle_values(code, window);
    }
    top_ = frame;
    if (--ticks_ == 0) [[unlikely]] {
        tick();
    }
    return frame;
}

// Ends a frame between statements, when its temporaries hold nothing.
[[gnu::always_inline]] inline Frame* Machine::leave_quickly(Frame* frame) noexcept {
    Value* const end = frame->base + frame->code->local_count;
    for (Value* local = frame->base; local != end; ++local) {
        if (local->is_heavy()) [[unlikely]] {
            release_registers(local, local + 1);
        }
    }
    if (frame->owns_names) [[unlikely]] {
        dynamic_names_.pop_back();
    }
    top_ = frame - 1;
    return frame - 1;
}

// NOLINTNEXTLINE(readability-function-size,readability-function-cognitive-complexity)
void Machine::execute_frames(Frame* const entry) {
    static const void* const kLabels[] = {
#define VBSCRIPT_LABEL(name, fields) __extension__ &&label_##name,
#define VBSCRIPT_LABELS(name, fields) \
    __extension__ &&label_##name, __extension__ &&label_##name##Near,
        VBSCRIPT_INSTRUCTIONS(VBSCRIPT_LABEL, VBSCRIPT_LABELS)
#undef VBSCRIPT_LABEL
#undef VBSCRIPT_LABELS
    };
    Frame* frame = top_;
    const Instruction* pc = frame->pc;
    std::uintptr_t near = frame->near;
    std::ptrdiff_t far = frame->far;

#define AT(place)                                                                \
    (reinterpret_cast<Value*>(                                                   \
        near + static_cast<std::uintptr_t>(static_cast<std::ptrdiff_t>(place)) + \
        static_cast<std::uintptr_t>(far & (static_cast<std::ptrdiff_t>(place) >> 63))))
#define ATNear(place)                \
    (reinterpret_cast<Value*>(near + \
                              static_cast<std::uintptr_t>(static_cast<std::ptrdiff_t>(place))))
#define A AT(pc->a)
#define B AT(pc->b)
#define C AT(pc->c)
#define GO __extension__({ goto* kLabels[static_cast<std::size_t>(pc->op)]; })
#define NEXT \
    ++pc;    \
    GO
#define CASE(name) label_##name:
#define TICK                          \
    if (--ticks_ == 0) [[unlikely]] { \
        tick();                       \
    }
#define JUMP                                 \
    {                                        \
        const std::int32_t distance = pc->c; \
        if (distance <= 0) {                 \
            TICK;                            \
        }                                    \
        pc += distance;                      \
        GO;                                  \
    }
#define RELOAD          \
    pc = frame->pc;     \
    near = frame->near; \
    far = frame->far;

    for (;;) {
        try {
            GO;

#define COPY(name, form, general)                         \
    CASE(name##form) {                                    \
        Value* const target = AT##form(pc->a);            \
        Value* const source = AT##form(pc->b);            \
        if (!target->is_heavy() && !source->is_heavy()) { \
            target->copy_light(*source);                  \
        } else {                                          \
            general(target, source);                      \
        }                                                 \
        NEXT;                                             \
    }
            COPY(Move, , move)
            COPY(Move, Near, move)
            COPY(Let, , let)
            COPY(Let, Near, let)
#undef COPY
            CASE(Set) {
                set(A, B);
                NEXT;
            }
            CASE(LoadField) {
                Value* const target = A;
                const Value& field = static_cast<Instance*>(frame->base->object())->field(pc->b);
                if (!target->is_heavy() && !field.is_heavy()) {
                    target->copy_light(field);
                } else {
                    put(target, field);
                }
                NEXT;
            }
            CASE(LetField) {
                Value& field = static_cast<Instance*>(frame->base->object())->field(pc->a);
                Value* const source = B;
                if (!field.is_heavy() && !source->is_heavy()) {
                    field.copy_light(*source);
                } else {
                    let(&field, source);
                }
                NEXT;
            }
            CASE(SetField) {
                set(&static_cast<Instance*>(frame->base->object())->field(pc->a), B);
                NEXT;
            }
            CASE(FieldReference) {
                A->set_reference(static_cast<Instance*>(frame->base->object())->field(pc->b));
                NEXT;
            }
            CASE(PassReference) {
                Value* variable = B;
                if (variable->is_reference()) {
                    variable = &variable->variable();
                }
                A->set_reference(*variable);
                NEXT;
            }
            CASE(ElementReference) {
                element_reference(A, B, C, pc->extra);
                NEXT;
            }
            CASE(PassElement) {
                pass_element(A, B, C, pc->extra);
                NEXT;
            }
            CASE(Unlock) {
                unlock(A);
                NEXT;
            }
            CASE(Clear) {
                Value* const place = A;
                release_registers(place, place + 1);
                NEXT;
            }

#define ARITHMETIC(name, form, quick, general)                   \
    CASE(name##form) {                                           \
        Value* const target = AT##form(pc->a);                   \
        Value* const left = AT##form(pc->b);                     \
        Value* const right = AT##form(pc->c);                    \
        if (!quick(*target, *left, *right)) [[unlikely]] {       \
            operate_with<&quick, &general>(target, left, right); \
        }                                                        \
        NEXT;                                                    \
    }
#define ARITHMETICS(name, quick, general) \
    ARITHMETIC(name, , quick, general)    \
    ARITHMETIC(name, Near, quick, general)
            ARITHMETICS(Add, fast::calculate<fast::Add>, add)
            ARITHMETICS(Subtract, fast::calculate<fast::Subtract>, subtract)
            ARITHMETICS(Multiply, fast::calculate<fast::Multiply>, multiply)
            ARITHMETICS(Divide, fast::divide, divide)
            ARITHMETICS(DivideWhole, fast::divide_whole, divide_whole)
            ARITHMETICS(Remainder, fast::remainder, remainder)
            ARITHMETIC(And, , fast::combine<std::bit_and<>>, logical_and)
            ARITHMETIC(Or, , fast::combine<std::bit_or<>>, logical_or)
            ARITHMETIC(Xor, , fast::combine<std::bit_xor<>>, logical_xor)
#undef ARITHMETIC
#undef ARITHMETICS
            CASE(Power) {
                operate(&power, A, B, C);
                NEXT;
            }
            CASE(Eqv) {
                operate(&logical_eqv, A, B, C);
                NEXT;
            }
            CASE(Imp) {
                operate(&logical_imp, A, B, C);
                NEXT;
            }
            CASE(Concatenate) {
                concatenate_two(A, B, C);
                NEXT;
            }
#define WITH_NUMBER(name, form, quick, general)                             \
    CASE(name##form) {                                                      \
        Value* const target = AT##form(pc->a);                              \
        Value* const left = AT##form(pc->b);                                \
        if (!quick(*target, *left, pc->extra)) [[unlikely]] {               \
            operate_with_number<&quick, &general>(target, left, pc->extra); \
        }                                                                   \
        NEXT;                                                               \
    }
            WITH_NUMBER(AddNumber, , fast::calculate_number<fast::Add>, add)
            WITH_NUMBER(AddNumber, Near, fast::calculate_number<fast::Add>, add)
            WITH_NUMBER(SubtractNumber, , fast::calculate_number<fast::Subtract>, subtract)
            WITH_NUMBER(SubtractNumber, Near, fast::calculate_number<fast::Subtract>, subtract)
#undef WITH_NUMBER
            CASE(Negate) {
                Value* const target = A;
                Value* const operand = B;
                if (!fast::negate(*target, *operand)) {
                    operate(&negate, target, operand);
                }
                NEXT;
            }
            CASE(Plus) {
                operate(&plus, A, B);
                NEXT;
            }
            CASE(Not) {
                Value* const target = A;
                Value* const operand = B;
                if (!fast::invert(*target, *operand)) {
                    operate(&logical_not, target, operand);
                }
                NEXT;
            }
            CASE(ConcatenateMany) {
                concatenate_many(A, B, pc->extra);
                NEXT;
            }
            CASE(Append) {
                append(A, B);
                NEXT;
            }
            CASE(AppendMany) {
                append_many(A, B, pc->extra, pc->c != 0);
                NEXT;
            }
            CASE(Is) {
                operate(&same_object, A, B, C);
                NEXT;
            }

#define COMPARE(name, form)                                                                      \
    CASE(Compare##name##form) {                                                                  \
        Value* const target = AT##form(pc->a);                                                   \
        Value* const left = AT##form(pc->b);                                                     \
        Value* const right = AT##form(pc->c);                                                    \
        bool truth = false;                                                                      \
        if (!fast::compare<k##name>(*left, *right, truth) || !fast::put_boolean(*target, truth)) \
            [[unlikely]] {                                                                       \
            compare_into(k##name, target, left, right);                                          \
        }                                                                                        \
        NEXT;                                                                                    \
    }
#define JUMP_ON_TWO(jumps, name, form)                                    \
    CASE(Jump##jumps##name##form) {                                       \
        Value* const left = AT##form(pc->a);                              \
        Value* const right = AT##form(pc->b);                             \
        bool truth = false;                                               \
        if (!fast::compare<k##name>(*left, *right, truth)) [[unlikely]] { \
            truth = holds_for<k##name>(left, right);                      \
        }                                                                 \
        if (truth == k##jumps) {                                          \
            JUMP;                                                         \
        }                                                                 \
        NEXT;                                                             \
    }
#define JUMP_ON_NUMBER(jumps, name, form)                                           \
    CASE(Jump##jumps##name##Number##form) {                                         \
        Value* const left = AT##form(pc->a);                                        \
        bool truth = false;                                                         \
        if (!fast::compare_number<k##name>(*left, pc->extra, truth)) [[unlikely]] { \
            truth = holds_for_number<k##name>(left, pc->extra);                     \
        }                                                                           \
        if (truth == k##jumps) {                                                    \
            JUMP;                                                                   \
        }                                                                           \
        NEXT;                                                                       \
    }
#define COMPARISON(name)            \
    COMPARE(name, )                 \
    COMPARE(name, Near)             \
    JUMP_ON_TWO(If, name, )         \
    JUMP_ON_TWO(If, name, Near)     \
    JUMP_ON_TWO(Unless, name, )     \
    JUMP_ON_TWO(Unless, name, Near) \
    JUMP_ON_NUMBER(If, name, )      \
    JUMP_ON_NUMBER(If, name, Near)  \
    JUMP_ON_NUMBER(Unless, name, )  \
    JUMP_ON_NUMBER(Unless, name, Near)
            COMPARISON(Equal)
            COMPARISON(NotEqual)
            COMPARISON(Less)
            COMPARISON(LessOrEqual)
            COMPARISON(Greater)
            COMPARISON(GreaterOrEqual)
#undef COMPARISON
#undef JUMP_ON_NUMBER
#undef JUMP_ON_TWO
#undef COMPARE

            CASE(JumpIfCase) {
                Value* const subject = A;
                Value* const candidate = B;
                bool truth = false;
                if (!fast::compare<kEqual>(*subject, *candidate, truth)) [[unlikely]] {
                    truth = is_case(subject, candidate);
                }
                if (truth) {
                    JUMP;
                }
                NEXT;
            }
            CASE(Jump) {
                JUMP;
            }
            CASE(JumpIf) {
                Value* const condition = A;
                const bool truth =
                    condition->is(Type::Boolean) ? condition->boolean() : is_true(condition);
                if (truth) {
                    JUMP;
                }
                NEXT;
            }
            CASE(JumpUnless) {
                Value* const condition = A;
                const bool truth =
                    condition->is(Type::Boolean) ? condition->boolean() : is_true(condition);
                if (!truth) {
                    JUMP;
                }
                NEXT;
            }
            CASE(ForStart) {
                if (!for_start(A, B)) {
                    JUMP;
                }
                NEXT;
            }
#define FOR_NEXT_ONE(form)                                   \
    CASE(ForNextOne##form) {                                 \
        Value* const counter = AT##form(pc->a);              \
        Value* const control = AT##form(pc->b);              \
        if (fast::count_up(*counter, *control)) [[likely]] { \
            JUMP;                                            \
        }                                                    \
        if (for_next(counter, control)) {                    \
            JUMP;                                            \
        }                                                    \
        NEXT;                                                \
    }
            FOR_NEXT_ONE()
            FOR_NEXT_ONE(Near)
#undef FOR_NEXT_ONE
            CASE(ForNext) {
                if (for_next(A, B)) {
                    JUMP;
                }
                NEXT;
            }
            CASE(EachStart) {
                each_start(A, B);
                NEXT;
            }
            CASE(EachNext) {
                if (each_next(A, B)) {
                    JUMP;
                }
                NEXT;
            }

#define INDEX(form)                                                                  \
    CASE(Index##form) {                                                              \
        Value* const target = AT##form(pc->a);                                       \
        Value* const holder = AT##form(pc->b);                                       \
        Value* const place = AT##form(pc->c);                                        \
        const Value& array = referred(*holder);                                      \
        if (array.is(Type::Array) && fast::is_whole(*place)) {                       \
            const Value* const element = array.array().find(place->number());        \
            if (element != nullptr && !element->is_heavy() && !target->is_heavy()) { \
                target->copy_light(*element);                                        \
                NEXT;                                                                \
            }                                                                        \
        }                                                                            \
        index(target, holder, place, result_use(pc->extra));                         \
        NEXT;                                                                        \
    }
            INDEX()
            INDEX(Near)
#undef INDEX
            CASE(IndexMany) {
                index_many(A, B, C, argument_count(pc->extra), result_use(pc->extra));
                NEXT;
            }
#define LET_ELEMENT(form)                                                             \
    CASE(LetElement##form) {                                                          \
        Value* const holder = AT##form(pc->a);                                        \
        Value* const place = AT##form(pc->b);                                         \
        Value* const source = AT##form(pc->c);                                        \
        const Value& array = referred(*holder);                                       \
        if (array.is(Type::Array) && fast::is_whole(*place) && !source->is_heavy() && \
            !array.array().is_held_twice()) {                                         \
            Value* const element = array.array().find(place->number());               \
            if (element != nullptr && !element->is_heavy()) {                         \
                element->copy_light(*source);                                         \
                NEXT;                                                                 \
            }                                                                         \
        }                                                                             \
        let_element(holder, place, source, Access::Let);                              \
        NEXT;                                                                         \
    }
            LET_ELEMENT()
            LET_ELEMENT(Near)
#undef LET_ELEMENT
            CASE(SetElement) {
                let_element(A, B, C, Access::Set);
                NEXT;
            }
            CASE(LetElementMany) {
                let_element_many(A, B, pc->extra, Access::Let);
                NEXT;
            }
            CASE(SetElementMany) {
                let_element_many(A, B, pc->extra, Access::Set);
                NEXT;
            }

            CASE(Call) {
                Procedure& callee = *frame->code->callees[static_cast<std::size_t>(pc->c)];
                const ResultUse use = result_use(pc->extra);
                frame = enter(frame, pc, callee, A, argument_count(pc->extra),
                              use == ResultUse::Nothing ? nullptr : B, use);
                RELOAD;
                GO;
            }
            CASE(CallOwn) {
                Procedure& callee = *frame->code->callees[static_cast<std::size_t>(pc->c)];
                const ResultUse use = result_use(pc->extra);
                Value* const window = A;
                *window = *frame->base;
                frame = enter(frame, pc, callee, window, argument_count(pc->extra),
                              use == ResultUse::Nothing ? nullptr : B, use);
                RELOAD;
                GO;
            }
            CASE(CallMember) {
                MemberSite& site = frame->code->sites[static_cast<std::size_t>(pc->c)];
                Value* const holder = AT(site.object);
                Object& object = object_at(holder);
                if (site.identity == nullptr || object.class_identity() != site.identity) {
                    look_up(site, object, Access::Call);
                }
                Value* const window = A;
                const int count = argument_count(pc->extra);
                const ResultUse use = result_use(pc->extra);
                Value* const result = use == ResultUse::Nothing ? nullptr : B;
                if (site.procedure != nullptr) {
                    move(window, holder);
                    frame = enter(frame, pc, *site.procedure, window, count, result, use);
                    RELOAD;
                    GO;
                }
                if (site.field >= 0 && count == 0 && result != nullptr) {
                    const Value& field = static_cast<Instance&>(object).field(site.field);
                    if (!field.is_heavy() && !result->is_heavy()) {
                        result->copy_light(field);
                        consume(holder);
                        NEXT;
                    }
                }
                move(window, holder);
                read_member(site, window, count, result, use);
                NEXT;
            }
            CASE(LetMember)
            CASE(SetMember) {
                MemberSite& site = frame->code->sites[static_cast<std::size_t>(pc->c)];
                Value* const holder = AT(site.object);
                Object& object = object_at(holder);
                const Access access = pc->op == Op::LetMember ? Access::Let : Access::Set;
                if (site.identity == nullptr || object.class_identity() != site.identity) {
                    look_up(site, object, access);
                }
                Value* const window = A;
                const int count = argument_count(pc->extra);
                if (site.procedure != nullptr) {
                    move(window, holder);
                    frame = enter(frame, pc, *site.procedure, window, count, nullptr,
                                  ResultUse::Nothing);
                    RELOAD;
                    GO;
                }
                if (site.field >= 0 && count == 1 && access == Access::Let) {
                    Value& field = static_cast<Instance&>(object).field(site.field);
                    if (!field.is_heavy() && !window[1].is_heavy()) {
                        field.copy_light(window[1]);
                        consume(holder);
                        NEXT;
                    }
                }
                move(window, holder);
                write_member(site, window, count, access);
                NEXT;
            }
            CASE(CallLibrary) {
                const ResultUse use = result_use(pc->extra);
                call_library(*frame->code->functions[static_cast<std::size_t>(pc->c)], A,
                             argument_count(pc->extra), B, use);
                NEXT;
            }
            CASE(CallLibraryOne) {
                call_library_one(*frame->code->functions[static_cast<std::size_t>(pc->c)], A, B,
                                 result_use(pc->extra));
                NEXT;
            }
            CASE(New) {
                ClassInfo& info = *frame->code->classes[static_cast<std::size_t>(pc->c)];
                Value* const result = B;
                put(result, Value(new_instance(info)));
                if (info.initialize() != nullptr) {
                    Value* const window = A;
                    *window = *result;
                    frame = enter(frame, pc, *info.initialize(), window, 0, nullptr,
                                  ResultUse::Nothing);
                    RELOAD;
                    GO;
                }
                NEXT;
            }
            CASE(NewNamed) {
                new_named(B, frame->code->class_names[static_cast<std::size_t>(pc->c)]);
                NEXT;
            }
            CASE(Return) {
                const bool is_entry = frame->is_entry;
                {
                    // In a block of its own: a jump to the next instruction destroys nothing.
                    Value result(std::move(*A));
                    Value* const target = frame->result;
                    const ResultUse use = frame->use;
                    if (is_entry) {
                        release_own(frame);
                    }
                    frame = leave_quickly(frame);
                    RELOAD;
                    if (target == nullptr) {
                        result = Value();
                    } else if (!target->is_heavy() && !result.is_heavy()) [[likely]] {
                        target->copy_light(result);
                    } else {
                        put_result(target, std::move(result), use);
                    }
                }
                if (is_entry) {
                    return;
                }
                NEXT;
            }
            CASE(ReturnNothing) {
                Value* const target = frame->result;
                const bool is_entry = frame->is_entry;
                if (is_entry) {
                    release_own(frame);
                }
                frame = leave_quickly(frame);
                RELOAD;
                if (target != nullptr) {
                    put(target, Value());
                }
                if (is_entry) {
                    return;
                }
                NEXT;
            }

            CASE(WithObject) {
                static_cast<void>(object_at(B));
                move(A, B);
                NEXT;
            }
            CASE(OnErrorResumeNext) {
                frame->resumes_next = true;
                error_->clear();
                NEXT;
            }
            CASE(OnErrorGoToZero) {
                frame->resumes_next = false;
                error_->clear();
                NEXT;
            }
            CASE(ClearError) {
                error_->clear();
                NEXT;
            }
            CASE(Throw) {
                frame->pc = pc;
                const Code::Subject* const named = subject();
                throw ScriptError(static_cast<ErrorNumber>(pc->c),
                                  named == nullptr ? std::u16string_view() : named->name);
            }
            CASE(Redim) {
                redim(A, B, pc->extra, pc->c != 0);
                NEXT;
            }
            CASE(Erase) {
                erase(A);
                NEXT;
            }
            CASE(MakeArray) {
                make_array(A, frame->code->bounds[static_cast<std::size_t>(pc->c)]);
                NEXT;
            }
            CASE(BeginVariable) {
                symbols_.begin_variable(*frame->code->module, static_cast<NameId>(pc->c));
                NEXT;
            }
            CASE(Evaluate) {
                frame->pc = pc;
                evaluate(A, B);
                NEXT;
            }
            CASE(Execute) {
                frame->pc = pc;
                execute(B, pc->c != 0);
                NEXT;
            }
        } catch (const ScriptError& error) {
            top_->pc = pc;
            recover(error, entry);
        } catch (const std::bad_alloc&) {
            top_->pc = pc;
            recover(ScriptError(ErrorNumber::OutOfMemory), entry);
        } catch (const std::length_error&) {
            top_->pc = pc;
            recover(ScriptError(ErrorNumber::OutOfMemory), entry);
        }
        frame = top_;
        RELOAD;
    }
}

}  // namespace vbscript
