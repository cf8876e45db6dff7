#include <gtest/gtest.h>

#include "vbscript/machine/script_table.h"

// What a name means, and how that changes while scripts run.
namespace vbscript::testing {
namespace {

class Names : public ScriptTable {};

TEST_P(Names, are_found) {
    check();
}

constexpr ScriptCase kNames[] = {
    {"a_global_begins_with_its_first_use", R"vbs(
Sub S : v = 1 : Echo TypeName(v) : End Sub
S
Echo TypeName(v)
v = "global"
S
Echo v)vbs",
     "Integer|Empty|Integer|1"},
    {"counters_of_procedures_are_their_own", R"vbs(
Sub S : For i = 1 To 5 : Next : End Sub
S
For i = 1 To 2 : Echo i : Next)vbs",
     "1|2"},
    {"dim_is_seen_everywhere_in_its_procedure", R"vbs(
Dim x : x = "global"
Sub S
    x = 1
    If False Then
        Dim x
    End If
    Echo x
End Sub
S
Echo x)vbs",
     "1|global"},
    {"scripts_shadow_the_language", R"vbs(
Function Len(s) : Len = "mine" : End Function
Dim UCase : UCase = 5
Echo Len("abc"), UCase)vbs",
     "mine 5"},
    {"a_function_is_its_result_and_itself", R"vbs(
Function F(n)
    F = n
    If n > 0 Then F = F + F(n - 1)
End Function
Echo F(3))vbs",
     "6"},
    {"a_result_can_be_an_array", R"vbs(
Function F
    ReDim F(1)
    F(0) = 7
    F(1) = 8
End Function
Echo F()(0), F()(1))vbs",
     "7 8"},
    {"class_names_come_before_globals", R"vbs(
Dim Size : Size = "global"
Class C
    Private Size
    Public Function Show : Size = 3 : Show = Size & Twice() : End Function
    Private Function Twice : Twice = Size * 2 : End Function
End Class
Set o = New C
Echo o.Show, Size)vbs",
     "36 global"},
    {"property_let_with_arguments", R"vbs(
Class C
    Private d(3)
    Public Property Let Item(i, v) : d(i) = v : End Property
    Public Property Get Item(i) : Item = d(i) : End Property
    Public Sub Fill : Item(1) = "in" : End Sub
    Public Default Property Get Count : Count = 4 : End Property
End Class
Set o = New C
o.Item(2) = "out"
o.Fill
Echo o.Item(1), o.Item(2), o)vbs",
     "in out 4"},
    {"a_field_that_is_an_array", R"vbs(
Class C
    Public a(2)
    Public Sub Fill : a(0) = 1 : a(1) = a(0) + 1 : End Sub
End Class
Set o = New C
o.Fill
o.a(2) = 9
Echo o.a(0), o.a(1), o.a(2))vbs",
     "1 2 9"},
    {"a_field_that_is_a_counter", R"vbs(
Class C
    Private i
    Public Function Run : For i = 1 To 3 : Run = Run & i : Next : Run = Run & i : End Function
End Class
Set o = New C
Echo o.Run)vbs",
     "1234"},
    {"a_procedure_can_be_a_value", R"vbs(
Function Twice(x) : Twice = x * 2 : End Function
Set f = GetRef("twice")
Echo f(4), Apply(f, 5)
Function Apply(g, x) : Apply = g(x) : End Function
Sub Change(v) : v = "changed" : End Sub
Set c = GetRef("Change")
x = 1 : c x : Echo x)vbs",
     "8 10|1"},
};

constexpr ScriptCase kExecute[] = {
    {"execute_sees_and_makes_locals", R"vbs(
Sub S
    Dim a
    a = 1
    Execute "a = a + 1 : b = a * 10"
    Echo a, b
    Execute "c = b + 1"
    Echo Eval("c"), Eval("a + b")
End Sub
S
Echo TypeName(b), TypeName(c))vbs",
     "2 20|21 22|Empty Empty"},
    {"execute_inside_of_execute", R"vbs(
Sub S
    a = 1
    Execute "Execute ""a = a + 1 : z = 5"" : a = a + z"
    Echo a, Eval("z")
End Sub
S)vbs",
     "7 5"},
    {"execute_in_a_method_sees_the_object", R"vbs(
Class C
    Private n
    Public Function Run
        Execute "n = 4 : Me.Add 1"
        Run = Eval("n + Me.Value")
    End Function
    Public Sub Add(k) : n = n + k : End Sub
    Public Property Get Value : Value = n : End Property
End Class
Set o = New C
Echo o.Run)vbs",
     "10"},
    {"procedures_of_execute_belong_to_the_procedure", R"vbs(
Sub S
    Execute "Function Local(x) : Local = x + 1 : End Function"
    Echo Local(1)
End Sub
S
On Error Resume Next
Echo Local(1)
Echo Err.Number)vbs",
     "2|13"},
    {"executeglobal_is_seen_at_once", R"vbs(
Sub S
    ExecuteGlobal "g = 5 : Function F(x) : F = x + g : End Function"
    Echo g, F(1)
    g = 6
End Sub
S
Echo g, F(1))vbs",
     "5 6|6 7"},
    {"execute_outside_is_global", R"vbs(
Execute "x = 1 : Sub S : Echo x : End Sub : Class C : Public v : End Class"
S
Set o = New C : o.v = 2 : Echo o.v)vbs",
     "1|2"},
    {"option_explicit_holds_for_eval", R"vbs(
Option Explicit
Sub S
    On Error Resume Next
    Echo Eval("nowhere")
    Echo Err.Number
End Sub
S)vbs",
     "500"},
    {"redefinition_during_a_call", R"vbs(
Sub S
    ExecuteGlobal "Sub S : Echo ""new"" : End Sub"
    Echo "old"
    S
End Sub
S
S)vbs",
     "old|new|new"},
};

INSTANTIATE_TEST_SUITE_P(names, Names, ::testing::ValuesIn(kNames), case_name);
INSTANTIATE_TEST_SUITE_P(execute, Names, ::testing::ValuesIn(kExecute), case_name);

TEST(LaterCode, changes_what_earlier_code_means) {
    ScriptRun run;
    run.add(
        "Sub Show : Echo TypeName(item), Twice(2) : End Sub\n"
        "Function Twice(x) : Twice = x * 2 : End Function\nShow");
    run.add("Dim item : item = 5\nShow");
    run.add("Function Twice(x) : Twice = x * 200 : End Function\nShow");
    run.add("Function item : item = \"text\" : End Function\nShow");
    EXPECT_EQ(run.echo->lines(), "Empty 4|Integer 4|Integer 400|String 400");
}

TEST(LaterCode, replaces_classes_for_new_objects_only) {
    ScriptRun run;
    run.add(
        "Class C\nPublic Function V : V = 1 : End Function\nEnd Class\nSet old = New C\n"
        "Function Make : Set Make = New C : End Function\nEcho Make().V");
    run.add("Class C\nPublic Function V : V = 2 : End Function\nEnd Class");
    EXPECT_EQ(run.add("Echo old.V, Make().V"), "1|1 2");
}

TEST(Modules, see_their_own_names_first) {
    ScriptRun run;
    Module& one = run.engine->add_module(u"one");
    Module& two = run.engine->add_module(u"two");
    EXPECT_EQ(run.add("Function Who : Who = \"global\" : End Function\nDim common : common = 1"),
              "");
    run.add(one, "Function Who : Who = \"one\" : End Function\ncommon = common + 1");
    EXPECT_EQ(run.add(one, "Echo Who(), common"), "one 2");
    run.add(two, "Dim common : common = 50\nEcho Who(), common");
    run.add("Echo Who(), common");
    EXPECT_EQ(run.echo->lines(), "one 2|global 50|global 2");
    EXPECT_EQ(run.engine->find_module(u"ONE"), &one);
    EXPECT_EQ(&run.engine->add_module(u"Two"), &two);
}

TEST(GlobalMembers, extend_the_language_behind_its_own_names) {
    ScriptRun run;
    run.engine->add_object(u"host", Ref<Object>(run.echo), Engine::Members::Global);
    run.add("Line \"called\"\nEcho Twice(4)\nx = 1 : Change x : Echo x\nHeld = 7\nEcho Held");
    run.add("Function Twice(x) : Twice = \"mine\" : End Function\nEcho Twice(4), host.Twice(4)");
    EXPECT_EQ(run.echo->lines(), "called|8|changed|7|mine 8");
}

}  // namespace
}  // namespace vbscript::testing
