#include <gtest/gtest.h>

#include "vbscript/support/fake_context.h"
#include "vbscript/support/typed.h"
#include "vbscript/value/operators.h"

namespace vbscript {
namespace {

using Operator = Value (*)(Context&, const Value&, const Value&);

struct Case {
    Operator operation;
    Value left;
    Value right;
    std::string_view expected;
};

struct Operand {
    Value value;
    std::string_view expected;
};

void expect(const std::vector<Case>& cases) {
    FakeContext context;
    for (const Case& row : cases) {
        EXPECT_EQ(
            typed_result(context, [&] { return row.operation(context, row.left, row.right); }),
            row.expected)
            << typed(context, row.left) << " with " << typed(context, row.right);
    }
}

const Value kTrue(true);
const Value kEmpty;

TEST(Arithmetic, WholeNumbersWidenOnOverflow) {
    expect({
        {add, integer(2), integer(3), "Integer 5"},
        {add, integer(32767), integer(1), "Long 32768"},
        {add, long_number(2147483647), integer(1), "Double 2147483648"},
        {add, byte(200), byte(55), "Byte 255"},
        {add, byte(200), byte(56), "Integer 256"},
        {add, byte(1), integer(1), "Integer 2"},
        {subtract, byte(1), byte(2), "Integer -1"},
        {subtract, integer(-32768), integer(1), "Long -32769"},
        {subtract, long_number(-2147483647), long_number(2), "Double -2147483649"},
        {multiply, integer(300), integer(300), "Long 90000"},
        {multiply, byte(16), byte(16), "Integer 256"},
        {multiply, long_number(65536), long_number(65536), "Double 4294967296"},
        {add, kTrue, kTrue, "Integer -2"},
        {multiply, kTrue, byte(2), "Integer -2"},
    });
}

TEST(Arithmetic, FractionsTakeTheWiderSubType) {
    expect({
        {add, Value(1.5F), integer(1), "Single 2.5"},
        {add, Value(1.5F), long_number(1), "Double 2.5"},
        {multiply, Value(1.5F), Value(2.0F), "Single 3"},
        {multiply, Value(3e38F), Value(10.0F), "Double 3.00000000549776E+39"},
        {add, Value(0.1), Value(0.2), "Double 0.3"},
        {multiply, Value(1e300), Value(1e300), "error 6"},
        {add, Value(1e308), Value(1e308), "error 6"},
    });
}

TEST(Arithmetic, MoneyIsExact) {
    expect({
        {add, currency(1), currency(9223372036854775806), "Currency 922337203685477.5807"},
        {add, currency(1), currency(9223372036854775807), "error 6"},
        {add, currency(15000), Value(0.5), "Currency 2"},
        {multiply, currency(12500), integer(2), "Currency 2.5"},
        {multiply, currency(15000), currency(5), "Currency 0.0008"},
        {multiply, currency(5000), currency(5), "Currency 0.0002"},
        {multiply, currency(-5000), currency(7), "Currency -0.0004"},
        {multiply, currency(15000), Value(2.0), "Double 3"},
        {multiply, currency(9223372036854775807), integer(2), "error 6"},
        {divide, currency(30000), integer(2), "Double 1.5"},
    });
}

TEST(Arithmetic, DatesStayDatesInTheCalendar) {
    const Value day = moment(2026, 11, 24);
    expect({
        {add, day, integer(1), "Date 11/25/2026"},
        {add, integer(1), day, "Date 11/25/2026"},
        {subtract, day, Value(0.5), "Date 11/23/2026 12:00:00 PM"},
        {subtract, day, moment(2026, 11, 1), "Double 23"},
        {add, moment(9999, 12, 31), integer(1), "Double 2958466"},
        {multiply, day, integer(1), "Double 46350"},
        {add, day, text(u"2"), "Date 11/26/2026"},
    });
}

TEST(Arithmetic, TextsAreNumbersUnlessBothAreAdded) {
    expect({
        {add, text(u"1"), text(u"2"), "String 12"},
        {add, text(u"1"), integer(2), "Double 3"},
        {add, text(u"x"), integer(2), "error 13"},
        {subtract, text(u"5"), text(u"3"), "Double 2"},
        {multiply, text(u"&HFF"), integer(1), "Double 255"},
        {add, text(u"1E400"), integer(2), "error 6"},
    });
}

TEST(Arithmetic, EmptyIsNothingAndNullStays) {
    expect({
        {add, kEmpty, kEmpty, "Integer 0"},
        {add, kEmpty, text(u"a"), "String a"},
        {add, byte(7), kEmpty, "Byte 7"},
        {subtract, kEmpty, integer(3), "Integer -3"},
        {multiply, kEmpty, Value(2.5), "Double 0"},
        {add, Value(kNull), text(u"a"), "Null"},
        {multiply, integer(1), Value(kNull), "Null"},
        {divide, Value(kNull), integer(0), "Null"},
        {power, Value(kNull), integer(0), "Null"},
        {concatenate, Value(kNull), text(u"a"), "String a"},
        {concatenate, Value(kNull), Value(kNull), "Null"},
        {concatenate, kEmpty, integer(5), "String 5"},
    });
}

TEST(Arithmetic, Division) {
    expect({
        {divide, integer(1), integer(2), "Double 0.5"},
        {divide, Value(1.0F), integer(4), "Single 0.25"},
        {divide, Value(1.0F), long_number(4), "Double 0.25"},
        {divide, integer(1), integer(0), "error 11"},
        {divide, integer(0), integer(0), "error 6"},
        {divide, Value(1e300), Value(1e-300), "error 6"},
        {divide_whole, integer(7), integer(2), "Integer 3"},
        {divide_whole, integer(-7), integer(2), "Integer -3"},
        {divide_whole, Value(7.5), Value(2.5), "Long 4"},
        {divide_whole, byte(9), byte(2), "Byte 4"},
        {divide_whole, integer(-32768), integer(-1), "Long 32768"},
        {divide_whole, long_number(-2147483647 - 1), integer(-1), "error 6"},
        {divide_whole, Value(3e9), integer(1), "error 6"},
        {divide_whole, integer(1), Value(0.5), "error 11"},
        {remainder, integer(-7), integer(3), "Integer -1"},
        {remainder, Value(12.6), integer(5), "Long 3"},
        {remainder, text(u"7"), byte(4), "Long 3"},
        {remainder, long_number(-2147483647 - 1), integer(-1), "Long 0"},
        {remainder, integer(1), kEmpty, "error 11"},
    });
}

TEST(Arithmetic, Powers) {
    expect({
        {power, integer(2), integer(10), "Double 1024"},
        {power, integer(-2), integer(3), "Double -8"},
        {power, integer(-8), Value(1.0 / 3), "error 5"},
        {power, integer(0), integer(0), "Double 1"},
        {power, integer(0), integer(-1), "error 5"},
        {power, integer(10), integer(309), "error 6"},
    });
}

TEST(Arithmetic, Negation) {
    FakeContext context;
    const std::vector<Operand> cases{
        {integer(-32768), "Long 32768"},
        {long_number(-2147483647 - 1), "Double 2147483648"},
        {byte(0), "Integer 0"},
        {byte(5), "Integer -5"},
        {kTrue, "Integer 1"},
        {kEmpty, "Integer 0"},
        {text(u"5"), "Double -5"},
        {currency(12500), "Currency -1.25"},
        {Value(0.0), "Double 0"},
        {Value(kNull), "Null"},
        {text(u"x"), "error 13"},
        {stand_in(integer(4)), "Integer -4"},
    };
    for (const Operand& row : cases) {
        EXPECT_EQ(typed_result(context, [&] { return negate(context, row.value); }), row.expected);
    }
}

TEST(Arithmetic, ObjectsStandForTheirDefaultMember) {
    expect({
        {add, stand_in(integer(4)), integer(1), "Integer 5"},
        {concatenate, text(u"a"), stand_in(text(u"b")), "String ab"},
        {add, stand_in(stand_in(integer(1))), stand_in(text(u"2")), "Double 3"},
        {add, nothing(), integer(1), "error 91"},
        {add, Value(Ref<Object>(make<StandIn>())), integer(1), "error 438"},
        {add, Value(make<Array>()), integer(1), "error 13"},
        {concatenate, Value(make<Array>()), text(u"a"), "error 13"},
        {add, missing(), integer(1), "error 13"},
    });
}

// An object whose default member is itself never becomes a plain value.
TEST(Arithmetic, EndlessDefaultMembersAreRefused) {
    Value value = integer(1);
    for (int depth = 0; depth < 50; ++depth) {
        value = stand_in(value);
    }
    expect({{add, value, integer(1), "error 438"}});
}

}  // namespace
}  // namespace vbscript
