#pragma once

#include <array>
#include <string>
#include <string_view>

#include "vbscript/support/values.h"

namespace vbscript {

// A value with its sub-type: "Integer 5", "String abc", "Null".
[[nodiscard]] inline std::string typed(Context& context, const Value& value) {
    constexpr auto kNames = std::to_array<std::string_view>(
        {"Empty", "Null", "Boolean", "Byte", "Integer", "Long", "Single", "Double", "Currency",
         "Date", "Error", "String", "Object", "Array"});
    const bool is_alone = value.is(Type::Empty) || value.is(Type::Null);
    const std::string name(kNames[static_cast<std::size_t>(value.type())]);
    return is_alone ? name : name + " " + noted(context, value);
}

// What `body` gives with its sub-type, or "error 13".
[[nodiscard]] inline std::string typed_result(Context& context,
                                              const std::function<Value()>& body) {
    try {
        return typed(context, body());
    } catch (const ScriptError& error) {
        return "error " + std::to_string(error.number);
    }
}

[[nodiscard]] inline Value byte(int number) {
    return Value(static_cast<std::uint8_t>(number));
}

[[nodiscard]] inline Value text(std::u16string_view units) {
    return Value(units);
}

// In ten-thousandths.
[[nodiscard]] inline Value currency(std::int64_t units) {
    return Value(Currency{units});
}

// An object that stands for a value, or for nothing at all without one.
class StandIn final : public Object {
  public:
    StandIn() = default;

    explicit StandIn(Value value) : value_(std::move(value)), has_value_(true) {}

    [[nodiscard]] std::u16string type_name() const override { return u"StandIn"; }

    [[nodiscard]] std::optional<MemberId> find_member(std::u16string_view /*name*/) const override {
        return std::nullopt;
    }

    Value invoke(Context& /*context*/, MemberId /*member*/, Access /*access*/,
                 std::span<Value> /*arguments*/) override {
        return value_;
    }

    [[nodiscard]] bool has_default_member() const override { return has_value_; }

  private:
    Value value_;
    bool has_value_ = false;
};

[[nodiscard]] inline Value stand_in(Value value) {
    return Value(Ref<Object>(make<StandIn>(std::move(value))));
}

}  // namespace vbscript
