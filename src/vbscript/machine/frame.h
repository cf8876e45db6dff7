#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include "vbscript/machine/code.h"
#include "vbscript/machine/instruction.h"

namespace vbscript {

// Variables that an `Execute` made in a running procedure. Addresses stay.
using DynamicNames = std::unordered_map<NameId, Value>;

// One running procedure, or code outside of procedures. Never initialised but by `Machine`, so that
// thousands of unused ones cost nothing.
struct Frame {
    const Instruction* pc;  // of the instruction that runs, or that calls the next frame
    std::uintptr_t near;    // address of near places; see `Instruction`
    std::ptrdiff_t far;     // from there to the far ones
    Code* code;
    Value* base;    // registers from here
    Value* end;     // to here
    Value* result;  // where the result goes; null: nowhere
    DynamicNames* names;
    ResultUse use;
    bool is_entry;  // was called by the program, not by script
    bool resumes_next;
    bool owns_names;
};

}  // namespace vbscript
