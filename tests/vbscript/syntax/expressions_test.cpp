#include <gtest/gtest.h>

#include "vbscript/syntax/tree_text.h"

namespace vbscript {
namespace {

TEST(Expressions, OperatorsBindInTheOrderOfTheLanguage) {
    constexpr TreeCase kCases[] = {
        {u"a Imp b Eqv c Xor d Or e And f = g & h + i Mod j \\ k * l ^ m",
         "(imp a (eqv b (xor c (or d (and e (= f (& g (+ h (mod i (\\ j (* k (^ l m))))))))))))"},
        {u"a ^ b * c \\ d Mod e + f & g = h And i Or j Xor k Eqv l Imp m",
         "(imp (eqv (xor (or (and (= (& (+ (mod (\\ (* (^ a b) c) d) e) f) g) h) i) j) k) l) m)"},
        {u"a - b - c", "(- (- a b) c)"},
        {u"a ^ b ^ c", "(^ (^ a b) c)"},
        {u"a * b / c * d", "(* (/ (* a b) c) d)"},
        {u"a - b + c", "(+ (- a b) c)"},
        {u"a & b + c & d", "(& (& a (+ b c)) d)"},
        {u"a = b <> c < d > e <= f >= g Is h", "(is (>= (<= (> (< (<> (= a b) c) d) e) f) g) h)"},
        {u"a Imp b Imp c", "(imp (imp a b) c)"},
        {u"(a + b) * c", "(* (paren (+ a b)) c)"},
    };
    expect_expressions(kCases);
}

TEST(Expressions, SignsAndNotTakeWhatBindsTighter) {
    constexpr TreeCase kCases[] = {
        {u"-2 ^ 2", "(neg (^ 2 2))"},
        {u"2 ^ -1", "(^ 2 (neg 1))"},
        {u"2 ^ -a * b", "(* (^ 2 (neg a)) b)"},
        {u"-a * b", "(* (neg a) b)"},
        {u"a - -b", "(- a (neg b))"},
        {u"a--b", "(- a (neg b))"},
        {u"+a & - + b", "(& (pos a) (neg (pos b)))"},
        {u"Not a = b And c", "(and (not (= a b)) c)"},
        {u"Not a Is b", "(not (is a b))"},
        {u"Not Not a", "(not (not a))"},
        {u"a And Not b Or c", "(or (and a (not b)) c)"},
        {u"a = Not b", "(= a (not b))"},
        {u"Not -a + 1 > 0", "(not (> (+ (neg a) 1) 0))"},
    };
    expect_expressions(kCases);
}

TEST(Expressions, ComparisonsAreSpelledBothWays) {
    constexpr TreeCase kCases[] = {
        {u"a<>b", "(<> a b)"},      {u"a><b", "(<> a b)"}, {u"a<=b", "(<= a b)"},
        {u"a=<b", "(<= a b)"},      {u"a>=b", "(>= a b)"}, {u"a=>b", "(>= a b)"},
        {u"a=-b", "(= a (neg b))"},
    };
    expect_expressions(kCases);
}

TEST(Expressions, CallsIndexesAndMembersChain) {
    constexpr TreeCase kCases[] = {
        {u"f()", "(apply f)"},
        {u"f(1)(2)", "(apply (apply f 1) 2)"},
        {u"f(1, , 2)", "(apply f 1 _ 2)"},
        {u"f(, 1)", "(apply f _ 1)"},
        {u"f(1,)", "(apply f 1 _)"},
        {u"f((a))", "(apply f (paren a))"},
        {u"a.b.c", "(. (. a b) c)"},
        {u"a.b(1).c(2)", "(apply (. (apply (. a b) 1) c) 2)"},
        {u"a . b", "(. a b)"},
        {u"(a).b", "(. (paren a) b)"},
        {u"(New C).m(1)", "(apply (. (paren (new C)) m) 1)"},
        {u"f(New C, Nothing)", "(apply f (new C) nothing)"},
        {u"a.b _\n  .c", "(. (. a b) c)"},
    };
    expect_expressions(kCases);
}

TEST(Expressions, KeywordsAreNamesBehindADotAndInBrackets) {
    constexpr TreeCase kCases[] = {
        {u"a.end.next.rem", "(. (. (. a end) next) rem)"},
        {u"a.Class(1)", "(apply (. a Class) 1)"},
        {u"[my name] + [End]", "(+ my name End)"},
        {u"a.[b c]", "(. a b c)"},
        {u"[]", ""},
        {u"[a[1]", "a[1"},
        {u"Step + Error + Default + Explicit + Property + Erase",
         "(+ (+ (+ (+ (+ Step Error) Default) Explicit) Property) Erase)"},
    };
    expect_expressions(kCases);
}

TEST(Expressions, SameNamesShareTheirId) {
    const Program program = parse_expression(u"Alpha + ALPHA + [alpha] + beta");
    ASSERT_EQ(program.names().size(), 2U);
    EXPECT_EQ(program.names()[0], u"alpha");
    EXPECT_EQ(program.names()[1], u"beta");
}

TEST(Expressions, NamesOfOtherAlphabetsFoldInBrackets) {
    const Program program = parse_expression(
        u"[Gr\u00D6\u00DFe] + [gr\u00F6\u00DFe] + [\u0416\u0391] + [\u0436\u03B1]");
    EXPECT_EQ(program.names().size(), 2U);
}

TEST(Expressions, MeIsTheObjectInsideAClass) {
    EXPECT_EQ(tree_text(*parse_expression(u"Me.x", {.may_use_me = true}).expression()), "(. me x)");
    EXPECT_EQ(parsed_expression(u"Me.x"), "1037 1:1");
}

TEST(Expressions, FaultsAreReportedWhereTheyStand) {
    constexpr TreeCase kCases[] = {
        {u"", "1002 1:1"},
        {u"a +", "1002 1:4"},
        {u"(a", "1006 1:3"},
        {u"f(1, 2", "1006 1:7"},
        {u"a.", "1010 1:3"},
        {u"a b", "1025 1:3"},
        {u"a b c", "1025 1:3"},
        {u"1 2", "1025 1:3"},
        {u"New", "1010 1:4"},
        {u"New 1", "1010 1:5"},
        {u"* a", "1002 1:1"},
        {u"a + Then", "1002 1:5"},
        {u".x", "505 1:1"},
        {u"()", "1002 1:2"},
        {u"type", "1002 1:1"},
        {u"a = ", "1002 1:5"},
        {u"a Is Not b c", "1025 1:12"},
    };
    expect_expressions(kCases);
}

}  // namespace
}  // namespace vbscript
