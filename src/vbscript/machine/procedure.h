#pragma once

#include <cstdint>
#include <memory>

#include "vbscript/machine/code.h"

namespace vbscript {

// A Sub, Function or Property of a module or class. Compiled when it is called first, and again
// when a name that it uses has got another meaning. Lives as long as the engine; a new procedure of
// the same name takes over the object, so that whoever knows it calls the new one.
struct Procedure final : Counted {
    NameId name = 0;
    const ast::Procedure* tree = nullptr;
    std::shared_ptr<const Program> program;
    Module* module = nullptr;
    ClassInfo* owner = nullptr;  // outlives it
    Ref<Code> code;

    [[nodiscard]] bool has_result() const noexcept {
        return tree->kind == ast::ProcedureKind::Function ||
               tree->kind == ast::ProcedureKind::PropertyGet;
    }
};

}  // namespace vbscript
