#include <gtest/gtest.h>

#include "vbscript/syntax/tree_text.h"

namespace vbscript {
namespace {

TEST(Statements, LinesColonsCommentsAndContinuation) {
    constexpr TreeCase kCases[] = {
        {u"", ""},
        {u"a\r\nb\rc\nd", "(call a) (call b) (call c) (call d)"},
        {u": : a : : b :", "(call a) (call b)"},
        {u"a ' b : c", "(call a)"},
        {u"Rem a\nb : Rem c", "(call b)"},
        {u"remark 1", "(call remark 1)"},
        {u"a = 1 + _\r\n 2", "(= a (+ 1 2))"},
        {u"a = \"x\"&_\n\"y\"", "(= a (& 'x' 'y'))"},
        {u"a = 1 + _ \t\n 2", "(= a (+ 1 2))"},
        {u"a = _\n_\n1", "(= a 1)"},
        {u"a ' no _\nb", "(call a) (call b)"},
        {u"<!-- a\nb\n --> c\nd", "(call b) (call d)"},
        {u"\uFEFFa", "(call a)"},
        {u"a_1 = b_", "(= a_1 b_)"},
        {u"\ta\v=\f1", "(= a 1)"},
    };
    expect_scripts(kCases);
}

TEST(Statements, CallsWithoutAndWithBrackets) {
    constexpr TreeCase kCases[] = {
        {u"f", "(call f)"},
        {u"f()", "(call f)"},
        {u"f 1, \"a\"", "(call f 1 'a')"},
        {u"f (a)", "(call f (paren a))"},
        {u"f (a), b", "(call f (paren a) b)"},
        {u"f (a) + 1, b", "(call f (+ (paren a) 1) b)"},
        {u"f (a + 1) Mod 3", "(call f (mod (paren (+ a 1)) 3))"},
        {u"f (a) & \"x\" & b", "(call f (& (& (paren a) 'x') b))"},
        {u"f -1", "(call f (neg 1))"},
        {u"f , 2", "(call f _ 2)"},
        {u"f 1, , 3", "(call f 1 _ 3)"},
        {u"f 1,", "(call f 1 _)"},
        {u"f Not a", "(call f (not a))"},
        {u"f New C", "(call f (new C))"},
        {u"o.m a, b", "(call (. o m) a b)"},
        {u"o.m(a).n b", "(call (. (apply (. o m) a) n) b)"},
        {u"f(1)(2)", "(call (apply f 1) (paren 2))"},
        {u"f(1, 2).g", "(call (. (apply f 1 2) g))"},
        {u"Call f", "(call f)"},
        {u"Call f()", "(call f)"},
        {u"Call f(a, b)", "(call f a b)"},
        {u"Call f((a))", "(call f (paren a))"},
        {u"Call o.m(1)(a)", "(call (apply (. o m) 1) a)"},
        {u"Explicit Error", "(call Explicit Error)"},
    };
    expect_scripts(kCases);
}

TEST(Statements, Assignments) {
    constexpr TreeCase kCases[] = {
        {u"x = y = z", "(= x (= y z))"},
        {u"f(a) = b", "(= (apply f a) b)"},
        {u"f(a, b)(c) = d", "(= (apply (apply f a b) c) d)"},
        {u"o.p = x", "(= (. o p) x)"},
        {u"o.p(1).q = x", "(= (. (apply (. o p) 1) q) x)"},
        {u"Set x = New C", "(set x (new C))"},
        {u"Set a(1) = Nothing", "(set (apply a 1) nothing)"},
        {u"Set x = GetRef(\"y\")", "(set x (apply GetRef 'y'))"},
        {u"Set o.p = q", "(set (. o p) q)"},
        {u"step = error", "(= step error)"},
        {u"default = 1", "(= default 1)"},
        {u"property = 1", "(= property 1)"},
        {u"Erase = 1", "(= Erase 1)"},
        {u"[a b] = 1", "(= a b 1)"},
    };
    expect_scripts(kCases);
}

TEST(Statements, IfInAllItsForms) {
    constexpr TreeCase kCases[] = {
        {u"If a Then b", "(if a {(call b)})"},
        {u"If a Then b : c Else d : e\nf",
         "(if a {(call b) (call c)} else {(call d) (call e)}) (call f)"},
        {u"If a Then b Else", "(if a {(call b)})"},
        {u"If a Then Else b", "(if a {} else {(call b)})"},
        {u"If a Then : b : Else\nc", "(if a {(call b)}) (call c)"},
        {u"If a Then b End If\nc", "(if a {(call b)}) (call c)"},
        {u"If a Then b : End If : c", "(if a {(call b)}) (call c)"},
        {u"If a Then b Else c End If", "(if a {(call b)} else {(call c)})"},
        {u"If a Then If b Then c Else d", "(if a {(if b {(call c)} else {(call d)})})"},
        {u"If a Then x = 1 Else x = 2", "(if a {(= x 1)} else {(= x 2)})"},
        {u"If x=1Then y=1Else y=2", "(if (= x 1) {(= y 1)} else {(= y 2)})"},
        {u"If a Then ' note\n b\nEnd If", "(if a {(call b)})"},
        {u"If a Then\nb\nElseIf c Then\nd\nElse\ne\nEnd If",
         "(if a {(call b)} c {(call d)} else {(call e)})"},
        {u"If a Then\nElseIf c Then d\nElse e\nEnd If", "(if a {} c {(call d)} else {(call e)})"},
        {u"If a Then\nElse If b Then\nc\nEnd If\nEnd If", "(if a {} else {(if b {(call c)})})"},
        {u"If a Then\nElse If b Then c\nd\nEnd If", "(if a {} else {(if b {(call c)}) (call d)})"},
        {u"If a Then:\nb\nEnd If", "(if a {(call b)})"},
    };
    expect_scripts(kCases);
}

TEST(Statements, SelectCase) {
    constexpr TreeCase kCases[] = {
        {u"Select Case a\nCase 1, 2\nb\nCase \"x\": c\nCase Else\nd\nEnd Select",
         "(select a (case 1 2 {(call b)}) (case 'x' {(call c)}) else {(call d)})"},
        {u"Select Case a : Case b + 1 : c : End Select", "(select a (case (+ b 1) {(call c)}))"},
        {u"Select Case a\n\n' none\nEnd Select", "(select a)"},
        {u"Select Case a\nCase Else b\nEnd Select", "(select a else {(call b)})"},
        {u"Select Case a\nCase 1\nSelect Case b\nCase 2\nEnd Select\nEnd Select",
         "(select a (case 1 {(select b (case 2 {}))}))"},
    };
    expect_scripts(kCases);
}

TEST(Statements, Loops) {
    constexpr TreeCase kCases[] = {
        {u"For i = 1 To 3\na\nNext", "(for i 1 3 _ {(call a)})"},
        {u"For i=10to 1step-2:a:Next", "(for i 10 1 (neg 2) {(call a)})"},
        {u"For i = Step To Step Step Step\nNext", "(for i Step Step Step {})"},
        {u"For[i=1]=[To[1]To[1]\nNext", "(for i=1 To[1 1 _ {})"},
        {u"For Each x In a.b\nExit For\nNext", "(each x (. a b) {(exit for)})"},
        {u"Do\na\nLoop", "(do {(call a)})"},
        {u"Do While a\nLoop", "(do-while a {})"},
        {u"Do Until a : b : Loop", "(do-until a {(call b)})"},
        {u"Do\nExit Do\nLoop While a", "(loop-while a {(exit do)})"},
        {u"Do\nLoop Until a", "(loop-until a {})"},
        {u"While a\nb\nWend", "(while a {(call b)})"},
        {u"For i = 1 To 2\nFor j = 1 To 2\nNext\nNext\nFor i = 1 To 2\nNext",
         "(for i 1 2 _ {(for j 1 2 _ {})}) (for i 1 2 _ {})"},
        {u"Do\nWhile a\nExit Do\nWend\nLoop", "(do {(while a {(exit do)})})"},
        {u"If a Then For i = 1 To 2 : b : Next Else c",
         "(if a {(for i 1 2 _ {(call b)})} else {(call c)})"},
    };
    expect_scripts(kCases);
}

TEST(Statements, WithAndItsMembers) {
    constexpr TreeCase kCases[] = {
        {u"With a\n.b = .c\n.d 1\nEnd With",
         "(with a {(= (. with b) (. with c)) (call (. with d) 1)})"},
        {u"With a\nEcho .b\nEnd With", "(with a {(call Echo (. with b))})"},
        {u"With a\nf 1, .b(2).c\nEnd With", "(with a {(call f 1 (. (apply (. with b) 2) c))})"},
        {u"With a\nWith .b\n.c\nEnd With\nEnd With",
         "(with a {(with (. with b) {(call (. with c))})})"},
        {u"o _\n.m 1", "(call (. o m) 1)"},
    };
    expect_scripts(kCases);
}

TEST(Statements, ArraysConstantsAndTheRest) {
    constexpr TreeCase kCases[] = {
        {u"Option Explicit\nDim a, b(3), c(), d(1, &H2)",
         "(explicit) (dim a (array b 3) (array c) (array d 1 2))"},
        {u"' first\n\nOption Explicit : Option Explicit", "(explicit)"},
        {u"Public a : Private b(2)", "(dim public a) (dim private (array b 2))"},
        {u"ReDim a(n), b(1, x + 1)", "(redim (a n) (b 1 (+ x 1)))"},
        {u"ReDim Preserve a(n)", "(redim-preserve (a n))"},
        {u"Erase a, b(1)", "(erase a (apply b 1))"},
        {u"Const a = 1, b = \"x\", c = -2.5", "(const a 1 b 'x' c -2.5D)"},
        {u"Public Const a = -32768", "(const public a -32768L)"},
        {u"Const a = (-(1)), b = Nothing, c = +&HFF, d = True, e = #1/1/2000#",
         "(const a -1 b nothing c 255 d true e #36526)"},
        {u"Const a = -&H80000000, b = -&H8000", "(const a 2147483648D b 32768L)"},
        {u"On Error Resume Next : On Error GoTo 0", "(resume-next) (goto-0)"},
        {u"Stop", "(stop)"},
    };
    expect_scripts(kCases);
}

TEST(Statements, PositionsAreThoseOfTheFirstToken) {
    const Program program = parse(u"a\r\n  b : Set c = d\rIf e Then\n\tf 1, _\n  g\nEnd If");
    const auto body = program.body();
    ASSERT_EQ(body.size(), 4U);
    EXPECT_EQ(body[0]->position, (ast::Position{1, 1}));
    EXPECT_EQ(body[1]->position, (ast::Position{2, 3}));
    EXPECT_EQ(body[2]->position, (ast::Position{2, 7}));
    EXPECT_EQ(body[3]->position, (ast::Position{3, 1}));
    const auto& call = ast::as<ast::Call>(*ast::as<ast::If>(*body[3]).branches[0].body[0]);
    EXPECT_EQ(call.position, (ast::Position{4, 2}));
    EXPECT_EQ(call.arguments[1]->position, (ast::Position{5, 3}));
}

}  // namespace
}  // namespace vbscript
