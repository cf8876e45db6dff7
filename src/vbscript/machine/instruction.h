#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vbscript {

// The instructions of the machine: X(name, kinds of the fields a, b and c).
//
//   v  a place that holds a value: register, global variable or constant, see `Instruction`
//   w  the first of several neighbouring registers, a window; `extra` tells how many count
//   j  how many instructions to jump over, counted from this one
//   n  a number of its own meaning: a field, or an index into one of the lists of `Code`
//   -  nothing
//
// A temporary register that is read as `v` is left without a text, object or array; a window is
// left so by the call that takes it. An instruction that writes a place writes through a reference
// that stands there, except where it is told otherwise.
//
// Y stands for two instructions, one of them for operands that are all near: `AddNear` behind
// `Add`.
#define VBSCRIPT_COMPARISONS(Y, prefix, suffix, fields) \
    Y(prefix##Equal##suffix, fields)                    \
    Y(prefix##NotEqual##suffix, fields)                 \
    Y(prefix##Less##suffix, fields)                     \
    Y(prefix##LessOrEqual##suffix, fields)              \
    Y(prefix##Greater##suffix, fields)                  \
    Y(prefix##GreaterOrEqual##suffix, fields)

#define VBSCRIPT_INSTRUCTIONS(X, Y)                                                                \
    Y(Move, "vv-")           /* a := b, as it is */                                                \
    Y(Let, "vv-")            /* a := b; an object stands for its value, a fixed array is copied */ \
    X(Set, "vv-")            /* a := b, which must be an object */                                 \
    X(LoadField, "vn-")      /* a := field b of Me */                                              \
    X(LetField, "nv-")       /* field a of Me := b, as Let */                                      \
    X(SetField, "nv-")       /* the same, as Set */                                                \
    X(FieldReference, "vn-") /* a becomes a reference to field b of Me; a is not written to */     \
    X(PassReference, "vv-")  /* a becomes a reference to variable b, or to what b refers to */     \
    X(ElementReference, "vvw") /* a becomes a reference to the element of array b */               \
    X(PassElement, "vvw") /* the same; c locks the array, indexes follow behind c; a value, if     \
                             b is no array */                                                      \
    X(Unlock, "w--")      /* ends the locks that stand in registers */                             \
    X(Clear, "w--")       /* makes registers Empty */                                              \
    Y(Add, "vvv")         /* a := b + c */                                                         \
    Y(Subtract, "vvv")                                                                             \
    Y(Multiply, "vvv")                                                                             \
    Y(Divide, "vvv")                                                                               \
    Y(DivideWhole, "vvv")                                                                          \
    Y(Remainder, "vvv")                                                                            \
    X(Power, "vvv")                                                                                \
    X(Concatenate, "vvv")                                                                          \
    X(And, "vvv")                                                                                  \
    X(Or, "vvv")                                                                                   \
    X(Xor, "vvv")                                                                                  \
    X(Eqv, "vvv")                                                                                  \
    X(Imp, "vvv")                                                                                  \
    Y(AddNumber, "vv-") /* a := b + extra */                                                       \
    Y(SubtractNumber, "vv-")                                                                       \
    X(Negate, "vv-")                                                                               \
    X(Plus, "vv-")                                                                                 \
    X(Not, "vv-")                                                                                  \
    X(ConcatenateMany, "vw-")                                                                      \
    X(Append, "vv-") /* a := a & b */                                                              \
    X(AppendMany, "vw-")                                                                           \
    X(Is, "vvv")                                                                                   \
    VBSCRIPT_COMPARISONS(Y, Compare, , "vvv")      /* a := b = c */                                \
    VBSCRIPT_COMPARISONS(Y, JumpIf, , "vvj")       /* a = b: jump */                               \
    VBSCRIPT_COMPARISONS(Y, JumpUnless, , "vvj")   /* not (a = b), also for Null: jump */          \
    VBSCRIPT_COMPARISONS(Y, JumpIf, Number, "v-j") /* the same with `extra` for b */               \
    VBSCRIPT_COMPARISONS(Y, JumpUnless, Number, "v-j")                                             \
    X(JumpIfCase, "vvj") /* a = b, a literal being like any other value: jump */                   \
    X(Jump, "--j")                                                                                 \
    X(JumpIf, "v-j")     /* a is true */                                                           \
    X(JumpUnless, "v-j") /* a is false or Null */                                                  \
    X(ForStart, "vwj")   /* counter a; b holds limit, step and start; jump past the loop */        \
    X(ForNext, "vwj")    /* jump back to the body */                                               \
    Y(ForNextOne, "vwj") /* the same with step 1 */                                                \
    X(EachStart, "vv-")  /* a becomes the state of a walk over b */                                \
    X(EachNext, "vvj")   /* a := the next element of walk b, jump back to the body */              \
    Y(Index, "vvv")      /* a := b(c) */                                                           \
    X(IndexMany, "vvw")  /* a := b(c...); b may be called as a default member */                   \
    Y(LetElement, "vvv") /* a(b) := c */                                                           \
    X(SetElement, "vvv")                                                                           \
    X(LetElementMany, "vw-") /* a(b...) := the value behind the indexes */                         \
    X(SetElementMany, "vw-")                                                                       \
    X(Call, "wvn")       /* b := procedure c with the arguments a */                               \
    X(CallOwn, "wvn")    /* the same for a procedure of this class; Me goes in front of a */       \
    X(CallMember, "wvn") /* b := member c of an object; arguments stand behind a */                \
    X(LetMember, "w-n")  /* the last argument is the value */                                      \
    X(SetMember, "w-n")                                                                            \
    X(CallLibrary, "wvn")                                                                          \
    X(CallLibraryOne, "vvn") /* one argument, wherever it stands */                                \
    X(New, "wvn")            /* b := a new object of class c */                                    \
    X(NewNamed, "-vn")       /* the same, of a class that is looked up by name c */                \
    X(Return, "v--")                                                                               \
    X(ReturnNothing, "---")                                                                        \
    X(WithObject, "vv-") /* a := b, which must be an object */                                     \
    X(OnErrorResumeNext, "---")                                                                    \
    X(OnErrorGoToZero, "---")                                                                      \
    X(ClearError, "---")                                                                           \
    X(Throw, "--n") /* error c; its detail is the name at this place */                            \
    X(Redim, "vwn") /* variable a gets the bounds b; c: preserve */                                \
    X(Erase, "v--")                                                                                \
    X(MakeArray, "v-n")     /* a := a new array with the bounds of row c */                        \
    X(BeginVariable, "--n") /* the variable named c of the module is used for the first time */    \
    X(Evaluate, "vv-")      /* a := Eval(b) */                                                     \
    X(Execute, "-vn")       /* c: in the global scope */

enum class Op : std::uint16_t {
#define VBSCRIPT_OP(name, fields) name,
#define VBSCRIPT_OPS(name, fields) name, name##Near,
    VBSCRIPT_INSTRUCTIONS(VBSCRIPT_OP, VBSCRIPT_OPS)
#undef VBSCRIPT_OP
#undef VBSCRIPT_OPS
};

struct OpRow {
    std::string_view name;
    std::string_view fields;
    bool has_near_form = false;
};

// By Op.
inline constexpr OpRow kOpRows[] = {
#define VBSCRIPT_ROW(name, fields) {#name, fields},
#define VBSCRIPT_ROWS(name, fields) {#name, fields, true}, {#name "Near", fields},
    VBSCRIPT_INSTRUCTIONS(VBSCRIPT_ROW, VBSCRIPT_ROWS)
#undef VBSCRIPT_ROW
#undef VBSCRIPT_ROWS
};

[[nodiscard]] constexpr const OpRow& row_of(Op op) noexcept {
    return kOpRows[static_cast<std::size_t>(op)];
}

// One instruction. A place is a distance in bytes from one of two bases: from 0 up it is near, in
// the registers of a procedure, or, for code outside of procedures, among globals and constants;
// below 0 it is far, the other way round.
struct alignas(16) Instruction {
    Op op = Op::ReturnNothing;
    std::int16_t extra = 0;
    std::int32_t a = 0;
    std::int32_t b = 0;
    std::int32_t c = 0;
};

static_assert(sizeof(Instruction) == 16);

// Far places are stored less this.
inline constexpr std::int32_t kFarBias = std::int32_t{1} << 30;

// What becomes of the result of a call; in `extra`, above the number of arguments.
enum class ResultUse : std::uint8_t {
    Value,    // as it is
    Let,      // an object stands for its value
    Nothing,  // dropped
};

inline constexpr int kResultUseShift = 12;
inline constexpr int kMostArguments = (1 << kResultUseShift) - 1;

[[nodiscard]] constexpr int argument_count(std::int16_t extra) noexcept {
    return extra & kMostArguments;
}

[[nodiscard]] constexpr ResultUse result_use(std::int16_t extra) noexcept {
    return static_cast<ResultUse>((extra >> kResultUseShift) & 3);
}

}  // namespace vbscript
