#include <memory>
#include <utility>

#include "vbscript/machine/compiler.h"
#include "vbscript/machine/fast_values.h"
#include "vbscript/machine/machine.h"
#include "vbscript/machine/procedure_reference.h"
#include "vbscript/syntax/parser.h"
#include "vbscript/value/convert.h"

// Code that is added to a module, and code that a running script has as a text.

namespace vbscript {

namespace {

using Parse = Program (*)(std::u16string_view source, ParseOptions options);

// A fault in a text is a run-time error of the statement that runs it.
std::shared_ptr<const Program> parsed(Parse parse_text, std::u16string_view source,
                                      bool may_use_me) {
    try {
        return std::make_shared<const Program>(parse_text(source, {.may_use_me = may_use_me}));
    } catch (const SyntaxError& fault) {
        ScriptError error(static_cast<std::int32_t>(fault.number()),
                          std::u16string(fault.description()),
                          u"Microsoft VBScript compilation error");
        error.line = static_cast<std::int32_t>(fault.line());
        error.column = static_cast<std::int32_t>(fault.column());
        error.source_line = fault.source_line();
        throw error;
    }
}

UnitContext outside_of(Symbols& symbols, Module& module, const Program& program) {
    UnitContext unit;
    unit.symbols = &symbols;
    unit.module = &module;
    unit.option_explicit = program.option_explicit();
    return unit;
}

}  // namespace

// Code that runs may have taken the name of a new procedure for a variable: then the variable holds
// the procedure.
void Machine::declare_outside(Module& module, const std::shared_ptr<const Program>& program) {
    for (const ast::Class* tree : program->classes()) {
        symbols_.declare_class(module, *tree, program);
    }
    for (const ast::Procedure* tree : program->procedures()) {
        const auto slot = symbols_.declare_procedure(module, *tree, program);
        if (!slot || !is_running()) {
            continue;
        }
        Procedure& procedure = *symbols_.find_procedure(module, tree->name.folded);
        symbols_.arena().at(*slot) = Value(Ref<Object>(make<ProcedureReference>(procedure, link_)));
    }
}

// The procedure on top of the stack has run a text that may have made global names which it had
// taken for variables of its own.
void Machine::show_new_names(Module& module) {
    for (const NameId name : top_->code->undeclared_names) {
        Value& variable = top_->base[top_->code->register_names.at(name)];
        const ModuleName* const found = symbols_.find(module, name);
        if (found == nullptr || !variable.is(Type::Empty)) {
            continue;
        }
        if (const auto* global = std::get_if<ModuleVariable>(found)) {
            if (global->is_there) {
                variable.set_reference(symbols_.arena().at(global->slot));
            }
        } else if (const auto* procedure = std::get_if<Ref<Procedure>>(found)) {
            variable = Value(Ref<Object>(make<ProcedureReference>(**procedure, link_)));
        }
    }
}

void Machine::run_program(Module& module, const std::shared_ptr<const Program>& program) {
    declare_outside(module, program);
    const Ref<Code> code =
        Compiler(outside_of(symbols_, module, *program)).compile_outside(program);
    static_cast<void>(run(*code));
}

Value Machine::run_expression(Module& module, const std::shared_ptr<const Program>& program) {
    const Ref<Code> code =
        Compiler(outside_of(symbols_, module, *program)).compile_outside(program);
    return run(*code);
}

void Machine::evaluate(Value* target, Value* text) {
    const std::u16string source = to_units(context_, referred(*text));
    consume(text);
    const bool is_method = top_->code->owner != nullptr;
    const auto program = parsed(&parse_expression, source, is_method);
    put(target,
        top_->code->is_outside ? run_expression(running_module(), program) : run_inside(program));
}

void Machine::execute(Value* text, bool in_global_scope) {
    const std::u16string source = to_units(context_, referred(*text));
    consume(text);
    const bool is_outside = in_global_scope || top_->code->is_outside;
    const bool may_use_me = !is_outside && top_->code->owner != nullptr;
    const auto program = parsed(&parse, source, may_use_me);
    if (is_outside) {
        Module& module = running_module();
        run_program(module, program);
        if (!top_->code->is_outside) {
            show_new_names(module);
        }
    } else {
        static_cast<void>(run_inside(program));
    }
}

// Runs a text as a part of the procedure on top of the stack.
Value Machine::run_inside(const std::shared_ptr<const Program>& program) {
    Frame& around = *top_;
    if (program->expression() == nullptr) {
        own_names(around);
    }
    declare_inside(program, around);
    const Ref<Code> code = compile_inside(program, around);
    const bool is_method = code->owner != nullptr;
    return run(*code, [&](Frame& inner) {
        inner.names = around.names;
        if (is_method) {
            *inner.base = *around.base;
        }
        for (const Capture& capture : code->captures) {
            inner.base[capture.into].set_reference(variable_of(around, capture.name));
        }
    });
}

Ref<Code> Machine::compile_inside(const std::shared_ptr<const Program>& program,
                                  const Frame& around) {
    UnitContext unit;
    unit.symbols = &symbols_;
    unit.module = around.code->module;
    unit.owner = around.code->owner;
    unit.around = around.code->procedure;
    unit.option_explicit = program->option_explicit() || around.code->option_explicit;
    unit.is_variable_around = [&around](NameId name) {
        return around.code->register_names.contains(name) ||
               (around.names != nullptr && around.names->contains(name));
    };
    return Compiler(std::move(unit)).compile_inside(program);
}

void Machine::own_names(Frame& frame) {
    if (frame.names != nullptr) {
        return;
    }
    frame.names = dynamic_names_.emplace_back(std::make_unique<DynamicNames>()).get();
    frame.owns_names = true;
}

Value& Machine::variable_of(Frame& frame, NameId name) {
    const auto& registers = frame.code->register_names;
    if (const auto found = registers.find(name); found != registers.end()) {
        Value& variable = frame.base[found->second];
        return variable.is_reference() ? variable.variable() : variable;
    }
    own_names(frame);
    return (*frame.names)[name];
}

// Procedures of such a text can be called in the procedure around it only: they are values of
// variables there.
void Machine::declare_inside(const std::shared_ptr<const Program>& program, Frame& around) {
    for (const ast::Class* tree : program->classes()) {
        symbols_.declare_class(*around.code->module, *tree, program);
    }
    for (const ast::Procedure* tree : program->procedures()) {
        Procedure& procedure = symbols_.add_procedure(*around.code->module, *tree, program);
        variable_of(around, procedure.name) =
            Value(Ref<Object>(make<ProcedureReference>(procedure, link_)));
    }
}

}  // namespace vbscript
