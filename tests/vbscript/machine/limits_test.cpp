#include <gtest/gtest.h>

#include "vbscript/machine/script_table.h"

// What a script cannot do to the program that runs it.
namespace vbscript::testing {
namespace {

class Limits : public ScriptTable {};

TEST_P(Limits, are_errors_of_the_script) {
    check();
}

constexpr ScriptCase kRecursion[] = {
    {"of_a_procedure", R"vbs(
Sub S : S : End Sub
On Error Resume Next
S
Echo Err.Number)vbs",
     "28"},
    {"that_handles_its_own_errors", R"vbs(
Dim depth
Sub S
    On Error Resume Next
    depth = depth + 1
    S
End Sub
S
Echo depth > 1000)vbs",
     "True"},
    {"of_a_property", R"vbs(
Class C
    Public Property Get P : P = P() : End Property
    Public Property Get Q : Q = Me.Q : End Property
End Class
Set o = New C
On Error Resume Next
x = o.P : Echo Err.Number
Err.Clear
x = o.Q : Echo Err.Number)vbs",
     "28|28"},
    {"of_a_default_property", R"vbs(
Class C
    Public Default Property Get P : P = Me + 1 : End Property
End Class
Set o = New C
On Error Resume Next
x = o & ""
Echo Err.Number)vbs",
     "28"},
    {"of_eval", R"vbs(
Function F : F = Eval("F()") : End Function
On Error Resume Next
x = F()
Echo Err.Number)vbs",
     "28"},
    {"of_execute", R"vbs(
Sub S : Execute "S" : End Sub
On Error Resume Next
S
Echo Err.Number)vbs",
     "28"},
    {"of_last_words", R"vbs(
Class C
    Public Sub Class_Terminate
        count = count + 1
        Set x = New C
    End Sub
End Class
Dim count
Set o = New C
Set o = Nothing
Echo count > 5)vbs",
     "True"},
    {"ten_thousand_deep_is_fine", R"vbs(
Function Depth(n)
    If n = 0 Then Depth = 0 Else Depth = Depth(n - 1) + 1
End Function
Echo Depth(10000))vbs",
     "10000"},
};

constexpr ScriptCase kMemory[] = {
    {"an_array_that_is_too_large", R"vbs(
On Error Resume Next
ReDim a(2000000000) : Echo Err.Number
ReDim b(100000, 100000) : Echo Err.Number)vbs",
     "7|7"},
    {"a_text_that_is_too_long", R"vbs(
s = String(1000000, "x")
On Error Resume Next
For i = 1 To 12 : s = s & s : Next
Echo Err.Number)vbs",
     "14"},
};

INSTANTIATE_TEST_SUITE_P(recursion, Limits, ::testing::ValuesIn(kRecursion), case_name);
INSTANTIATE_TEST_SUITE_P(memory, Limits, ::testing::ValuesIn(kMemory), case_name);

// No script of these ends by itself.
class TimeLimit : public ScriptTable {};

TEST_P(TimeLimit, ends_the_script) {
    ScriptRun run;
    run.engine->set_time_limit(std::chrono::milliseconds(20));
    const std::string output = run.add(GetParam().script);
    EXPECT_EQ(output.substr(0, output.find(" @")), "!13028 Script execution time-out");
    run.echo->lines().clear();
    EXPECT_EQ(run.add("Echo \"next\""), "next");
}

constexpr ScriptCase kEndless[] = {
    {"empty_loop", "Do : Loop", ""},
    {"loop_with_a_body", "Do : x = x + 1 : Loop", ""},
    {"while_loop", "While True : Wend", ""},
    {"condition_at_the_end", "Do : x = 1 : Loop While x = 1 And True", ""},
    {"for_loop", "For i = 1 To 2 Step 0 : Next", ""},
    {"calls", "Sub S\nEnd Sub\nDo\nS\nLoop", ""},
    {"handled_errors", "On Error Resume Next\nDo\nx = 1 / 0\nLoop\nEcho \"never\"", ""},
    {"handlers_on_every_level", R"vbs(
Sub S
    On Error Resume Next
    Do : Loop
    S
End Sub
On Error Resume Next
S
Do : Loop)vbs",
     ""},
    {"last_words", R"vbs(
Class C
    Private Sub Class_Terminate : Do : Loop : End Sub
End Class
Set o = New C
Set o = Nothing
Do : Loop)vbs",
     ""},
    {"execute", "Execute \"Do : Loop\"", ""},
    {"eval_of_a_function", "Function F\nDo : Loop\nEnd Function\nx = Eval(\"F()\")", ""},
};

INSTANTIATE_TEST_SUITE_P(cases, TimeLimit, ::testing::ValuesIn(kEndless), case_name);

}  // namespace
}  // namespace vbscript::testing
