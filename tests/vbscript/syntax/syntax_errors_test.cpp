#include <gtest/gtest.h>

#include <set>

#include "vbscript/syntax/tree_text.h"

namespace vbscript {
namespace {

TEST(SyntaxErrors, AreReportedAtTheTokenThatDoesNotFit) {
    constexpr TreeCase kCases[] = {
        {u"x = ", "1002 1:5"},
        {u"a = MsgBox b, c", "1025 1:12"},
        {u"Dim", "1010 1:4"},
        {u"Dim a b", "1025 1:7"},
        {u"Dim a(x)", "1026 1:7"},
        {u"Dim a(-1)", "1026 1:7"},
        {u"Dim a(1.5)", "1026 1:7"},
        {u"Dim a(1", "1006 1:8"},
        {u"Dim type", "1010 1:5"},
        {u"ReDim a", "1005 1:8"},
        {u"ReDim a()", "1002 1:9"},
        {u"Const a", "1011 1:8"},
        {u"Const a = f", "1045 1:11"},
        {u"Const a = -\"x\"", "1045 1:12"},
        {u"Const a = 1 + 2", "1025 1:13"},
        {u"If a\nb\nEnd If", "1017 1:5"},
        {u"If Then", "1002 1:4"},
        {u"If a Then\nb", "1014 2:2"},
        {u"If a Then\nEnd Sub", "1012 2:5"},
        {u"If a Then\nElse\nElse\nEnd If", "1014 3:1"},
        {u"End If", "1024 1:1"},
        {u"Else", "1024 1:1"},
        {u"Wend", "1024 1:1"},
        {u"Case 1", "1024 1:1"},
        {u"1 = x", "1024 1:1"},
        {u"(f)", "1024 1:1"},
        {u"x\nOption Explicit", "1024 2:1"},
        {u"Option Base 1", "1002 1:8"},
        {u"Let x = 1", "1024 1:1"},
        {u"Next", "1055 1:1"},
        {u"For i = 1 To 2\nIf a Then\nNext", "1055 3:1"},
        {u"Loop", "1038 1:1"},
        {u"Do\nIf a Then\nLoop", "1038 3:1"},
        {u"For i = 1 To 2\nNext i", "1025 2:6"},
        {u"For i 1", "1011 1:7"},
        {u"For i = 1 2", "1013 1:11"},
        {u"For i = 1 To 2", "1020 1:15"},
        {u"For i = 1 To 2\nEnd If", "1020 2:1"},
        {u"For a(1) = 1 To 2\nNext", "1040 1:5"},
        {u"For a.b = 1 To 2\nNext", "1040 1:5"},
        {u"For i = 1 To 2\nFor I = 1 To 2\nNext\nNext", "1040 2:5"},
        {u"For Each x y", "1046 1:12"},
        {u"For Each x In y z", "1025 1:17"},
        {u"Do x", "1028 1:4"},
        {u"Do\nLoop x", "1028 2:6"},
        {u"Do While a\nLoop While b", "1025 2:6"},
        {u"Do\na", "1019 2:2"},
        {u"While a\n", "1018 2:1"},
        {u"While a\nEnd While", "1018 2:1"},
        {u"Select a", "1021 1:8"},
        {u"Select Case a\nb\nEnd Select", "1021 2:1"},
        {u"Select Case a\nCase 1\nEnd If", "1022 3:5"},
        {u"Select Case a\nCase\nEnd Select", "1002 2:5"},
        {u"Select Case a\nCase Else\nCase 1\nEnd Select", "1014 3:1"},
        {u"Select Case a\nCase 1 To 2\nEnd Select", "1025 2:8"},
        {u"With a\nEnd If", "1029 2:5"},
        {u"Exit Do", "1039 1:6"},
        {u"Exit For", "1039 1:6"},
        {u"Exit Sub", "1039 1:6"},
        {u"Exit", "1039 1:5"},
        {u"Sub f\nExit Function\nEnd Sub", "1039 2:6"},
        {u"While a\nExit Do\nWend", "1039 2:6"},
        {u"Do\nFor i = 1 To 2\nSub f\nEnd Sub", "1002 3:1"},
        {u"Sub f\nSub g\nEnd Sub\nEnd Sub", "1002 2:1"},
        {u"If a Then\nClass C\nEnd Class\nEnd If", "1002 2:1"},
        {u"Sub f\nEnd Function", "1016 2:5"},
        {u"Function f\nEnd Sub", "1015 2:5"},
        {u"Class C\nProperty Get p\nEnd Sub\nEnd Class", "1050 3:5"},
        {u"Class C\nEnd Sub", "1047 2:5"},
        {u"Sub f", "1014 1:6"},
        {u"Sub f(", "1010 1:7"},
        {u"Sub f(a", "1006 1:8"},
        {u"Sub f(a,)", "1010 1:9"},
        {u"Sub f x\nEnd Sub", "1025 1:7"},
        {u"Sub 1", "1010 1:5"},
        {u"f(1, 2)", "1044 1:8"},
        {u"f (1, 2) : x", "1044 1:10"},
        {u"f (1, 2), 3", "1044 1:9"},
        {u"f(1) \"x\"", "1025 1:6"},
        {u"f & \"x\"", "1025 1:3"},
        {u"Call f 1", "1025 1:8"},
        {u"Call", "1010 1:5"},
        {u"Set x", "1011 1:6"},
        {u"Set 1 = x", "1010 1:5"},
        {u"On Error GoTo label", "1002 1:15"},
        {u"On Error GoTo 1", "1002 1:15"},
        {u"On Error Resume", "1020 1:16"},
        {u"On x GoTo 1", "1002 1:4"},
        {u".x = 1", "505 1:1"},
        {u"With a\nEnd With\n.x = 1", "505 3:1"},
        {u"a = 1 _ b", "1032 1:7"},
        {u"If a Then b Next", "1025 1:13"},
        {u"For Each Each In In", "1010 1:10"},
    };
    expect_scripts(kCases);
}

TEST(SyntaxErrors, CarryTextAndLine) {
    try {
        (void)parse(u"a = 1\r\n  Dim 2 ' why\r\nb = 2");
        FAIL() << "parsed";
    } catch (const SyntaxError& error) {
        EXPECT_EQ(error.description(), u"Expected identifier");
        EXPECT_EQ(error.line(), 2U);
        EXPECT_EQ(error.column(), 7U);
        EXPECT_EQ(error.source_line(), u"  Dim 2 ' why");
        EXPECT_STREQ(error.what(), "Expected identifier (1010)");
    }
}

TEST(SyntaxErrors, EachNumberHasOneText) {
    std::set<SyntaxErrorNumber> numbers;
    for (const SyntaxErrorText& row : kSyntaxErrorTexts) {
        EXPECT_TRUE(numbers.insert(row.number).second);
        EXPECT_FALSE(row.text.empty());
    }
    EXPECT_EQ(syntax_error_text(SyntaxErrorNumber::ExpectedWhileUntilOrEnd),
              u"Expected 'While', 'Until' or end of statement");
}

}  // namespace
}  // namespace vbscript
