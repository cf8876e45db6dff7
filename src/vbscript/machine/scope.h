#pragma once

#include <cstdint>
#include <functional>
#include <unordered_map>

#include "vbscript/machine/code_builder.h"
#include "vbscript/machine/symbols.h"

namespace vbscript {

// Functions of the language that need the running code itself.
enum class Special : std::uint8_t { Eval, Execute, ExecuteGlobal };

// What a name means in the code that is compiled.
struct Binding {
    enum class Kind : std::uint8_t {
        Undefined,
        Variable,      // at `place`
        Constant,      // `constant`
        OwnMember,     // `member` of the class around
        Procedure,     // `procedure`
        Class,         // `info`
        Library,       // `function`
        Special,       // `special`
        Object,        // of the program, at `place`
        GlobalMember,  // of the object of the program at `place`
    };

    Kind kind = Kind::Undefined;
    Place place;
    Value constant;
    const ClassMember* member = nullptr;
    Procedure* procedure = nullptr;
    ClassInfo* info = nullptr;
    const LibraryFunction* function = nullptr;
    Special special = Special::Eval;
    bool is_shared = false;  // a variable that others may write to: global, or by reference
    bool is_result = false;  // the variable that holds a function's result
};

// The code that is compiled, as seen by its names.
struct UnitContext {
    Symbols* symbols = nullptr;
    Module* module = nullptr;
    ClassInfo* owner = nullptr;      // of a method, and of code that runs inside of one
    Procedure* procedure = nullptr;  // compiled again when a name changes; else null
    bool option_explicit = false;

    // For code inside of a running procedure: whether a name is one of its variables.
    std::function<bool(NameId)> is_variable_around;
    Procedure* around = nullptr;
};

// The names that one unit of code sees: its own, those of its class, its module, the global module,
// the language, the program's objects. Lives while the unit is compiled.
class Scope {
  public:
    Scope(const UnitContext& context, CodeBuilder& builder);

    // What the name means. A name without a meaning becomes a variable, unless `Option Explicit`
    // forbids it.
    [[nodiscard]] Binding resolve(const ast::Name& name);

    [[nodiscard]] NameId id_of(const ast::Name& name);

    // A parameter or the result of a function. Requires: a procedure.
    void add_register(const ast::Name& name, std::uint32_t number, bool is_by_reference,
                      bool is_result);

    // `Dim`, `ReDim`: a variable of this unit, unless it is one already.
    void declare_variable(const ast::Name& name);
    void declare_constant(const ast::Name& name, const Value& value);

    // Whether the name means something already, here or around.
    [[nodiscard]] bool is_known(const ast::Name& name);

    // Whether it is a variable of the module that begins with its first use, which is yet to come.
    [[nodiscard]] bool is_still_unused(NameId id);

    // Fills the list of register names.
    void list_registers(Code& code) const;

  private:
    struct Local {
        Binding binding;
        std::uint32_t number = 0;
        bool is_register = false;
        bool is_declared = true;
    };

    [[nodiscard]] bool is_inner() const noexcept { return bool{context_.is_variable_around}; }

    [[nodiscard]] bool is_outside() const noexcept {
        return context_.procedure == nullptr && !is_inner();
    }

    [[nodiscard]] Binding find_in_modules(NameId id);
    [[nodiscard]] Binding find_in_language(NameId id, const ast::Name& name);
    Binding add_variable(NameId id, bool is_declared);
    Binding add_capture(NameId id);
    void watch(NameId id);

    const UnitContext& context_;
    CodeBuilder& builder_;
    std::unordered_map<NameId, Local> locals_;
};

}  // namespace vbscript
