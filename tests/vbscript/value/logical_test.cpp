#include <gtest/gtest.h>

#include "vbscript/support/fake_context.h"
#include "vbscript/support/typed.h"
#include "vbscript/value/operators.h"

namespace vbscript {
namespace {

struct Case {
    Value left;
    Value right;
    std::array<std::string_view, 5> expected;  // And, Or, Xor, Eqv, Imp
};

const Value kTrue(true);
const Value kFalse(false);
const Value kEmpty;
const Value kNothing(kNull);

void expect(const std::vector<Case>& cases) {
    FakeContext context;
    constexpr std::array kOperators{logical_and, logical_or, logical_xor, logical_eqv, logical_imp};
    for (const Case& row : cases) {
        for (std::size_t index = 0; index < kOperators.size(); ++index) {
            EXPECT_EQ(typed_result(context,
                                   [&] { return kOperators[index](context, row.left, row.right); }),
                      row.expected[index])
                << index << ": " << typed(context, row.left) << " with "
                << typed(context, row.right);
        }
    }
}

TEST(Logical, TruthValuesStayTruthValues) {
    expect({
        {kTrue,
         kFalse,
         {"Boolean False", "Boolean True", "Boolean True", "Boolean False", "Boolean False"}},
        {kFalse,
         kTrue,
         {"Boolean False", "Boolean True", "Boolean True", "Boolean False", "Boolean True"}},
        {kTrue,
         text(u"true"),
         {"Boolean True", "Boolean True", "Boolean False", "Boolean True", "Boolean True"}},
    });
}

TEST(Logical, NumbersAreCombinedBitByBit) {
    expect({
        {integer(12),
         integer(10),
         {"Integer 8", "Integer 14", "Integer 6", "Integer -7", "Integer -5"}},
        {byte(12), byte(10), {"Byte 8", "Byte 14", "Byte 6", "Byte 249", "Byte 251"}},
        {kTrue, byte(10), {"Integer 10", "Integer -1", "Integer -11", "Integer 10", "Integer 10"}},
        {integer(12),
         long_number(65536),
         {"Long 0", "Long 65548", "Long 65548", "Long -65549", "Long -13"}},
        {Value(2.5), integer(3), {"Long 2", "Long 3", "Long 1", "Long -2", "Long -1"}},
        {text(u"3"), integer(1), {"Long 1", "Long 3", "Long 2", "Long -3", "Long -3"}},
        {kEmpty, integer(5), {"Integer 0", "Integer 5", "Integer 5", "Integer -6", "Integer -1"}},
        {text(u"x"), integer(1), {"error 13", "error 13", "error 13", "error 13", "error 13"}},
        {Value(3e9), integer(1), {"error 6", "error 6", "error 6", "error 6", "error 6"}},
    });
}

TEST(Logical, NullStaysWhereItDecides) {
    expect({
        {kTrue, kNothing, {"Null", "Boolean True", "Null", "Null", "Null"}},
        {kFalse, kNothing, {"Boolean False", "Null", "Null", "Null", "Boolean True"}},
        {kNothing, kTrue, {"Null", "Boolean True", "Null", "Null", "Boolean True"}},
        {kNothing, kFalse, {"Boolean False", "Null", "Null", "Null", "Null"}},
        {kNothing, kNothing, {"Null", "Null", "Null", "Null", "Null"}},
        {integer(0), kNothing, {"Integer 0", "Null", "Null", "Null", "Integer -1"}},
        {kNothing, integer(6), {"Null", "Integer 6", "Null", "Null", "Integer 6"}},
    });
}

TEST(Logical, NotTurnsEveryBit) {
    FakeContext context;
    const std::vector<std::pair<Value, std::string_view>> cases{
        {kTrue, "Boolean False"},
        {integer(5), "Integer -6"},
        {byte(5), "Byte 250"},
        {long_number(0), "Long -1"},
        {kEmpty, "Integer -1"},
        {kNothing, "Null"},
        {Value(2.5), "Long -3"},
        {text(u"False"), "Boolean True"},
        {text(u"abc"), "error 13"},
        {nothing(), "error 91"},
        {stand_in(kTrue), "Boolean False"},
    };
    for (const auto& [operand, expected] : cases) {
        EXPECT_EQ(typed_result(context, [&] { return logical_not(context, operand); }), expected);
    }
}

}  // namespace
}  // namespace vbscript
