#include "vbscript/objects/automation_bridge.h"

#include <gtest/gtest.h>

#include "automation/array.h"
#include "automation/members.h"
#include "vbscript/objects/dictionary.h"
#include "vbscript/objects/object_test.h"

namespace vbscript {
namespace {

// An object of the program with a member of each kind.
class Panel final : public automation::TableObject {
  public:
    [[nodiscard]] std::string type_name() const override { return "Panel"; }

    [[nodiscard]] std::span<const automation::Member> members() const override;

    [[nodiscard]] automation::Value value() const { return value_; }

    void set_value(const automation::Value& value) { value_ = value; }

    void swap(automation::Value& left, automation::Value& right) { std::swap(left, right); }

    void fill(automation::Value& list) {
        (*list.get_if<std::shared_ptr<automation::Array>>())->elements()[1] = "filled";
    }

    void fail(std::int32_t number, const std::string& source) {
        throw automation::RunTimeError(number, "told so", source);
    }

    automation::Value echo(const automation::Value& value) { return value; }

    [[nodiscard]] std::int32_t count() const { return 2; }

    [[nodiscard]] std::int32_t item(std::int32_t index) const { return index * 10; }

  protected:
    [[nodiscard]] std::string_view default_member() const override { return "Value"; }

  private:
    automation::Value value_;
};

constexpr auto kMembers = std::to_array<automation::Member>({
    automation::property<&Panel::value, &Panel::set_value>("Value"),
    automation::method<&Panel::swap>("Swap", "left, right"),
    automation::method<&Panel::fill>("Fill", "list"),
    automation::method<&Panel::fail>("Fail", "number, source"),
    automation::method<&Panel::echo>("Echo", "value"),
    automation::property<&Panel::count>("Count"),
    automation::property<&Panel::item>("Item", "index"),
});

std::span<const automation::Member> Panel::members() const {
    return kMembers;
}

// A bare object without a table.
class Stranger final : public automation::Object {
  public:
    [[nodiscard]] std::string type_name() const override { return "Stranger"; }

    [[nodiscard]] std::optional<automation::MemberId> find_member(
        std::string_view /*name*/) const override {
        return std::nullopt;
    }

    automation::Value invoke(automation::MemberId /*member*/, automation::Access /*access*/,
                             std::span<automation::Value> /*arguments*/) override {
        return {};
    }
};

class Bridge : public ObjectTest {
  protected:
    Bridge() { object = bridge->from_automation(shared()); }

    [[nodiscard]] std::shared_ptr<automation::Object> shared() const { return panel; }

    std::unique_ptr<AutomationBridge> bridge = std::make_unique<AutomationBridge>(context);
    std::shared_ptr<Panel> panel = std::make_shared<Panel>();
};

TEST_F(Bridge, PlainValuesKeepTheirSubTypes) {
    const std::vector<Value> values{
        Value(),
        kNull,
        Value(true),
        Value(std::uint8_t{200}),
        integer(-5),
        long_number(70000),
        Value(1.5F),
        Value(2.5),
        Value(Currency{12345}),
        Value(Date{46350.5}),
        Value(u"\u20AC \u0416"),
        missing(),
    };
    for (const Value& value : values) {
        const Value back = bridge->from_automation(bridge->to_automation(value));
        EXPECT_EQ(back.type(), value.type());
        EXPECT_EQ(noted_result(context, [&] { return back; }),
                  noted_result(context, [&] { return value; }));
    }
    EXPECT_TRUE(bridge->to_automation(missing()).is_missing());
}

TEST_F(Bridge, ObjectsKeepTheirIdentityBothWays) {
    EXPECT_EQ(bridge->from_automation(shared()), object);
    EXPECT_EQ(bridge->to_automation(object), shared());
    const Ref<Object> dictionary = make<Dictionary>();
    const auto handed = bridge->to_automation(dictionary);
    EXPECT_EQ(bridge->to_automation(dictionary), handed);
    EXPECT_EQ(bridge->from_automation(handed), dictionary);
    EXPECT_FALSE(bridge->from_automation(std::shared_ptr<automation::Object>()));
    EXPECT_EQ(bridge->to_automation(Ref<Object>()), nullptr);
    EXPECT_EQ(handed->type_name(), "Dictionary");
    EXPECT_EQ(noted(Value(object)), "Panel");
}

TEST_F(Bridge, NothingIsKeptAliveByTheBridgeItself) {
    const std::weak_ptr<Panel> watched = panel;
    panel.reset();
    EXPECT_FALSE(watched.expired());
    object = nullptr;
    EXPECT_TRUE(watched.expired());
}

TEST_F(Bridge, CallSitesMayRememberMembersOfOneTable) {
    const Ref<Object> other =
        bridge->from_automation(std::shared_ptr<automation::Object>(std::make_shared<Panel>()));
    EXPECT_NE(object->class_identity(), nullptr);
    EXPECT_EQ(object->class_identity(), other->class_identity());
    const std::shared_ptr<automation::Object> stranger = std::make_shared<Stranger>();
    EXPECT_EQ(bridge->from_automation(stranger)->class_identity(), nullptr);
}

TEST_F(Bridge, MembersOfTheProgramAreCalledByScript) {
    EXPECT_EQ(let(u"value", {Value(u"on")}), "");
    EXPECT_EQ(result(u"VALUE"), "on");
    EXPECT_EQ(noted(context.plain(Value(object))), "on");
    EXPECT_EQ(result(u"Item", {integer(4)}), "40");
    EXPECT_EQ(walked(context, object), "[10, 20]");
    EXPECT_EQ(result(u"Missing"), "error 438");
    EXPECT_EQ(result(u"Item", {Value(u"x")}), "error 13");
}

TEST_F(Bridge, ReferencesComeBackChanged) {
    std::vector<Value> arguments{integer(1), Value(u"two")};
    object->call(context, u"Swap", Access::Call, arguments);
    EXPECT_EQ(noted(arguments[0]) + noted(arguments[1]), "two1");

    std::vector<Value> list{Value(make<Array>(std::vector<Value>{integer(1), integer(2)}))};
    const Value untouched = list[0];
    object->call(context, u"Fill", Access::Call, list);
    EXPECT_EQ(noted(list[0]), "[1, filled]");
    EXPECT_EQ(noted(untouched), "[1, 2]");
}

TEST_F(Bridge, ErrorsTellNumberTextAndSource) {
    for (const auto& [source, expected] :
         {std::pair(u"", u"Panel"), std::pair(u"my program", u"my program")}) {
        try {
            static_cast<void>(call(u"Fail", {integer(53), Value(source)}));
            FAIL();
        } catch (const ScriptError& error) {
            EXPECT_EQ(error.number, 53);
            EXPECT_EQ(error.description, u"told so");
            EXPECT_EQ(error.source, expected);
        }
    }
}

TEST_F(Bridge, TheProgramCallsMembersOfScriptObjects) {
    const auto handed = bridge->to_automation(Ref<Object>(make<Dictionary>()));
    std::vector<automation::Value> pair{"a", shared()};
    handed->call("Add", pair);
    std::vector<automation::Value> key{"a"};
    EXPECT_EQ(handed->call("Item", key), automation::Value(shared()));
    EXPECT_EQ(handed->call("count"), automation::Value(std::int32_t{1}));
    const auto keys = handed->call("_NewEnum");
    EXPECT_EQ((*keys.get_if<std::shared_ptr<automation::Array>>())->elements()[0],
              automation::Value("a"));
    try {
        handed->call("Add", pair);
        FAIL();
    } catch (const automation::RunTimeError& error) {
        EXPECT_EQ(error.number(), 457);
        EXPECT_EQ(error.source(), "Microsoft VBScript runtime error");
    }
}

TEST_F(Bridge, ArraysAreCopiedWithTheirBounds) {
    const std::vector<std::int32_t> bounds{1, 2};
    auto array = make<Array>(std::span<const std::int32_t>(bounds), true);
    array->elements()[3] = Value(make<Array>(std::vector<Value>{Value(u"deep")}));
    const Value back = bridge->from_automation(bridge->to_automation(Value(array)));
    EXPECT_NE(&back.array(), array.get());
    EXPECT_EQ(back.array().dimensions(), 2U);
    EXPECT_EQ(back.array().upper_bound(2), 2);
    EXPECT_EQ(noted(back), "[Empty, Empty, Empty, [deep], Empty, Empty]");
    EXPECT_EQ(noted(bridge->from_automation(bridge->to_automation(Value(make<Array>())))), "[]");

    const auto endless = std::make_shared<automation::Array>(std::vector<automation::Value>(1));
    endless->elements()[0] = endless;
    EXPECT_EQ(
        noted_result(context, [&] { return bridge->from_automation(automation::Value(endless)); }),
        "error 28");
    endless->elements()[0] = automation::Value();
}

TEST_F(Bridge, ObjectsThatOutliveTheEngineAnswerWithAnError) {
    const Ref<Object> dictionary = make<Dictionary>();
    const auto handed = bridge->to_automation(dictionary);
    const auto count = handed->find_member("Count");
    bridge.reset();
    EXPECT_FALSE(dictionary->is_shared());
    EXPECT_FALSE(handed->find_member("Count"));
    try {
        handed->invoke(*count, automation::Access::Call, {});
        FAIL();
    } catch (const automation::RunTimeError& error) {
        EXPECT_EQ(error.number(), 462);
    }
    object = nullptr;  // a lent object that goes after the bridge
}

}  // namespace
}  // namespace vbscript
