#include <gtest/gtest.h>

#include "vbscript/support/fake_context.h"
#include "vbscript/support/typed.h"
#include "vbscript/value/byte_text.h"
#include "vbscript/value/operators.h"

namespace vbscript {
namespace {

const Value kEmpty;

// "<", "=" or ">" by all six operators, which must agree; "Null", or "error 13".
std::string relation(const Value& left, const Value& right) {
    FakeContext context;
    const auto holds = [&](Comparison comparison) {
        return noted_result(context, [&] { return compare(context, comparison, left, right); });
    };
    const std::string equal = holds(Comparison::Equal);
    if (equal != "True" && equal != "False") return equal;
    const bool is_equal = equal == "True";
    const bool is_less = holds(Comparison::Less) == "True";
    EXPECT_EQ(holds(Comparison::NotEqual), is_equal ? "False" : "True");
    EXPECT_EQ(holds(Comparison::LessOrEqual), is_equal || is_less ? "True" : "False");
    EXPECT_EQ(holds(Comparison::GreaterOrEqual), is_less ? "False" : "True");
    EXPECT_EQ(holds(Comparison::Greater), is_equal || is_less ? "False" : "True");
    if (is_equal) return "=";
    return is_less ? "<" : ">";
}

TEST(Compare, BySubTypes) {
    struct Case {
        Value left;
        Value right;
        std::string_view expected;
    };

    const std::vector<Case> cases{
        {integer(2), Value(2.0), "="},
        {Value(true), integer(-1), "="},
        {byte(3), long_number(70000), "<"},
        {currency(9223372036854775807), currency(9223372036854775806), ">"},
        {currency(10000), integer(1), "="},
        {Value(0.1F), Value(0.1), ">"},
        {moment(2026, 1, 1), moment(2025, 12, 31), ">"},
        {text(u"abc"), text(u"abd"), "<"},
        {text(u"a"), text(u"B"), ">"},
        {text(u"a"), text(u"ab"), "<"},
        {text(u"10"), integer(10), ">"},
        {integer(1000), text(u"1"), "<"},
        {Value(true), text(u"True"), "<"},
        {kEmpty, integer(0), "="},
        {kEmpty, text(u""), "="},
        {text(u"a"), kEmpty, ">"},
        {kEmpty, integer(-5), ">"},
        {kEmpty, kEmpty, "="},
        {Value(kNull), integer(1), "Null"},
        {Value(kNull), Value(kNull), "Null"},
        {Value(make<Array>()), integer(1), "error 13"},
        {stand_in(text(u"b")), text(u"b"), "="},
        {nothing(), integer(1), "error 91"},
        {Value(text_of_bytes("A")), text(u"A"), "<"},
    };
    for (const Case& row : cases) {
        FakeContext context;
        EXPECT_EQ(relation(row.left, row.right), row.expected)
            << typed(context, row.left) << " with " << typed(context, row.right);
    }
}

TEST(Compare, LiteralsDecideHowANumberMeetsAText) {
    FakeContext context;

    struct Case {
        Value left;
        Value right;
        Literals literals;
        std::string_view equal;
    };

    const std::vector<Case> cases{
        {text(u"10"), integer(10), Literals::Right, "True"},
        {text(u"1e1"), integer(10), Literals::Right, "True"},
        {text(u"abc"), integer(10), Literals::Right, "error 13"},
        {integer(10), text(u"10"), Literals::Right, "True"},
        {integer(10), text(u"1e1"), Literals::Right, "False"},
        {integer(10), text(u"1e1"), Literals::Both, "True"},
        {integer(10), text(u"1e1"), Literals::Left, "True"},
        {text(u"10"), text(u"1e1"), Literals::Both, "False"},
        {Value(kNull), integer(10), Literals::Right, "Null"},
        {kEmpty, text(u""), Literals::Right, "True"},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(noted_result(context,
                               [&] {
                                   return compare_with_literals(context, Comparison::Equal,
                                                                row.left, row.right, row.literals);
                               }),
                  row.equal)
            << typed(context, row.left) << " with " << typed(context, row.right);
    }
}

TEST(Compare, WordsStandAsInADictionary) {
    const std::vector<std::u16string_view> ordered{
        u"",        u" a",         u"_a",     u"1",      u"10",     u"a",     u"A b",
        u"Apfel",   u"\u00C4pfel", u"apfels", u"B",      u"coop",   u"co-op", u"Co-ops",
        u"\u00E9a", u"eb",         u"Z",      u"\u03B1", u"\u0416",
    };
    for (std::size_t left = 0; left < ordered.size(); ++left) {
        for (std::size_t right = 0; right < ordered.size(); ++right) {
            const int expected = (left > right) - (left < right);
            EXPECT_EQ(compare_text(ordered[left], ordered[right], true), expected)
                << to_utf8(ordered[left]) << " with " << to_utf8(ordered[right]);
        }
    }
    EXPECT_EQ(compare_text(u"STRASSE \u00C4", u"strasse \u00E4", true), 0);
    EXPECT_EQ(compare_text(u"co-op", u"c-oop", true), -compare_text(u"c-oop", u"co-op", true));
    EXPECT_NE(compare_text(u"co-op", u"c-oop", true), 0);
    EXPECT_EQ(compare_text(u"a", u"B", false), 1);
}

TEST(Compare, SameObject) {
    const Value one = stand_in(integer(1));
    const Value other = stand_in(integer(1));
    EXPECT_TRUE(is_same_object(one, one));
    EXPECT_FALSE(is_same_object(one, other));
    EXPECT_TRUE(is_same_object(nothing(), nothing()));
    FakeContext context;
    EXPECT_EQ(noted_result(context, [&] { return Value(is_same_object(one, kEmpty)); }),
              "error 424");
}

}  // namespace
}  // namespace vbscript
