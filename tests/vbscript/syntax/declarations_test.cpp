#include <gtest/gtest.h>

#include "vbscript/syntax/tree_text.h"

namespace vbscript {
namespace {

TEST(Declarations, Procedures) {
    constexpr TreeCase kCases[] = {
        {u"Sub f\na\nEnd Sub", "(sub f () {(call a)})"},
        {u"Sub f() : a : End Sub", "(sub f () {(call a)})"},
        {u"Sub f End Sub", "(sub f () {})"},
        {u"Sub f() a = 1 End Sub", "(sub f () {(= a 1)})"},
        {u"Function f(a, ByRef b, ByVal c, d())\nf = a\nExit Function\nEnd Function",
         "(function f (a b byval c d()) {(= f a) (exit function)})"},
        {u"Public Sub a\nExit Sub\nEnd Sub\nPrivate Function b\nEnd Function",
         "(public sub a () {(exit sub)}) (private function b () {})"},
        {u"x\nSub a\nEnd Sub\ny", "(sub a () {}) (call x) (call y)"},
        {u"Sub a\nEnd Sub\nSub A\nb\nEnd Sub", "(sub a () {}) (sub A () {(call b)})"},
        {u"Sub Step\nEnd Sub", "(sub Step () {})"},
        {u"Sub a\nDim a, b\nConst c = 1\nEnd Sub\nDim b, c",
         "(sub a () {(dim a b) (const c 1)}) (dim b c)"},
    };
    expect_scripts(kCases);
}

TEST(Declarations, Classes) {
    constexpr TreeCase kCases[] = {
        {u"Class C\nEnd Class", "(class C)"},
        {u"Class C : Public a, b(2) : Private c() : Dim d : End Class",
         "(class C (field public a) (field public (array b 2)) (field private (array c)) "
         "(field d))"},
        {u"Class C\nPublic Default Function f(x)\nSet f = Me\nEnd Function\nEnd Class",
         "(class C (public default function f (x) {(set f me)}))"},
        {u"Class C\nProperty Get p(i)\np = 1\nExit Property\nEnd Property\n"
         u"Private Property Let p(i, v)\nEnd Property\nPublic Property Set p(i, v)\n"
         u"End Property\nEnd Class",
         "(class C (get p (i) {(= p 1) (exit property)}) (private let p (i v) {}) "
         "(public set p (i v) {}))"},
        {u"Class C\nPublic Default Property Get p\nEnd Property\nEnd Class",
         "(class C (public default get p () {}))"},
        {u"Class C\nPublic Default\nPublic property, step\nEnd Class",
         "(class C (field public Default) (field public property) (field public step))"},
        {u"Class C\nSub Class_Initialize\nMe.x = 1 : Me.y 2\nEnd Sub\nEnd Class\nDim x",
         "(class C (sub Class_Initialize () {(= (. me x) 1) (call (. me y) 2)})) (dim x)"},
    };
    expect_scripts(kCases);
}

TEST(Declarations, ANameIsDeclaredOnceInAScope) {
    constexpr TreeCase kCases[] = {
        {u"Dim a\nDim A", "1041 2:5"},
        {u"Dim a, b, a", "1041 1:11"},
        {u"Dim a\nConst a = 1", "1041 2:7"},
        {u"Dim a\nSub a\nEnd Sub", "1041 2:5"},
        {u"Sub a\nEnd Sub\nDim a", "1041 3:5"},
        {u"Class a\nEnd Class\nClass a\nEnd Class", "1041 3:7"},
        {u"Class a\nEnd Class\nDim a", "1041 3:5"},
        {u"If x Then\nDim a\nEnd If\nDim a", "1041 4:5"},
        {u"Sub f(a, a)\nEnd Sub", "1041 1:10"},
        {u"Sub f(a)\nDim a\nEnd Sub", "1041 2:5"},
        {u"Function f\nDim f\nEnd Function", "1041 2:5"},
        {u"Class C\nDim a\nSub a\nEnd Sub\nEnd Class", "1041 3:5"},
        {u"Class C\nSub a\nEnd Sub\nSub a\nEnd Sub\nEnd Class",
         "(class C (sub a () {}) "
         "(sub a () {}))"},
        {u"Class C\nProperty Get a\nEnd Property\nProperty Get a\nEnd Property\nEnd Class",
         "1041 4:14"},
        {u"Class C\nProperty Get a\nEnd Property\nDim a\nEnd Class", "1041 4:5"},
    };
    expect_scripts(kCases);
}

TEST(Declarations, MembersOfAClassFitTogether) {
    constexpr TreeCase kCases[] = {
        {u"Class C\nProperty Let p\nEnd Property\nEnd Class", "1054 2:14"},
        {u"Class C\nProperty Set p()\nEnd Property\nEnd Class", "1054 2:14"},
        {u"Class C\nProperty Get p\nEnd Property\nProperty Let p(a, b)\nEnd Property\nEnd Class",
         "1051 4:14"},
        {u"Class C\nSub Class_Initialize(a)\nEnd Sub\nEnd Class", "1053 2:5"},
        {u"Class C\nSub class_terminate(a)\nEnd Sub\nEnd Class", "1053 2:5"},
        {u"Class C\nPublic Default Sub a\nEnd Sub\nPublic Default Sub b\nEnd Sub\nEnd Class",
         "1052 4:16"},
        {u"Class C\nDefault Sub a\nEnd Sub\nEnd Class", "1057 2:1"},
        {u"Class C\nPrivate Default Sub a\nEnd Sub\nEnd Class", "1057 2:9"},
        {u"Class C\nPublic Default x\nEnd Class", "1056 2:16"},
        {u"Class C\nPublic Default Property Let p(v)\nEnd Property\nEnd Class", "1058 2:16"},
        {u"Class C\nProperty p\nEnd Property\nEnd Class", "1049 2:10"},
        {u"Class C\nx = 1\nEnd Class", "1014 2:1"},
        {u"Class C\nClass D\nEnd Class\nEnd Class", "1014 2:1"},
        {u"Class C x\nEnd Class", "1025 1:9"},
        {u"Class 1", "1010 1:7"},
        {u"Property Get a\nEnd Property", "1048 1:1"},
        {u"Public Property Get a\nEnd Property", "1048 1:8"},
        {u"Public Default Sub a\nEnd Sub", "1048 1:8"},
        {u"Sub f\nMe.x = 1\nEnd Sub", "1037 2:1"},
        {u"Class C\nSub f\nSet Me = x\nEnd Sub\nEnd Class", "1037 3:5"},
    };
    expect_scripts(kCases);
}

}  // namespace
}  // namespace vbscript
