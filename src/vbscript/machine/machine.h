#pragma once

#include <chrono>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "vbscript/machine/engine_host.h"
#include "vbscript/machine/error_object.h"
#include "vbscript/machine/frame.h"
#include "vbscript/machine/instance.h"
#include "vbscript/machine/symbols.h"
#include "vbscript/value/operators.h"

namespace vbscript {

// Runs code. One for each engine, owned by it. All registers lie in one stack of values that never
// moves; `run` can be called again from inside of objects that a running script calls.
//
// Rules that hold between instructions: no place above the registers of the topmost frame holds a
// text, an object or an array; of a frame's temporaries only those that wait for their reader do.
class Machine {
  public:
    Machine(Symbols& symbols, Context& context, EngineHost& host);
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;
    ~Machine();

    // Runs code outside of procedures, or an expression. `prepare` gets the new frame before it
    // starts. Throws: ScriptError.
    Value run(Code& code, const std::function<void(Frame&)>& prepare = nullptr);

    // Calls a procedure; `self` is the object of a method. Parameters by reference are the
    // arguments themselves. Throws: ScriptError.
    Value call(Procedure& procedure, Instance* self, std::span<Value> arguments);

    [[nodiscard]] bool is_running() const noexcept { return top_ != frames_.get(); }

    // The module of the code that runs, else the global one.
    [[nodiscard]] Module& running_module() noexcept;

    void set_time_limit(std::optional<std::chrono::milliseconds> limit) noexcept;

    // Throws: ScriptError "Script execution time-out".
    void check_time();

    [[nodiscard]] ErrorObject& error() noexcept { return *error_; }

    [[nodiscard]] const Ref<MachineLink>& link() const noexcept { return link_; }

    [[nodiscard]] InstanceList& instances() noexcept { return instances_; }

    [[nodiscard]] Symbols& symbols() noexcept { return symbols_; }

    // Code for a procedure that has none yet.
    void compile(Procedure& procedure);

    // The element of an array, or what the default member of an object gives. `arguments` may be
    // changed. Throws: ScriptError 13 for what is neither, 9, 91, 438.
    [[nodiscard]] Value element_of(const Value& holder, std::span<Value> arguments);
    void set_element_of(Value& holder, std::span<Value> arguments, Value value, Access access);

    // `Class_Terminate`. There is no statement that an error in it could belong to, so that only
    // `Err` tells it. What is no error of a script is thrown by whatever runs next.
    void call_last_words(Procedure& procedure, Instance& instance) noexcept;

    // Declares what a script defines, then runs it. Throws: ScriptError.
    void run_program(Module& module, const std::shared_ptr<const Program>& program);

    // The value of an expression. Throws: ScriptError.
    [[nodiscard]] Value run_expression(Module& module,
                                       const std::shared_ptr<const Program>& program);

    // The end of the engine: objects that are left say their last words, then no script runs.
    void end() noexcept;

  private:
    class RunScope;

    // Calls
    Frame* push_entry(Code& code, Value* result);
    Frame* enter(Frame* caller, const Instruction* pc, Procedure& callee, Value* window,
                 int arguments, Value* result, ResultUse use);
    void grow_stack(Value* end, const Frame* frame);
    void settle_values(const Code& code, Value* base);
    void leave() noexcept;
    Frame* leave_quickly(Frame* frame) noexcept;
    void abandon() noexcept;
    void start_clock();
    void release_own(Frame* frame) noexcept;
    void release_registers(Value* from, Value* to) noexcept;
    void execute_frames(Frame* entry);
    [[nodiscard]] Code& code_of(Procedure& procedure);
    [[noreturn]] static void refuse_arguments();

    // Places
    [[nodiscard]] Value* at(const Frame* frame, std::int32_t place) const noexcept;

    [[nodiscard]] bool is_temporary(const Value* place) const noexcept {
        const Code& code = *top_->code;
        return (place >= top_->base + code.local_count && place < top_->end) ||
               code.is_own_temporary(place);
    }

    // What a reader of a temporary leaves behind: nothing that it would keep alive.
    void consume(Value* place) noexcept {
        if (place->is_heavy() && is_temporary(place)) {
            release_registers(place, place + 1);
        }
    }

    [[nodiscard]] Value taken(Value* place);
    void put(Value* place, Value value) noexcept;
    void put_result(Value* place, Value value, ResultUse use);
    [[nodiscard]] Value let_form(Value value);
    [[nodiscard]] static Value copy_of(const Value& value);
    [[nodiscard]] static Value same_object(Context& context, const Value& left, const Value& right);

    // Assignments
    void let(Value* target, Value* source);
    void set(Value* target, Value* source);
    void move(Value* target, Value* source);
    void pass_element(Value* target, Value* array, Value* lock, int count);
    void element_reference(Value* target, Value* array, Value* window, int count);
    static void unlock(Value* lock) noexcept;

    // Operators on whatever the fast paths do not take
    using Operator = Value (*)(Context&, const Value&, const Value&);
    using UnaryOperator = Value (*)(Context&, const Value&);
    template <auto quick, auto general>
    void operate_with(Value* target, Value* left, Value* right);
    template <auto quick, auto general>
    void operate_with_number(Value* target, Value* left, std::int16_t number);
    template <Comparison comparison>
    [[nodiscard]] bool holds_for(Value* left, Value* right);
    template <Comparison comparison>
    [[nodiscard]] bool holds_for_number(Value* left, std::int16_t number);
    void operate(Operator operation, Value* target, Value* left, Value* right);
    void operate(UnaryOperator operation, Value* target, Value* operand);
    void operate_number(Operator operation, Value* target, Value* left, std::int16_t number);
    [[nodiscard]] Value compared(Comparison comparison, const Value* left, const Value* right);
    [[nodiscard]] bool holds(Comparison comparison, Value* left, Value* right);
    [[nodiscard]] bool is_case(Value* subject, Value* candidate);
    [[nodiscard]] bool holds_number(Comparison comparison, Value* left, std::int16_t number);
    void compare_into(Comparison comparison, Value* target, Value* left, Value* right);
    [[nodiscard]] bool is_true(Value* value);
    void concatenate_many(Value* target, Value* window, int count);
    [[nodiscard]] Value joined(Value first, Value* part, const Value* end);
    void concatenate_two(Value* target, Value* left, Value* right);
    void append(Value* target, Value* source);
    void append_many(Value* target, Value* window, int count, bool keeps_first);
    [[nodiscard]] bool append_in_place(Value& target, const Value& source);

    // Loops
    [[nodiscard]] bool for_start(Value* counter, Value* control);
    [[nodiscard]] bool for_next(Value* counter, Value* control);
    [[nodiscard]] Value loop_number(Value* place);
    [[nodiscard]] bool is_within(const Value& counter, Value* control);
    void each_start(Value* state, Value* collection);
    [[nodiscard]] bool each_next(Value* target, Value* state);

    // Elements and members
    void index(Value* target, Value* holder, Value* index, ResultUse use);
    void index_many(Value* target, Value* holder, Value* window, int count, ResultUse use);
    void let_element(Value* holder, Value* index, Value* source, Access access);
    void let_element_many(Value* holder, Value* window, int count, Access access);
    [[nodiscard]] Value* find_element(Value& array, std::span<const Value> indexes);
    [[nodiscard]] static Value object_form(Value value);
    [[nodiscard]] Value* plain_element(const Value& holder, std::span<const Value> indexes);
    void redim(Value* target, Value* window, int count, bool preserve);
    void erase(Value* target);
    void make_array(Value* target, const std::vector<std::int32_t>& bounds);
    [[nodiscard]] Object& object_at(Value* place);
    void look_up(MemberSite& site, Object& object, Access access);
    void read_member(MemberSite& site, Value* window, int count, Value* result, ResultUse use);
    [[nodiscard]] Value element_of_field(const Value& field, Value* window, int count);
    void write_member(MemberSite& site, Value* window, int count, Access access);
    [[nodiscard]] Value invoke(Object& object, MemberId member, Access access, Value* window,
                               int count);
    void call_library(const LibraryFunction& function, Value* window, int count, Value* result,
                      ResultUse use);
    void call_library_one(const LibraryFunction& function, Value* argument, Value* result,
                          ResultUse use);
    [[nodiscard]] Ref<Object> new_instance(ClassInfo& info);
    void new_named(Value* target, NameId name);

    // Errors
    void recover(ScriptError error, const Frame* entry);
    void locate(ScriptError& error) const;
    void describe(ScriptError& error) const;
    [[nodiscard]] bool is_raised() const noexcept;
    void handle(const ScriptError& error, Frame* handler);
    [[nodiscard]] const Code::Subject* subject() const noexcept;
    void tick();

    // Execute and Eval
    void evaluate(Value* target, Value* text);
    void execute(Value* text, bool in_global_scope);
    [[nodiscard]] Value run_inside(const std::shared_ptr<const Program>& program);
    [[nodiscard]] Ref<Code> compile_inside(const std::shared_ptr<const Program>& program,
                                           const Frame& around);
    [[nodiscard]] Value& variable_of(Frame& frame, NameId name);
    void own_names(Frame& frame);
    void declare_outside(Module& module, const std::shared_ptr<const Program>& program);
    void show_new_names(Module& module);
    void declare_inside(const std::shared_ptr<const Program>& program, Frame& around);
    void rethrow_pending();

    static constexpr std::size_t kMostFrames = 20000;
    static constexpr std::size_t kMostValues = std::size_t{1} << 20;
    static constexpr std::size_t kGrowth = 4096;
    static constexpr std::int32_t kTicks = 4096;  // calls and jumps back between looks at the clock

    Symbols& symbols_;
    Context& context_;
    EngineHost& host_;
    Ref<MachineLink> link_;
    Ref<ErrorObject> error_;
    InstanceList instances_;

    std::unique_ptr<Frame[]> frames_;  // the first one is nobody's
    Frame* top_;
    Frame* last_frame_;
    std::allocator<Value> memory_;
    Value* stack_;
    Value* stack_end_;  // values from here on are not constructed yet
    std::uintptr_t far_base_;
    std::vector<std::unique_ptr<DynamicNames>> dynamic_names_;

    std::int32_t ticks_ = kTicks;
    std::optional<std::chrono::milliseconds> limit_;
    std::optional<std::chrono::milliseconds> deadline_;
    bool is_timed_out_ = false;
    std::exception_ptr pending_;
    std::uintptr_t native_base_ = 0;  // where the program's own stack stood at the outermost call
};

}  // namespace vbscript
