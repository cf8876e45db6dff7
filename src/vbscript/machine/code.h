#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "vbscript/machine/instruction.h"
#include "vbscript/machine/name_table.h"
#include "vbscript/machine/value_arena.h"
#include "vbscript/syntax/program.h"
#include "vbscript/value/context.h"

namespace vbscript {

class ClassInfo;
class Module;
struct Procedure;

// Where a statement begins. An error in it goes on, if it may, at `resume`, or at the next
// statement in the order of the code.
struct StatementPlace {
    static constexpr std::uint32_t kNext = 0;

    std::uint32_t begin = 0;
    std::uint32_t resume = kNext;
    ast::Position position;
};

// One access to a member by name, with what its last look-up found.
struct MemberSite {
    std::u16string_view name;
    std::u16string_view folded;
    std::int32_t object = 0;  // a place, as in an instruction

    // Of the class that was met last: a procedure or field of a script's class, or else the number
    // that its objects know the member by.
    const Counted* identity = nullptr;
    Procedure* procedure = nullptr;
    std::int32_t field = -1;
    MemberId number = 0;
};

// A variable of the procedure around it that code in an `Execute` or `Eval` uses: its register
// there is a reference to the variable.
struct Capture {
    NameId name = 0;
    std::uint32_t into = 0;  // register of this code
};

// The instructions of one procedure, or of a script outside of its procedures, with the lists that
// they refer to. Never changed once made, but for the look-ups that sites remember. Owned by the
// procedure, or by whoever runs it; procedures and classes that it refers to live as long as the
// engine.
class Code final : public Counted {
  public:
    explicit Code(ValueArena& arena) noexcept;

    ~Code() override;

    // Takes the places of its constants.
    void adopt_constants(std::vector<Value> constants);

    [[nodiscard]] std::uint32_t first_constant() const noexcept { return first_constant_; }

    [[nodiscard]] std::uint32_t constant_count() const noexcept { return constant_count_; }

    // Whether a place of an instruction is one of the numbers and texts that stand in the source.
    [[nodiscard]] bool is_literal(const Value* place) const noexcept;

    // Locals and temporaries of code outside of procedures.
    void allocate_own(std::uint32_t locals, std::uint32_t temporaries);

    [[nodiscard]] std::uint32_t first_own() const noexcept { return first_own_; }

    [[nodiscard]] std::span<Value> own() noexcept;
    [[nodiscard]] std::span<Value> own_temporaries() noexcept;

    [[nodiscard]] bool is_own_temporary(const Value* place) const noexcept {
        return place >= own_temporaries_ && place < own_end_;
    }

    // What the instructions refer to by index.
    std::vector<Instruction> instructions;
    std::vector<StatementPlace> places;  // by `begin`
    std::vector<MemberSite> sites;
    std::vector<Procedure*> callees;
    std::vector<const LibraryFunction*> functions;
    std::vector<ClassInfo*> classes;
    std::vector<std::vector<std::int32_t>> bounds;  // upper bounds of new arrays; none: dynamic
    std::vector<NameId> class_names;
    std::vector<Capture> captures;

    // What an instruction's error is about, in the words of the source; by instruction.
    struct Subject {
        std::uint32_t instruction;
        const ast::Expression* expression;  // or, without one,
        std::u16string_view name;
    };

    std::vector<Subject> subjects;

    // Registers: arguments, then other locals, then temporaries.
    std::uint32_t argument_count = 0;
    std::uint32_t local_count = 0;
    std::uint32_t register_count = 0;
    std::uint32_t first_local = 0;        // behind Me and the arguments
    std::vector<std::uint32_t> by_value;  // arguments that must not be references
    bool has_by_value = false;

    // Stands outside of procedures, so that near places are globals.
    bool is_outside = false;

    bool option_explicit = false;

    // Of code with an `Execute` or `Eval` in it: what its registers are called.
    bool has_dynamic_names = false;
    std::unordered_map<NameId, std::uint32_t> register_names;
    std::vector<NameId> undeclared_names;  // those of them that nobody declares

    Module* module = nullptr;
    ClassInfo* owner = nullptr;      // of a method
    Procedure* procedure = nullptr;  // that it is, or runs inside of
    std::shared_ptr<const Program> program;

  private:
    ValueArena& arena_;
    std::uint32_t first_constant_ = 0;
    std::uint32_t constant_count_ = 0;
    std::uint32_t first_own_ = 0;
    std::uint32_t own_count_ = 0;
    Value* own_temporaries_ = nullptr;
    Value* own_end_ = nullptr;
};

}  // namespace vbscript
