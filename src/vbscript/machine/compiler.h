#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "vbscript/machine/code_builder.h"
#include "vbscript/machine/scope.h"
#include "vbscript/value/script_error.h"

namespace vbscript {

// Where the value of an expression should go, and what becomes of it.
struct Want {
    std::optional<Place> place;  // none: wherever it is, or a new temporary
    ResultUse use = ResultUse::Value;
};

// Turns one unit, a procedure or a script outside of its procedures, into code. Lives for one
// unit. All syntax errors were found before; what is left, such as an undefined variable, becomes
// an instruction that throws.
class Compiler {
  public:
    explicit Compiler(UnitContext context);

    [[nodiscard]] Ref<Code> compile_procedure(const Procedure& procedure);

    // The statements outside of procedures. `program` stays alive with the code.
    [[nodiscard]] Ref<Code> compile_outside(std::shared_ptr<const Program> program);

    // Statements or one expression that run inside of another procedure.
    [[nodiscard]] Ref<Code> compile_inside(std::shared_ptr<const Program> program);

  private:
    // A construct that an Exit may leave.
    struct Enclosing {
        enum class Kind : std::uint8_t { Do, For, With, Other };

        Kind kind = Kind::Other;
        Label exit;
        std::uint32_t local = 0;  // what is made Empty on the way out
        bool has_local = false;
    };

    // Where the array of an element is locked while the element is passed, and behind it the
    // indexes.
    struct Lock {
        Place place;
        bool is_used = false;
    };

    // One call in the making: places for locks of elements, and for Me and the arguments.
    struct Window {
        std::uint32_t height = 0;  // of the temporaries before
        Place result;
        bool has_result_place = false;
        Place first{};              // Me, or the first argument
        std::vector<Lock> locks{};  // one for each argument that may be an element
    };

    // The second part of `a And b` when the first one has decided already: it is still read, since
    // that may fail or call something. Stands behind all other code.
    struct Leftover {
        Label begin;
        const ast::Expression* part = nullptr;
        Label then;
        Label resume;
        ast::Position position;
    };

    using Arguments = ast::Arguments;

    // Units
    void declare_all(ast::Block block);
    void add_me();
    void declare_redim(const ast::ReDim& node);
    void finish_body(ast::Position end);
    void compile_body_or_expression(const Program& program);
    [[nodiscard]] Ref<Code> finish(std::shared_ptr<const Program> program);

    // Statements
    void block(ast::Block statements);
    void statement(const ast::Statement& node);
    void compile(const ast::Statement& node);
    void begin_variable(const ast::Name& name);
    void begin_target(const ast::Expression& target);
    void begin_variables_of(const ast::Statement& node);
    void begin_variables_in_loop(const ast::Statement& loop);

    [[nodiscard]] bool is_outside_of_loops() noexcept {
        return builder_.code().is_outside && loop_depth_ == 0;
    }

    void compile_if(const ast::If& node);
    void compile_select(const ast::SelectCase& node);
    void compile_do(const ast::Do& node);
    void loop_while(const ast::Expression& condition, bool until, ast::Block body,
                    ast::Position head, ast::Position end, Enclosing::Kind kind);
    void compile_for(const ast::For& node);
    void compile_for_each(const ast::ForEach& node);
    void compile_with(const ast::With& node);
    void compile_exit(const ast::Exit& node);
    void leave_return();
    void compile_redim(const ast::ReDim& node);
    void compile_erase(const ast::Erase& node);
    void make_arrays(std::span<const ast::Declarator> variables);
    void clear(std::uint32_t local);
    [[nodiscard]] std::optional<Place> loop_variable(const ast::Name& name);

    // Assignments
    void assign(const ast::Expression& target, const ast::Expression& value, Access access);
    void assign_name(const ast::Identifier& target, const ast::Expression& value, Access access);
    void assign_variable(Place variable, const ast::Expression& value, Access access,
                         const ast::Identifier& target, const Binding& binding);
    void assign_own(const ClassMember& member, const ast::Expression& target, Arguments arguments,
                    const ast::Expression& value, Access access);
    void assign_member(const ast::Member& target, Arguments arguments, const ast::Expression& value,
                       Access access);
    void assign_element(const ast::Apply& target, const ast::Expression& value, Access access);
    void assign_call(const ast::Apply& target, const Binding& binding, const ast::Expression& value,
                     Access access);
    void assign_member_of(Place object, const ast::Expression& subject, const ast::Name& name,
                          Arguments arguments, const ast::Expression& value, Access access);
    void store_element(std::optional<Place> array, const ast::Apply& target,
                       const ast::Expression& value, Access access);
    void clear_references(std::uint32_t height);
    bool append(const ast::Identifier& target, const Binding& binding,
                const ast::Expression& value);

    // Where the variable, field or element stands that the expression names, so that it can be
    // changed in place; else a temporary with its value.
    [[nodiscard]] Place address(const ast::Expression& node);
    [[nodiscard]] std::optional<Place> address_of_name(const ast::Identifier& node);
    [[nodiscard]] bool is_element_of_variable(const ast::Expression& node);

    // Expressions
    [[nodiscard]] Place value(const ast::Expression& node) { return expression(node, {}); }

    void value_into(const ast::Expression& node, Place place) { expression(node, {place}); }

    Place expression(const ast::Expression& node, Want want);
    Place literal(const ast::Literal& node, const Want& want);
    Place identifier(const ast::Identifier& node, Want want, bool is_statement);
    Place binary(const ast::Binary& node, const Want& want);
    Place plain_binary(Op op, const ast::Binary& node, const Want& want);
    Place concatenate(const ast::Binary& node, const Want& want);
    Place unary(const ast::Unary& node, const Want& want);
    Place new_object(const ast::New& node, const Want& want);
    [[nodiscard]] Place settle(Place place, const Want& want);
    [[nodiscard]] Place target_of(const Want& want);
    Place fail(ErrorNumber number, const ast::Name& name, const Want& want);

    // The number of a literal, or of a constant, that fits into an instruction.
    [[nodiscard]] std::optional<std::int16_t> small_number(const ast::Expression& node);
    [[nodiscard]] std::optional<Value> constant_of(const ast::Expression& node);

    // Whether reading the expression may run script, so that variables may change meanwhile.
    [[nodiscard]] bool may_run_script(const ast::Expression& node);
    [[nodiscard]] bool may_run_script(Arguments arguments);
    [[nodiscard]] bool is_call(const Binding& binding) const noexcept;

    // `place`, or a copy of it if what `next` does could change it.
    [[nodiscard]] Place keep(Place place, const ast::Expression& next);

    // A temporary with the value of a variable; constants and temporaries stay.
    [[nodiscard]] Place copy_of(Place place);

    // Conditions. `body` is where an error in the condition goes on.
    struct Target {
        Label jump;
        Label body;
    };

    void jump_unless(const ast::Expression& condition, Target target);
    void jump_if(const ast::Expression& condition, Target target);
    bool jump_on_comparison(const ast::Expression& condition, Label target, Op first,
                            Op first_with_number);
    bool jump_on_parts(const ast::Expression& condition, Target target, bool jumps_if);
    [[nodiscard]] static bool is_truth(const ast::Expression& node) noexcept;
    void compile_leftovers();

    // Calls
    Place apply(const ast::Apply& node, Want want);
    Place call_named(const ast::Identifier& callee, const Binding& binding, Arguments arguments,
                     Want want, bool is_statement);
    void call_statement(const ast::Call& node);
    Place call_procedure(Procedure& procedure, Arguments arguments, const Want& want);
    Place call_itself(Arguments arguments, const Want& want);
    Place call_own(const ClassMember& member, const ast::Identifier& callee, Arguments arguments,
                   const Want& want);
    Place call_own_procedure(Procedure& procedure, Arguments arguments, const Want& want);
    [[nodiscard]] Place raise(Place result, std::uint32_t height, const Want& want);
    Place call_member(const ast::Member& node, Arguments arguments, const Want& want);
    Place call_member_of(Place object, const ast::Expression& subject, const ast::Name& name,
                         Arguments arguments, const Want& want);
    Place call_library(const LibraryFunction& function, const ast::Name& name, Arguments arguments,
                       const Want& want);
    Place call_special(Special special, const ast::Name& name, Arguments arguments,
                       const Want& want);
    Place call_value(Place callee, const ast::Expression& subject, Arguments arguments,
                     const Want& want);

    [[nodiscard]] Window open_window(std::uint32_t places, Arguments arguments, const Want& want);
    void pass_arguments(Window& window, std::uint32_t skip, Arguments arguments,
                        const Procedure* callee);
    void pass_argument(Window& window, const ast::Expression* argument, Place place, bool by_value,
                       std::size_t lock);
    [[nodiscard]] bool pass_variable(const ast::Identifier& argument, Place place);
    [[nodiscard]] bool pass_element(Lock& lock, const ast::Apply& argument, Place place);
    [[nodiscard]] static bool may_be_element(const ast::Expression* argument) noexcept;
    Place close_window(Window& window);
    [[nodiscard]] int extra(std::size_t arguments, ResultUse use) const;
    [[nodiscard]] std::uint32_t new_site(const ast::Name& name, Place object);

    // The code that is made here fails with "Out of memory" beyond the limits of instructions.
    static void require(bool fits);

    UnitContext context_;
    CodeBuilder builder_;
    Scope scope_;
    std::vector<Enclosing> enclosing_;
    std::vector<std::uint32_t> with_objects_;  // locals
    std::vector<Leftover> leftovers_;
    std::optional<std::uint32_t> result_;  // local
    int loop_depth_ = 0;
    bool resumes_next_ = false;  // an On Error Resume Next is somewhere in it
};

}  // namespace vbscript
