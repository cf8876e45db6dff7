#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "automation/convert.h"
#include "automation/object.h"
#include "automation/run_time_error.h"

// One table per class exposes its C++ members to late-bound callers:
//
//     constexpr auto kMembers = std::to_array<Member>({
//         method<&hspi::VeloraSpeak>("VeloraSpeak", "whichVeloras, text"),
//         property<&hspi::link, &hspi::set_link>("Link"),
//     });
//
// Argument types convert by the rules of convert.h: bool, std::uint8_t, std::int16_t,
// std::int32_t, float, double, Date, std::string (code page 1252), Value, std::shared_ptr<Object>,
// std::optional<T> for an argument that may be left out, and T& for one that is given by
// reference and written back. Results take the same types, or void.
namespace automation {

// One row of a class's table.
struct Member {
    using Thunk = Value (*)(Object& self, std::span<Value> arguments);

    std::string_view name;
    std::string_view parameters;  // names as a reader would write them: "whichVeloras, text"
    std::size_t required = 0;     // arguments that must be given
    std::size_t accepted = 0;     // arguments that may be given
    Thunk call = nullptr;         // method call or property read
    Thunk let = nullptr;          // property write with a value, absent when read-only
    Thunk set = nullptr;          // property write with an object
    bool is_property = false;
};

namespace detail {

template <typename T>
struct IsOptional : std::false_type {};

template <typename T>
struct IsOptional<std::optional<T>> : std::true_type {};

template <typename T>
[[nodiscard]] T argument_from(const Value& value) {
    if constexpr (std::is_same_v<T, Value>) {
        return value;
    } else if constexpr (std::is_same_v<T, bool>) {
        return to_boolean(value);
    } else if constexpr (std::is_same_v<T, std::uint8_t>) {
        return to_byte(value);
    } else if constexpr (std::is_same_v<T, std::int16_t>) {
        return to_int16(value);
    } else if constexpr (std::is_same_v<T, std::int32_t>) {
        return to_int32(value);
    } else if constexpr (std::is_same_v<T, float>) {
        return to_single(value);
    } else if constexpr (std::is_same_v<T, double>) {
        return to_double(value);
    } else if constexpr (std::is_same_v<T, Date>) {
        return to_date(value);
    } else if constexpr (std::is_same_v<T, std::string>) {
        return to_text(value);
    } else if constexpr (std::is_same_v<T, Text>) {
        return to_wide_text(value);
    } else {
        static_assert(std::is_same_v<T, std::shared_ptr<Object>>, "no conversion to this type");
        return to_object(value);
    }
}

// A failed conversion of one argument. Leaves `TableObject::invoke` as a plain RunTimeError that
// names the parameter.
class ArgumentError : public RunTimeError {
  public:
    ArgumentError(const RunTimeError& cause, std::size_t index)
        : RunTimeError(cause), index_(index) {}

    [[nodiscard]] std::size_t index() const noexcept { return index_; }

  private:
    std::size_t index_;
};

template <typename T>
[[nodiscard]] T optional_argument_from(std::span<Value> arguments, std::size_t index) {
    if constexpr (IsOptional<T>::value) {
        if (index >= arguments.size() || arguments[index].is_missing()) {
            return std::nullopt;
        }
        return argument_from<typename T::value_type>(arguments[index]);
    } else {
        return argument_from<T>(arguments[index]);
    }
}

template <typename T>
[[nodiscard]] T converted_argument(std::span<Value> arguments, std::size_t index) {
    try {
        return optional_argument_from<T>(arguments, index);
    } catch (const RunTimeError& error) {
        throw ArgumentError(error, index);
    }
}

template <typename Argument>
void write_back(std::span<Value> arguments, std::size_t index,
                const std::remove_cvref_t<Argument>& value) {
    if constexpr (std::is_lvalue_reference_v<Argument> &&
                  !std::is_const_v<std::remove_reference_t<Argument>>) {
        arguments[index] = Value(value);
    }
}

template <auto Function, typename Class, typename Result, typename... Arguments, std::size_t... I>
Value invoke_with(Class& self, [[maybe_unused]] std::span<Value> arguments,
                  std::index_sequence<I...>) {
    std::tuple<std::remove_cvref_t<Arguments>...> converted{
        converted_argument<std::remove_cvref_t<Arguments>>(arguments, I)...};
    const auto write_all_back = [&] {
        (write_back<Arguments>(arguments, I, std::get<I>(converted)), ...);
    };
    if constexpr (std::is_void_v<Result>) {
        std::invoke(Function, self, std::get<I>(converted)...);
        write_all_back();
        return {};
    } else {
        Value result(std::invoke(Function, self, std::get<I>(converted)...));
        write_all_back();
        return result;
    }
}

template <typename Function>
struct Signature;

template <typename Class_, typename Result_, typename... Arguments>
struct Signature<Result_ (Class_::*)(Arguments...)> {
    using Class = Class_;
    static constexpr std::size_t kAccepted = sizeof...(Arguments);
    static constexpr std::size_t kRequired =
        (std::size_t{0} + ... + (IsOptional<std::remove_cvref_t<Arguments>>::value ? 0U : 1U));

    template <auto Function>
    static Value call(Object& self, std::span<Value> arguments) {
        return invoke_with<Function, Class_, Result_, Arguments...>(
            static_cast<Class_&>(self), arguments, std::index_sequence_for<Arguments...>{});
    }
};

template <typename Class, typename Result, typename... Arguments>
struct Signature<Result (Class::*)(Arguments...) const>
    : Signature<Result (Class::*)(Arguments...)> {};

template <typename Class, typename Result, typename... Arguments>
struct Signature<Result (Class::*)(Arguments...) noexcept>
    : Signature<Result (Class::*)(Arguments...)> {};

template <typename Class, typename Result, typename... Arguments>
struct Signature<Result (Class::*)(Arguments...) const noexcept>
    : Signature<Result (Class::*)(Arguments...)> {};

}  // namespace detail

template <auto Function>
[[nodiscard]] constexpr Member method(std::string_view name, std::string_view parameters = {}) {
    using Signature = detail::Signature<decltype(Function)>;
    return {.name = name,
            .parameters = parameters,
            .required = Signature::kRequired,
            .accepted = Signature::kAccepted,
            .call = &Signature::template call<Function>};
}

// A property that can only be read.
template <auto Getter>
[[nodiscard]] constexpr Member property(std::string_view name, std::string_view parameters = {}) {
    Member member = method<Getter>(name, parameters);
    member.is_property = true;
    return member;
}

// A property with a setter, which takes the getter's arguments and then the value.
template <auto Getter, auto Setter>
[[nodiscard]] constexpr Member property(std::string_view name, std::string_view parameters = {}) {
    Member member = property<Getter>(name, parameters);
    member.let = &detail::Signature<decltype(Setter)>::template call<Setter>;
    member.set = member.let;
    return member;
}

// An object whose members are a table. The number of a member is its row plus 1; the default
// member, if the class has one, is named by `default_member()`.
class TableObject : public Object {
  public:
    [[nodiscard]] std::optional<MemberId> find_member(std::string_view name) const override;

    // The descriptions tell a human what was wrong: 450 ends in ": wanted " and the usage, a failed
    // conversion in the name of its parameter, as in "Type mismatch: 'text'".
    Value invoke(MemberId member, Access access, std::span<Value> arguments) override;

    // The table itself, for help texts and lists of operations.
    [[nodiscard]] virtual std::span<const Member> members() const = 0;

  protected:
    [[nodiscard]] virtual std::string_view default_member() const { return {}; }
};

// "VeloraSpeak(whichVeloras, text)": how a member is used, for error texts and help.
[[nodiscard]] std::string usage(const Member& member);

// Names of a table that are nearest to a misspelt one, best first, at most `count`.
[[nodiscard]] std::vector<std::string> nearest_names(std::span<const Member> members,
                                                     std::string_view name, std::size_t count);

}  // namespace automation
