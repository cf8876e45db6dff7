#include "vbscript/machine/compiler.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "vbscript/machine/listing.h"
#include "vbscript/syntax/parser.h"
#include "vbscript/value/convert.h"

// The forms of code that speed depends on.
namespace vbscript {
namespace {

// The code of the first procedure of a script.
std::string procedure_listing(std::string_view script) {
    Symbols symbols;
    const auto program = std::make_shared<const Program>(parse(from_utf8(script)));
    symbols.declare_procedure(symbols.global_module(), *program->procedures().front(), program);
    Procedure& procedure = *symbols.find_procedure(symbols.global_module(),
                                                   program->procedures().front()->name.folded);
    UnitContext unit;
    unit.symbols = &symbols;
    unit.module = procedure.module;
    unit.procedure = &procedure;
    return listing(*Compiler(std::move(unit)).compile_procedure(procedure));
}

struct ListingCase {
    std::string_view name;
    std::string_view script;
    std::string_view listing;
};

class Listing : public ::testing::TestWithParam<ListingCase> {};

TEST_P(Listing, is_short) {
    EXPECT_EQ(procedure_listing(GetParam().script), GetParam().listing);
}

constexpr ListingCase kCases[] = {
    {"recursion", "Function F(n)\nIf n < 2 Then F = n Else F = F(n - 1)\nEnd Function",
     "JumpUnlessLessNumberNear r0 ->3 ; 2\n"
     "LetNear r1 r0\n"
     "Jump ->5\n"
     "SubtractNumberNear r2 r0 ; 1\n"
     "Call r2 r1 #0 ; 4097\n"
     "Return r1\n"},
    {"counting_loop", "Sub S\nFor i = 1 To 9\nx = x + i\nNext\nEnd Sub",
     "Move r2 k0\n"
     "Move r5 k1\n"
     "Move r1 k0\n"
     "MoveNear r0 r5\n"
     "ForStart r3 r0 ->7\n"
     "AddNear r4 r4 r3\n"
     "ForNextOneNear r3 r0 ->5\n"
     "ReturnNothing\n"},
    {"growing_text", "Sub S(t)\nt = t & \"x\"\nEnd Sub", "Append r0 k0\nReturnNothing\n"},
    {"conditions_jump_at_once", "Sub S(a, b)\nDo While a < b And b > 1\na = a + 1\nLoop\nEnd Sub",
     "JumpUnlessLessNear r0 r1 ->6\n"
     "JumpUnlessGreaterNumberNear r1 ->5 ; 1\n"
     "AddNumberNear r0 r0 ; 1\n"
     "JumpUnlessLessNear r0 r1 ->8\n"
     "JumpIfGreaterNumberNear r1 ->2 ; 1\n"
     "ReturnNothing\n"
     "CompareGreater r2 r1 k0\n"
     "Jump ->5\n"
     "CompareGreater r2 r1 k0\n"
     "Jump ->5\n"},
};

INSTANTIATE_TEST_SUITE_P(cases, Listing, ::testing::ValuesIn(kCases),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace vbscript
