#include <gtest/gtest.h>

#include "vbscript/machine/script_table.h"

// The engine as the program around it uses it.
namespace vbscript::testing {
namespace {

class EngineCalls : public ::testing::Test {
  protected:
    Module& module() { return run.engine->global_module(); }

    ScriptRun run;
};

TEST_F(EngineCalls, parameters_by_reference_come_back) {
    run.add("Function F(a, ByVal b)\na = a + b\nb = 0\nF = \"done\"\nEnd Function");
    std::vector<Value> arguments{Value(std::int16_t{1}), Value(std::int16_t{2})};
    EXPECT_EQ(run.engine->run(module(), u"f", arguments).units(), u"done");
    EXPECT_EQ(arguments[0].number(), 3);
    EXPECT_EQ(arguments[1].number(), 2);
}

TEST_F(EngineCalls, of_what_is_not_there_or_does_not_fit) {
    run.add("Sub S(a)\nEnd Sub\nx = 1");
    EXPECT_EQ(run.call("Nowhere"), "!5 Invalid procedure call or argument: 'Nowhere' @0");
    EXPECT_EQ(run.call("S"),
              "!450 Wrong number of arguments or invalid property assignment: 'S' @0");
    EXPECT_EQ(run.call("x"), "!5 Invalid procedure call or argument: 'x' @0");
}

TEST_F(EngineCalls, procedures_are_listed_in_order) {
    run.add("Sub B(x, y)\nEnd Sub\nDim v\nFunction A\nEnd Function");
    const auto all = run.engine->procedures(module());
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].name, u"B");
    EXPECT_EQ(all[0].parameters, 2U);
    EXPECT_FALSE(all[0].has_return_value);
    EXPECT_EQ(all[1].name, u"A");
    EXPECT_TRUE(all[1].has_return_value);
    EXPECT_TRUE(run.engine->find_procedure(module(), u"a").has_value());
    EXPECT_FALSE(run.engine->find_procedure(module(), u"v").has_value());
}

TEST_F(EngineCalls, code_with_a_fault_changes_nothing) {
    run.add("Sub S : Echo \"old\" : End Sub");
    EXPECT_EQ(run.add("Sub S : Echo \"new\" : End Sub\nx = = 1"), "!syntax 1002");
    EXPECT_EQ(run.call("S"), "old");
}

TEST_F(EngineCalls, code_object_shows_procedures_and_variables) {
    run.add("Dim v : v = 5\nConst c = 7\nFunction F(x) : F = x + v : End Function\nDim a(2)");
    run.engine->add_object(u"code", run.engine->code_object(module()), Engine::Members::Prefixed);
    run.add("code.v = 6 : code.a(1) = 4\nEcho code.F(1), code.c, code.v, a(1), code.a(1)");
    EXPECT_EQ(run.echo->lines(), "7 7 6 4 4");
    EXPECT_EQ(run.add("code.nowhere"),
              "7 7 6 4 4|!438 Object doesn't support this property or method: 'code.nowhere' @1");
}

TEST_F(EngineCalls, objects_of_scripts_work_from_outside) {
    run.add(
        "Class C\nPublic n\nPrivate p\nPublic Function Add(x)\nn = n + x\nAdd = n\n"
        "End Function\nPublic Default Property Get V(i)\nV = n * i\nEnd Property\nEnd Class");
    const Value made = run.engine->eval(module(), u"New C");
    Object& object = *made.object();
    Value two(std::int16_t{2});
    object.call(*run.engine, u"n", Access::Let, {&two, 1});
    EXPECT_EQ(object.call(*run.engine, u"ADD", Access::Call, {&two, 1}).number(), 4);
    EXPECT_EQ(object.invoke(*run.engine, kDefaultMember, Access::Call, {&two, 1}).number(), 8);
    EXPECT_EQ(object.find_member(u"p"), std::nullopt);
}

// Whatever an object throws that is no error of a script passes through all handlers.
class Quit final : public Object {
  public:
    struct Request {};

    std::u16string type_name() const override { return u"Quit"; }

    std::optional<MemberId> find_member(std::u16string_view /*name*/) const override {
        return std::nullopt;
    }

    Value invoke(Context& /*context*/, MemberId /*member*/, Access /*access*/,
                 std::span<Value> /*arguments*/) override {
        throw Request();
    }

    bool has_default_member() const override { return true; }
};

TEST_F(EngineCalls, other_exceptions_pass_through_scripts) {
    run.engine->add_object(u"Quit", Ref<Object>(make<Quit>()), Engine::Members::Prefixed);
    EXPECT_THROW(run.add("Sub S\nOn Error Resume Next\nQuit\nEcho 1\nEnd Sub\n"
                         "On Error Resume Next\nS\nEcho 2"),
                 Quit::Request);
    EXPECT_THROW(run.add("Class C\nPrivate Sub Class_Terminate : Quit : End Sub\nEnd Class\n"
                         "Set o = New C\nSet o = Nothing\nDo : Loop"),
                 Quit::Request);
    EXPECT_FALSE(run.engine->is_running());
    EXPECT_EQ(run.add("Echo \"on\""), "on");
}

// An object that calls the engine while a script runs.
class Caller final : public Object {
  public:
    explicit Caller(Engine& engine) : engine_(engine) {}

    std::u16string type_name() const override { return u"Caller"; }

    std::optional<MemberId> find_member(std::u16string_view /*name*/) const override {
        return std::nullopt;
    }

    Value invoke(Context& /*context*/, MemberId /*member*/, Access /*access*/,
                 std::span<Value> arguments) override {
        EXPECT_TRUE(engine_.is_running());
        engine_.add_code(engine_.global_module(), arguments[0].units());
        return {};
    }

    bool has_default_member() const override { return true; }

  private:
    Engine& engine_;
};

TEST_F(EngineCalls, nest_inside_of_objects) {
    run.engine->add_object(u"Add", Ref<Object>(make<Caller>(*run.engine)),
                           Engine::Members::Prefixed);
    run.add(
        "Sub S(n)\nx = n\nAdd \"Function F : F = 42 : End Function : Echo \"\"in\"\"\"\n"
        "Echo x, n\nEnd Sub\nS 1\nEcho F()\nOn Error Resume Next\nAdd \"x = 1 / 0\"\n"
        "Echo Err.Number");
    EXPECT_EQ(run.echo->lines(), "in|1 1|42|11");
}

}  // namespace
}  // namespace vbscript::testing
