#include <gtest/gtest.h>

#include "vbscript/machine/script_table.h"

// What errors are about, where a script goes on after them, and what `Err` tells.
namespace vbscript::testing {
namespace {

class Errors : public ScriptTable {};

TEST_P(Errors, are_told_and_handled) {
    check();
}

constexpr ScriptCase kWords[] = {
    {"undefined_variable", "Option Explicit\nDim a\na = b", "!500 Variable is undefined: 'b' @3"},
    {"undefined_procedure", "\nNowhere 1", "!13 Type mismatch: 'Nowhere' @2"},
    {"undefined_procedure_explicit", "Option Explicit\nNowhere 1",
     "!500 Variable is undefined: 'Nowhere' @2"},
    {"a_sub_has_no_value", "Sub S\nEnd Sub\nx = S()", "!13 Type mismatch: 'S' @3"},
    {"too_many_arguments", "Sub S(a)\nEnd Sub\nS 1, 2",
     "!450 Wrong number of arguments or invalid property assignment: 'S' @3"},
    {"too_few_for_the_library", "x = Left(\"a\")",
     "!450 Wrong number of arguments or invalid property assignment: 'Left' @1"},
    {"a_bad_argument_of_the_library", "x = Left(\"a\", -1)",
     "!5 Invalid procedure call or argument: 'Left' @1"},
    {"no_object", "x = 1\nx.y", "!424 Object required: 'x' @2"},
    {"no_object_at_the_end_of_a_chain", "x = Array(1)\nx(0).y",
     "!424 Object required: 'x(...)' @2"},
    {"nothing", "Set x = Nothing\nx.y", "!91 Object variable not set: 'x' @2"},
    {"no_such_member", "Echo.Foo",
     "!438 Object doesn't support this property or method: 'Echo.Foo' @1"},
    {"set_of_a_number", "Set x = 5", "!424 Object required: '[number: 5]' @1"},
    {"no_such_class", "Set x = New Foo", "!506 Class not defined: 'Foo' @1"},
    {"a_constant_cannot_change", "Const c = 1\nc = 2", "!501 Illegal assignment: 'c' @2"},
    {"nor_can_a_function_of_the_language", "Len = 2", "!501 Illegal assignment: 'Len' @1"},
    {"no_collection", "For Each x In 5\nNext", "!451 Object not a collection @1"},
    {"division", "x = 1\ny = x / 0", "!11 Division by zero @2"},
    {"private_members", R"vbs(
Class C
    Private x
    Private Sub S : End Sub
End Class
On Error Resume Next
Set o = New C
o.x = 1 : Echo Err.Number
o.S : Echo Err.Number
Echo o.x)vbs",
     "438|438"},
    {"a_property_without_let", R"vbs(
Class C
    Public Property Get P : P = 1 : End Property
End Class
Set o = New C
o.P = 2)vbs",
     "!438 Object doesn't support this property or method: 'o.P' @6"},
};

constexpr ScriptCase kGoingOn[] = {
    {"behind_the_call_that_failed", R"vbs(
Sub A : B : Echo "not here" : End Sub
Sub B : x = 1 / 0 : End Sub
On Error Resume Next
A
Echo "here", Err.Number)vbs",
     "here 11"},
    {"inside_the_innermost_handler", R"vbs(
Sub A
    On Error Resume Next
    B
    Echo "in A"
End Sub
Sub B : x = 1 / 0 : End Sub
A
Echo Err.Number)vbs",
     "in A|11"},
    {"not_in_the_other_branch", R"vbs(
On Error Resume Next
If True Then
    x = 1 / 0
Else
    Echo "else"
End If
If False Then
ElseIf True Then
    x = 1 / 0
ElseIf True Then
    Echo "other"
End If
Select Case 1
    Case 1 : x = 1 / 0
    Case 2 : Echo "two"
    Case Else : Echo "else"
End Select
Echo "end")vbs",
     "end"},
    {"into_the_body_after_a_failed_condition", R"vbs(
On Error Resume Next
If 1 / 0 Then Echo "if"
If 2 = 2 And 1 / 0 = 1 Then
    Echo "and"
End If
n = 0
Do While n < 2 And Fail() = 0
    n = n + 1
    Echo "do", n
    If n = 3 Then Exit Do
Loop
Function Fail : Fail = 1 / 0 : End Function)vbs",
     "if|and|do 1|do 2|do 3"},
    {"behind_a_loop_that_could_not_begin", R"vbs(
On Error Resume Next
For i = 1 To 1 / 0
    Echo "body"
Next
Echo Err.Number
For Each x In 5
    Echo "each"
Next
Echo Err.Number)vbs",
     "body|92|each|92"},
    {"go_to_zero_gives_errors_back", R"vbs(
On Error Resume Next
x = 1 / 0
On Error GoTo 0
Echo Err.Number
x = 1 / 0)vbs",
     "0|!11 Division by zero @6"},
    {"temporaries_of_a_failed_statement_are_forgotten", R"vbs(
Function F(a, b, c) : F = a & b & c : End Function
Sub Change(v) : v = "no" : End Sub
On Error Resume Next
x = "kept"
y = F(x, "text", 1 / 0)
y = F("a", "b", "c")
Change "t"
Echo x, y)vbs",
     "kept abc"},
};

constexpr ScriptCase kErrObject[] = {
    {"raise_with_all_arguments", R"vbs(
On Error Resume Next
Err.Raise 1000, "src", "desc", "help", 7
Echo Err.Number, Err.Source, Err.Description, Err.HelpFile, Err.HelpContext
Err.Clear
Echo Err.Number & "[" & Err.Description & "]")vbs",
     "1000 src desc help 7|0[]"},
    {"raise_of_an_unknown_number", "Err.Raise 60000", "!60000 Unknown runtime error @1"},
    {"raise_keeps_what_err_says", R"vbs(
On Error Resume Next
Err.Raise 1000, "src", "desc"
Sub Again : Err.Raise Err.Number : End Sub
Again
Echo Err.Source, Err.Description
Err.Raise 13
Echo Err.Description)vbs",
     "src desc|Type mismatch"},
    {"raise_of_no_error", "Err.Raise 0", "!5 Invalid procedure call or argument @1"},
    {"leaving_a_procedure_early_clears", R"vbs(
Sub Early
    On Error Resume Next
    x = 1 / 0
    Exit Sub
End Sub
Sub Late
    On Error Resume Next
    x = 1 / 0
End Sub
Early : Echo Err.Number
Late : Echo Err.Number)vbs",
     "0|11"},
    {"source_is_the_language", R"vbs(
On Error Resume Next
x = 1 / 0
Echo Err.Source
Execute "x = = 1"
Echo Err.Number, Err.Source)vbs",
     "Microsoft VBScript runtime error|1002 Microsoft VBScript compilation error"},
};

INSTANTIATE_TEST_SUITE_P(words, Errors, ::testing::ValuesIn(kWords), case_name);
INSTANTIATE_TEST_SUITE_P(going_on, Errors, ::testing::ValuesIn(kGoingOn), case_name);
INSTANTIATE_TEST_SUITE_P(err, Errors, ::testing::ValuesIn(kErrObject), case_name);

TEST(ErrorPlace, is_where_the_statement_begins) {
    TestHost host;
    Engine engine(host);
    try {
        engine.add_code(engine.global_module(), u"x = 1\r\n  If x = 1 Then y = x / 0\r\n");
        FAIL();
    } catch (const ScriptError& error) {
        EXPECT_EQ(error.line, 2);
        EXPECT_EQ(error.column, 17);
        EXPECT_EQ(to_utf8(error.source_line), "  If x = 1 Then y = x / 0");
    }
}

}  // namespace
}  // namespace vbscript::testing
