#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "vbscript/machine/module.h"
#include "vbscript/machine/name_table.h"
#include "vbscript/machine/value_arena.h"
#include "vbscript/value/context.h"

namespace vbscript {

// All that code can name: modules, objects of the program, functions and constants of the language.
// Owned by the engine. Remembers which procedures use a name, so that they are compiled again when
// it gets another meaning.
class Symbols {
  public:
    // An object of the program, or of the language itself. It stands in the arena.
    struct NamedObject {
        NameId name = 0;
        std::uint32_t slot = 0;
        bool has_global_members = false;
    };

    Symbols();

    [[nodiscard]] NameTable& names() noexcept { return names_; }

    [[nodiscard]] ValueArena& arena() noexcept { return arena_; }

    [[nodiscard]] Module& global_module() noexcept { return modules_.front(); }

    Module& add_module(std::u16string_view name);
    [[nodiscard]] Module* find_module(std::u16string_view name) noexcept;

    // In the module itself, or in the global one.
    [[nodiscard]] const ModuleName* find(const Module& module, NameId name) noexcept;

    // An existing variable stays as it is; any other meaning of the name ends.
    enum class Declaration : std::uint8_t { Stated, Implicit };
    std::uint32_t declare_variable(Module& module, NameId name, Declaration declaration);

    // A variable without a declaration is used for the first time.
    void begin_variable(Module& module, NameId name);

    void declare_constant(Module& module, NameId name, Value value);

    // Gives the slot of the variable that had the name before.
    std::optional<std::uint32_t> declare_procedure(Module& module, const ast::Procedure& tree,
                                                   const std::shared_ptr<const Program>& program);
    // Null when the module has none.
    [[nodiscard]] Procedure* find_procedure(const Module& module, std::u16string_view folded);

    void declare_class(Module& module, const ast::Class& tree,
                       const std::shared_ptr<const Program>& program);

    // A procedure that no module knows: of code that runs inside of another procedure.
    Procedure& add_procedure(Module& module, const ast::Procedure& tree,
                             const std::shared_ptr<const Program>& program);

    // An object of the same name is replaced.
    void add_object(std::u16string_view name, Ref<Object> object, bool has_global_members);
    [[nodiscard]] const NamedObject* find_object(NameId name) const noexcept;

    // The object whose members are global and has this one.
    [[nodiscard]] const NamedObject* find_global_member(std::u16string_view name);

    [[nodiscard]] const LibraryFunction* find_function(NameId name) const noexcept;
    [[nodiscard]] const Value* find_constant(NameId name) const noexcept;

    // The procedure is compiled again when the name gets another meaning.
    void watch(NameId name, Procedure& procedure);

    // Code that was replaced may still be running: it ends here, once nothing runs.
    void drop_retired_code() noexcept { retired_.clear(); }

    // Ends the values of all global variables, in the order of their definition. Script may run.
    void release_variables() noexcept;

    // Lets go of the program's objects.
    void release_objects() noexcept;

    // Ends procedures, classes and code.
    void release_code() noexcept;

  private:
    ModuleName& meaning(Module& module, NameId name);
    void define(Procedure& procedure, Module& module, const ast::Procedure& tree,
                const std::shared_ptr<const Program>& program);
    void changed(NameId name);
    void retire(Procedure& procedure);

    NameTable names_;
    ValueArena arena_;
    std::deque<Module> modules_;
    std::vector<NamedObject> objects_;
    std::unordered_map<NameId, const LibraryFunction*> functions_;
    std::unordered_map<NameId, const Value*> constants_;
    std::unordered_map<NameId, std::unordered_set<Procedure*>> watchers_;
    std::vector<Ref<Code>> retired_;

    // All that was ever defined, since code that runs may refer to it.
    std::vector<Ref<Procedure>> procedures_;
    std::vector<Ref<ClassInfo>> classes_;
    std::vector<std::uint32_t> orphans_;  // slots of variables whose name means something else
};

}  // namespace vbscript
