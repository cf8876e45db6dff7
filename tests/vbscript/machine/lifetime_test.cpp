#include <gtest/gtest.h>

#include "vbscript/machine/script_table.h"

// Objects of scripts end exactly when their last reference goes, and say their last words then.
namespace vbscript::testing {
namespace {

// A class whose objects tell when they begin and end.
constexpr std::string_view kNoisy = R"vbs(
Class Noisy
    Public Name
    Public Other
    Private Sub Class_Initialize : Echo "begin" : End Sub
    Private Sub Class_Terminate : Echo "end", Name : End Sub
    Public Default Property Get Value : Value = Name : End Property
    Public Function Self : Set Self = Me : End Function
End Class
Function Make(n) : Set Make = New Noisy : Make.Name = n : End Function
)vbs";

class Lifetime : public ::testing::TestWithParam<ScriptCase> {};

TEST_P(Lifetime, ends_with_the_last_reference) {
    EXPECT_EQ(output_of(std::string(kNoisy) + std::string(GetParam().script)), GetParam().output);
}

constexpr ScriptCase kCases[] = {
    {"assignment_of_nothing", "Set x = Make(1) : Set x = Nothing : Echo \"after\"",
     "begin|end 1|after"},
    {"another_value", "Set x = Make(1) : x = 5 : Echo \"after\"", "begin|end 1|after"},
    {"a_dropped_result", "Make 1 : Echo \"after\"", "begin|end 1|after"},
    {"the_end_of_a_procedure", R"vbs(
Sub S : Set x = Make(1) : Echo "in" : End Sub
S : Echo "after")vbs",
     "begin|in|end 1|after"},
    {"a_temporary_in_a_chain", "Echo Make(1).Self().Name : Echo \"after\"", "begin|end 1|1|after"},
    {"a_temporary_that_stands_for_its_value", "x = Make(1) & \"!\" : Echo x", "begin|end 1|1!"},
    {"an_argument", R"vbs(
Sub S(a) : Echo "in", a.Name : End Sub
S Make(1) : Echo "after")vbs",
     "begin|in 1|end 1|after"},
    {"with", "With Make(1)\nEcho .Name\nEnd With\nEcho \"after\"", "begin|1|end 1|after"},
    {"exit_out_of_with_and_for_each", R"vbs(
For i = 1 To 1
    For Each o In Array(Make(1))
        Set o = Nothing
        With Make(2)
            Exit For
        End With
    Next
    Echo "after"
Next)vbs",
     "begin|begin|end 2|end 1|after"},
    {"an_error_in_the_middle_of_a_statement", R"vbs(
Sub S(a, b) : End Sub
On Error Resume Next
S Make(1), 1 / 0
Echo "after")vbs",
     "begin|end 1|after"},
    {"fields_after_their_object", R"vbs(
Set x = Make(1) : Set x.Other = Make(2) : Set x.Other.Other = Make(3)
Set x = Nothing : Echo "after")vbs",
     "begin|begin|begin|end 1|end 2|end 3|after"},
    {"elements", "a = Array(Make(1), Make(2)) : Erase a : Echo \"after\"",
     "begin|begin|end 1|end 2|after"},
    {"an_object_may_live_again", R"vbs(
Class Phoenix
    Private Sub Class_Terminate : Set saved = Me : Echo "end" : End Sub
    Public Sub Speak : Echo "alive" : End Sub
End Class
Dim saved
Set p = New Phoenix
Set p = Nothing
saved.Speak
Set saved = Nothing
Echo "after")vbs",
     "end|alive|after"},
    {"errors_of_last_words_are_nobodys", R"vbs(
Class Bad
    Private Sub Class_Terminate : x = 1 / 0 : End Sub
End Class
Set b = New Bad : Set b = Nothing : Echo "after")vbs",
     "after"},
    {"class_initialize_may_fail", R"vbs(
Class Bad
    Private Sub Class_Initialize : x = 1 / 0 : End Sub
    Private Sub Class_Terminate : Echo "end" : End Sub
End Class
On Error Resume Next
Set b = New Bad
Echo Err.Number, TypeName(b))vbs",
     "end|11 Empty"},
};

INSTANTIATE_TEST_SUITE_P(cases, Lifetime, ::testing::ValuesIn(kCases), case_name);

TEST(EngineEnd, ends_global_variables_in_order_then_circles) {
    ScriptRun run;
    run.add(std::string(kNoisy) + R"vbs(
Dim a, b, c
Set b = Make("b") : Set a = Make("a")
Set c = Make("c1") : Set c.Other = Make("c2") : Set c.Other.Other = c
)vbs");
    run.echo->lines().clear();
    EXPECT_EQ(run.end(), "end a|end b|end c2|end c1");
}

TEST(EngineEnd, last_words_can_make_objects_without_end) {
    ScriptRun run;
    run.add(R"vbs(
Class Heir
    Private Sub Class_Terminate : Set heir = New Heir : End Sub
End Class
Dim heir
Set heir = New Heir)vbs");
    EXPECT_EQ(run.end(), "");
}

TEST(EngineEnd, leaves_shells_to_whoever_holds_objects) {
    auto run = std::make_unique<ScriptRun>();
    run->add("Class C\nPublic x\nEnd Class\nSet o = New C\nSub S\nEnd Sub\nSet r = GetRef(\"S\")");
    TestHost host;
    Engine other(host);
    const Value object = run->engine->eval(run->engine->global_module(), u"o");
    const Value reference = run->engine->eval(run->engine->global_module(), u"r");
    const Ref<Object> code = run->engine->code_object(run->engine->global_module());
    run.reset();
    EXPECT_EQ(to_utf8(object.object()->type_name()), "C");
    EXPECT_THROW(static_cast<void>(object.object()->call(other, u"x", Access::Call, {})),
                 ScriptError);
    EXPECT_THROW(
        static_cast<void>(reference.object()->invoke(other, kDefaultMember, Access::Call, {})),
        ScriptError);
    EXPECT_EQ(code->find_member(u"S"), std::nullopt);
}

TEST(EngineEnd, a_long_chain_ends_without_a_deep_stack) {
    EXPECT_EQ(output_of(R"vbs(
Class Node
    Public Following
End Class
Set first = Nothing
For i = 1 To 100000
    Set n = New Node
    Set n.Following = first
    Set first = n
Next
Set n = Nothing
Set first = Nothing
Echo "done")vbs"),
              "done");
}

}  // namespace
}  // namespace vbscript::testing
