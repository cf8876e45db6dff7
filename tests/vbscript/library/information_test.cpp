#include "vbscript/library/library_test.h"

namespace vbscript {
namespace {

class Information : public LibraryTest {};

const Value kPlainObject(Ref<Object>(make<StandIn>()));

TEST_F(Information, SubTypes) {
    struct Case {
        Value value;
        std::string_view name;
        std::string_view number;
    };

    const std::vector<Case> cases{
        {Value(), "Empty", "0"},        {Value(kNull), "Null", "1"},
        {integer(1), "Integer", "2"},   {long_number(1), "Long", "3"},
        {Value(1.0F), "Single", "4"},   {Value(1.0), "Double", "5"},
        {currency(1), "Currency", "6"}, {moment(2026, 1, 1), "Date", "7"},
        {text(u""), "String", "8"},     {nothing(), "Nothing", "9"},
        {kPlainObject, "StandIn", "9"}, {stand_in(integer(1)), "StandIn", "2"},
        {missing(), "Error", "10"},     {Value(true), "Boolean", "11"},
        {byte(1), "Byte", "17"},        {list({}), "Variant()", "8204"},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(noted(context, call(u"TypeName", {row.value})), row.name);
        EXPECT_EQ(noted(context, call(u"VarType", {row.value})), row.number) << row.name;
    }
}

TEST_F(Information, Questions) {
    expect({
        {u"IsNumeric", {text(u"1,234.5")}, "Boolean True"},
        {u"IsNumeric", {text(u"&HFF")}, "Boolean True"},
        {u"IsNumeric", {text(u"1e400")}, "Boolean False"},
        {u"IsNumeric", {text(u"12x")}, "Boolean False"},
        {u"IsNumeric", {text(u"")}, "Boolean False"},
        {u"IsNumeric", {Value()}, "Boolean True"},
        {u"IsNumeric", {Value(true)}, "Boolean True"},
        {u"IsNumeric", {currency(1)}, "Boolean True"},
        {u"IsNumeric", {Value(kNull)}, "Boolean False"},
        {u"IsNumeric", {moment(2026, 1, 1)}, "Boolean False"},
        {u"IsNumeric", {stand_in(integer(1))}, "Boolean True"},
        {u"IsNumeric", {nothing()}, "Boolean False"},
        {u"IsNumeric", {list({})}, "Boolean False"},
        {u"IsDate", {text(u"11/24/2026")}, "Boolean True"},
        {u"IsDate", {text(u"2/29")}, "Boolean True"},
        {u"IsDate", {text(u"4:03 PM")}, "Boolean True"},
        {u"IsDate", {text(u"tomorrow")}, "Boolean False"},
        {u"IsDate", {integer(5)}, "Boolean False"},
        {u"IsDate", {moment(2026, 1, 1)}, "Boolean True"},
        {u"IsDate", {Value(kNull)}, "Boolean False"},
        {u"IsEmpty", {Value()}, "Boolean True"},
        {u"IsEmpty", {text(u"")}, "Boolean False"},
        {u"IsNull", {Value(kNull)}, "Boolean True"},
        {u"IsObject", {nothing()}, "Boolean True"},
        {u"IsObject", {integer(1)}, "Boolean False"},
        {u"IsArray", {list({})}, "Boolean True"},
        {u"IsArray", {text(u"a")}, "Boolean False"},
    });
}

TEST_F(Information, Arrays) {
    const std::vector<std::int32_t> bounds{1, 4};
    const Value square(make<Array>(std::span<const std::int32_t>(bounds), true));
    expect({
        {u"Array", {}, "Array []"},
        {u"Array", {integer(1), text(u"a"), list({Value(kNull)})}, "Array [1, a, [Null]]"},
        {u"UBound", {list({integer(1), integer(2)})}, "Long 1"},
        {u"UBound", {list({})}, "Long -1"},
        {u"LBound", {list({})}, "Long 0"},
        {u"UBound", {square, integer(2)}, "Long 4"},
        {u"UBound", {square, integer(3)}, "error 9"},
        {u"LBound", {square, integer(0)}, "error 9"},
        {u"UBound", {Value(make<Array>())}, "error 9"},
        {u"UBound", {text(u"a")}, "error 13"},
        {u"UBound", {stand_in(list({integer(1)}))}, "Long 0"},
    });
}

}  // namespace
}  // namespace vbscript
