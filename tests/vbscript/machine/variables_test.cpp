#include <gtest/gtest.h>

#include "vbscript/machine/script_table.h"

// Variables, references to them, elements of arrays, and what assignments share.
namespace vbscript::testing {
namespace {

class Variables : public ScriptTable {};

TEST_P(Variables, behave) {
    check();
}

constexpr ScriptCase kReferences[] = {
    {"two_parameters_can_be_one_variable", R"vbs(
Sub Both(a, b)
    a = a + 1
    b = b * 10
    Echo a
End Sub
x = 1
Both x, x
Echo x)vbs",
     "20|20"},
    {"a_parameter_sees_its_global_change", R"vbs(
Sub Watch(v)
    g = 5
    Echo v
End Sub
g = 1
Watch g)vbs",
     "5"},
    {"references_are_passed_on", R"vbs(
Sub Inner(v) : v = v & "!" : End Sub
Sub Outer(v) : Inner v : Inner v : End Sub
t = "a"
Outer t
Echo t)vbs",
     "a!!"},
    {"brackets_and_expressions_pass_values", R"vbs(
Sub Change(v) : v = 99 : End Sub
x = 1
Change (x) : Echo x
Change x + 0 : Echo x
Call Change((x)) : Echo x
Call Change(x) : Echo x)vbs",
     "1|1|1|99"},
    {"by_value_parameters_are_copies", R"vbs(
Function Grow(ByVal v) : v = v + 1 : Grow = v : End Function
x = 1
Echo Grow(x), x)vbs",
     "2 1"},
    {"fields_are_passed_by_reference_inside", R"vbs(
Class Box
    Private n
    Public Function Run
        n = 1
        Change n
        Run = n
    End Function
End Class
Sub Change(v) : v = v + 41 : End Sub
Set o = New Box
Echo o.Run)vbs",
     "42"},
    {"objects_of_the_program_write_back", R"vbs(
x = 1
Echo.Change x
Echo x
Sub Pass(v) : Echo.Change v : End Sub
y = 2 : Pass y : Echo y
Echo.Change (y & "kept"))vbs",
     "changed|changed"},
    {"counters_may_be_references", R"vbs(
Sub Count(i)
    For i = 1 To 3 : Next
End Sub
n = 0
Count n
Echo n)vbs",
     "4"},
    {"limits_by_reference_are_read_once", R"vbs(
Sub Count(n)
    For i = 1 To n
        n = 2
        r = r & i
    Next
    Echo r
End Sub
x = 4
Count x
Echo x)vbs",
     "1234|2"},
};

constexpr ScriptCase kElements[] = {
    {"an_element_is_locked_while_it_is_passed", R"vbs(
Dim a()
ReDim a(2)
Sub Resize(v)
    v = 7
    On Error Resume Next
    ReDim a(5)
    Echo Err.Number
End Sub
Resize a(1)
Echo a(1)
ReDim a(9)
Echo UBound(a))vbs",
     "10|7|9"},
    {"the_lock_ends_with_an_error", R"vbs(
Dim a()
ReDim a(2)
Sub Fail(v) : v = 1 / 0 : End Sub
On Error Resume Next
Fail a(1)
Err.Clear
ReDim a(9)
Echo Err.Number, UBound(a))vbs",
     "0 9"},
    {"two_elements_change_places", R"vbs(
Sub Swap(x, y) : t = x : x = y : y = t : End Sub
a = Array(1, 2, 3)
b = a
Swap a(0), a(2)
Echo a(0), a(2), b(0), b(2))vbs",
     "3 1 1 3"},
    {"elements_of_inner_arrays_are_written_in_place", R"vbs(
a = Array(Array(1, 2), Array(3, 4))
b = a
a(1)(0) = 30
i = 0
a(i)(i + 1) = a(1)(0) + 1
Echo a(0)(1), a(1)(0), b(0)(1), b(1)(0))vbs",
     "31 30 2 3"},
    {"an_index_on_no_array", "x = 5\nEcho x(1)", "!13 Type mismatch: 'x' @2"},
    {"a_loop_over_an_array_locks_it", R"vbs(
Dim a() : ReDim a(1)
On Error Resume Next
For Each x In a
    ReDim a(3)
    Echo Err.Number
    Exit For
Next
Err.Clear
ReDim a(3)
Echo Err.Number)vbs",
     "10|0"},
    {"a_copy_made_in_a_loop_is_its_own", R"vbs(
a = Array(1, 2)
For Each x In a
    b = a
    b(1) = 9
Next
Echo a(1), b(1))vbs",
     "2 9"},
    {"local_arrays_live_as_long_as_their_call", R"vbs(
Function Make(n)
    Dim t(2)
    t(0) = n
    Make = t
End Function
a = Make(1) : b = Make(2)
ReDim a(5)
Echo UBound(a), b(0))vbs",
     "5 2"},
};

constexpr ScriptCase kTexts[] = {
    {"a_text_that_grows_leaves_its_copies_alone", R"vbs(
s = "a"
s = s & "b"
t = s
s = s & "c"
t = t & "d"
s = s & s
Echo s, t)vbs",
     "abcabc abd"},
    {"growing_reads_the_text_of_before", R"vbs(
Function Reset : s = "new" : Reset = "!" : End Function
s = "old"
s = s & Reset() & "?"
Echo s)vbs",
     "old!?"},
    {"numbers_and_nulls_join", R"vbs(
s = ""
For i = -1 To 1 : s = s & i & "," : Next
s = s & Null & 1.5 & True
Echo s
Echo IsNull(Null & Null), Null & "x")vbs",
     "-1,0,1,1.5True|True x"},
    {"a_parameter_grows_the_variable_of_its_caller", R"vbs(
Sub Add(t, n)
    For i = 1 To n : t = t & i : Next
End Sub
s = "n"
Add s, 3
Echo s)vbs",
     "n123"},
};

constexpr ScriptCase kNumbers[] = {
    {"whole_numbers_widen_when_they_overflow", R"vbs(
i = 32767 : i = i + 1 : Echo i, TypeName(i)
k = 2147483647 : k = k + 1 : Echo k, TypeName(k)
m = 300 : m = m * m : Echo m, TypeName(m)
n = -32768 : n = -n : Echo n, TypeName(n))vbs",
     "32768 Long|2147483648 Double|90000 Long|32768 Long"},
    {"counters_widen_as_well", R"vbs(
For i = 32766 To 32768 : r = r & TypeName(i) & " " : Next
Echo r & i
For k = 2147483646 To 2147483647 : Next
Echo k, TypeName(k))vbs",
     "Integer Integer Long 32769|2147483648 Double"},
    {"loops_follow_the_sign_of_their_step", R"vbs(
For i = 3 To 1 Step -1 : r = r & i : Next
For i = 1 To 3 Step -1 : r = r & "never" : Next
For i = 1 To 2 Step 0.5 : r = r & " " & i : Next
For i = "1" To "3" Step "2" : r = r & " " & i : Next
Echo r)vbs",
     "321 1 1.5 2 1 3"},
    {"conditions_with_null_are_not_met", R"vbs(
n = Null
If n = 1 Then Echo "yes" Else Echo "no"
If Not (n = 1) Then Echo "yes" Else Echo "no"
If n = 1 Or 1 = 1 Then Echo "yes" Else Echo "no"
If n = 1 And 1 = 1 Then Echo "yes" Else Echo "no"
Do Until n = 1 : Exit Do : Loop)vbs",
     "no|no|yes|no"},
    {"both_sides_of_and_are_read", R"vbs(
Function Say(t, v) : Echo t : Say = v : End Function
If Say("a", 1) = 2 And Say("b", 1) = 1 Then Echo "never"
If Say("c", 1) = 1 Or Say("d", 1) = 1 Then Echo "met"
Do While Say("e", 1) = 2 And Say("f", 1) = 1 : Loop)vbs",
     "a|b|c|d|met|e|f"},
    {"operands_are_read_from_left_to_right", R"vbs(
Function Change : x = 100 : Change = 1 : End Function
x = 1
Echo x + Change()
x = 1
Echo Change() + x)vbs",
     "2|101"},
};

INSTANTIATE_TEST_SUITE_P(references, Variables, ::testing::ValuesIn(kReferences), case_name);
INSTANTIATE_TEST_SUITE_P(elements, Variables, ::testing::ValuesIn(kElements), case_name);
INSTANTIATE_TEST_SUITE_P(texts, Variables, ::testing::ValuesIn(kTexts), case_name);
INSTANTIATE_TEST_SUITE_P(numbers, Variables, ::testing::ValuesIn(kNumbers), case_name);

}  // namespace
}  // namespace vbscript::testing
