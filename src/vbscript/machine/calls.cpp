#include <algorithm>
#include <memory>
#include <utility>

#include "vbscript/machine/compiler.h"
#include "vbscript/machine/machine.h"
#include "vbscript/value/array.h"

namespace vbscript {

namespace {

// How much of the program's own stack scripts may use by calling each other through objects.
constexpr std::uintptr_t kNativeStack = std::uintptr_t{1} << 20;

std::uintptr_t native_stack_place() noexcept {
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
}

}  // namespace

// One call of `run` or `call`: checks that there is room, starts the clock if nothing ran before,
// and puts the stack back however the call ends.
class Machine::RunScope {
  public:
    explicit RunScope(Machine& machine) : machine_(machine), top_(machine.top_) {
        if (!machine_.is_running()) {
            machine_.native_base_ = native_stack_place();
            machine_.start_clock();
        }
        const std::uintptr_t here = native_stack_place();
        const std::uintptr_t base = machine_.native_base_;
        if (std::max(here, base) - std::min(here, base) > kNativeStack) {
            throw ScriptError(ErrorNumber::OutOfStackSpace);
        }
    }

    RunScope(const RunScope&) = delete;
    RunScope& operator=(const RunScope&) = delete;

    ~RunScope() {
        while (machine_.top_ != top_) {
            machine_.abandon();
        }
        if (machine_.is_running()) {
            return;
        }
        machine_.is_timed_out_ = false;
        machine_.symbols_.drop_retired_code();
    }

  private:
    Machine& machine_;
    Frame* top_;
};

Machine::Machine(Symbols& symbols, Context& context, EngineHost& host)
    : symbols_(symbols),
      context_(context),
      host_(host),
      link_(make<MachineLink>(*this)),
      error_(make<ErrorObject>()),
      instances_(*this),
      frames_(std::make_unique_for_overwrite<Frame[]>(kMostFrames)),
      top_(frames_.get()),
      last_frame_(frames_.get() + kMostFrames),
      stack_(memory_.allocate(kMostValues)),
      stack_end_(stack_),
      far_base_(reinterpret_cast<std::uintptr_t>(symbols.arena().begin()) +
                static_cast<std::uintptr_t>(kFarBias)) {
    *top_ = Frame{};
    top_->base = stack_;
    top_->end = stack_;
}

Machine::~Machine() {
    link_->machine = nullptr;
    std::destroy(stack_, stack_end_);
    memory_.deallocate(stack_, kMostValues);
}

Value* Machine::at(const Frame* frame, std::int32_t place) const noexcept {
    const std::ptrdiff_t distance = place + (place < 0 ? frame->far : 0);
    return reinterpret_cast<Value*>(frame->near + static_cast<std::uintptr_t>(distance));
}

Module& Machine::running_module() noexcept {
    return is_running() ? *top_->code->module : symbols_.global_module();
}

void Machine::grow_stack(Value* end, const Frame* frame) {
    const auto needed = static_cast<std::size_t>(end - stack_);
    if (frame == last_frame_ || needed > kMostValues) {
        throw ScriptError(ErrorNumber::OutOfStackSpace);
    }
    const std::size_t size = std::min(needed + kGrowth, kMostValues);
    Value* const new_end = stack_ + size;
    std::uninitialized_default_construct(stack_end_, new_end);
    stack_end_ = new_end;
}

Frame* Machine::push_entry(Code& code, Value* result) {
    Value* const base = top_->end;
    Value* const end = base + code.register_count;
    Frame* const frame = top_ + 1;
    if (end > stack_end_ || frame == last_frame_) {
        grow_stack(end, frame);
    }
    const auto registers = reinterpret_cast<std::uintptr_t>(base);
    const auto far_registers = registers + static_cast<std::uintptr_t>(kFarBias);
    const auto globals = reinterpret_cast<std::uintptr_t>(symbols_.arena().begin());
    *frame = Frame{};
    frame->pc = code.instructions.data();
    frame->near = code.is_outside ? globals : registers;
    frame->far =
        static_cast<std::ptrdiff_t>((code.is_outside ? far_registers : far_base_) - frame->near);
    frame->code = &code;
    frame->base = base;
    frame->end = end;
    frame->result = result;
    frame->is_entry = true;
    std::for_each(base, base + code.local_count,
                  [](Value& local) { local.set_number(Type::Empty, 0); });
    return frame;
}

Value Machine::run(Code& code, const std::function<void(Frame&)>& prepare) {
    const Ref<Code> kept(&code);
    const RunScope scope(*this);
    Value result;
    Frame* const frame = push_entry(code, &result);
    if (prepare) {
        prepare(*frame);
    }
    top_ = frame;
    execute_frames(frame);
    rethrow_pending();
    return result;
}

Value Machine::call(Procedure& procedure, Instance* self, std::span<Value> arguments) {
    const RunScope scope(*this);
    Code& code = code_of(procedure);
    if (arguments.size() != code.argument_count) {
        refuse_arguments();
    }
    Value result;
    Frame* const frame = push_entry(code, procedure.has_result() ? &result : nullptr);
    Value* place = frame->base;
    if (procedure.owner != nullptr) {
        *place++ = Value(Ref<Object>(self));
    }
    for (Value& argument : arguments) {
        place->set_reference(argument.is_reference() ? argument.variable() : argument);
        ++place;
    }
    top_ = frame;
    if (code.has_by_value) {
        settle_values(code, frame->base);
    }
    execute_frames(frame);
    rethrow_pending();
    return result;
}

Code& Machine::code_of(Procedure& procedure) {
    if (!procedure.code) {
        compile(procedure);
    }
    return *procedure.code;
}

void Machine::compile(Procedure& procedure) {
    UnitContext unit;
    unit.symbols = &symbols_;
    unit.module = procedure.module;
    unit.owner = procedure.owner;
    unit.procedure = &procedure;
    unit.option_explicit = procedure.program->option_explicit();
    procedure.code = Compiler(std::move(unit)).compile_procedure(procedure);
}

void Machine::refuse_arguments() {
    throw ScriptError(ErrorNumber::WrongNumberOfArguments);
}

// Parameters by value get a value of their own where the caller passed a variable.
void Machine::settle_values(const Code& code, Value* base) {
    for (const std::uint32_t number : code.by_value) {
        Value& parameter = base[number];
        if (parameter.is_reference()) {
            parameter = copy_of(parameter.variable());
        }
    }
}

void Machine::release_registers(Value* from, Value* to) noexcept {
    for (Value* place = from; place != to; ++place) {
        if (!place->is_heavy()) {
            continue;
        }
        if (place->type() == Value::kLockedArray) {
            unlock(place);
            continue;
        }
        Value ended;
        ended.swap(*place);
    }
}

// Locals and temporaries that code outside of procedures keeps elsewhere.
void Machine::release_own(Frame* frame) noexcept {
    if (!frame->code->is_outside) {
        return;
    }
    const std::span<Value> own = frame->code->own();
    release_registers(own.data(), own.data() + own.size());
}

void Machine::leave() noexcept {
    Frame* const frame = top_;
    release_registers(frame->base, frame->base + frame->code->local_count);
    if (frame->owns_names) {
        [[unlikely]] dynamic_names_.pop_back();
    }
    top_ = frame - 1;
}

// Ends a frame in the middle of a statement, when temporaries may still hold something.
void Machine::abandon() noexcept {
    release_registers(top_->base, top_->end);
    release_own(top_);
    leave();
}

void Machine::set_time_limit(std::optional<std::chrono::milliseconds> limit) noexcept {
    limit_ = limit && limit->count() > 0 ? limit : std::nullopt;
    if (is_running()) {
        start_clock();
    }
}

void Machine::start_clock() {
    ticks_ = kTicks;
    is_timed_out_ = false;
    deadline_ = limit_ ? std::optional(host_.uptime() + *limit_) : std::nullopt;
}

void Machine::tick() {
    ticks_ = kTicks;
    rethrow_pending();
    check_time();
}

void Machine::rethrow_pending() {
    if (pending_) {
        [[unlikely]] std::rethrow_exception(std::exchange(pending_, nullptr));
    }
}

void Machine::call_last_words(Procedure& procedure, Instance& instance) noexcept {
    try {
        static_cast<void>(call(procedure, &instance, {}));
    } catch (const ScriptError&) {
        return;
    } catch (...) {
        pending_ = std::current_exception();
        ticks_ = 1;
    }
}

void Machine::check_time() {
    if (!is_running() || !deadline_) {
        return;
    }
    if (!is_timed_out_ && host_.uptime() < *deadline_) {
        return;
    }
    if (!is_timed_out_ && host_.may_go_on()) {
        deadline_ = host_.uptime() + *limit_;
        return;
    }
    // From now on every look at the clock ends what runs, the last words of objects too.
    is_timed_out_ = true;
    throw ScriptError(ErrorNumber::ScriptTimedOut);
}

void Machine::end() noexcept {
    instances_.end_all();
}

}  // namespace vbscript
