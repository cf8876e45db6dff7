#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/value/context.h"
#include "vbscript/value/object.h"

namespace vbscript {

// The arguments of one call of a native member, with the conversions that members need. Lives as
// long as the call. Conversions throw what convert.h says; one that is left out where the member
// needs it is error 449.
class Arguments {
  public:
    Arguments(Context& context, std::span<Value> values) noexcept
        : context_(context), values_(values) {}

    [[nodiscard]] Context& context() const noexcept { return context_; }

    [[nodiscard]] std::size_t size() const noexcept { return values_.size(); }

    // Whether the caller gave this argument.
    [[nodiscard]] bool has(std::size_t index) const noexcept {
        return index < values_.size() && !values_[index].is_missing();
    }

    [[nodiscard]] Value& at(std::size_t index) const;

    // What a property is written with; it stands behind all others.
    [[nodiscard]] const Value& new_value() const { return at(values_.size() - 1); }

    [[nodiscard]] std::u16string text(std::size_t index) const;
    [[nodiscard]] std::u16string text_or(std::size_t index, std::u16string_view otherwise) const;
    [[nodiscard]] std::int32_t number(std::size_t index) const;
    [[nodiscard]] std::int32_t number_or(std::size_t index, std::int32_t otherwise) const;
    [[nodiscard]] bool truth_or(std::size_t index, bool otherwise) const;

    // All of them, the new value too.
    [[nodiscard]] std::span<Value> values() const noexcept { return values_; }

  private:
    Context& context_;
    std::span<Value> values_;
};

// One row of a class's table: a method, or a property with what can be done with it. Counts are of
// arguments before a new value.
struct NativeMember {
    using Handler = Value (*)(Object& self, Arguments& arguments);

    std::u16string_view name;
    std::uint8_t required = 0;
    std::uint8_t accepted = 0;
    Handler call = nullptr;
    Handler let = nullptr;
    Handler set = nullptr;
    bool is_property = false;
};

namespace detail {

template <typename Function>
struct Owner;

template <typename Class, typename... Parameters>
struct Owner<Value (Class::*)(Parameters...)> {
    using Type = Class;
};

template <typename Class, typename... Parameters>
struct Owner<Value (Class::*)(Parameters...) const> : Owner<Value (Class::*)(Parameters...)> {};

template <auto Function>
Value call_native(Object& self, Arguments& arguments) {
    using Class = typename Owner<decltype(Function)>::Type;
    if constexpr (requires(Class & object) { (object.*Function)(arguments); }) {
        return (static_cast<Class&>(self).*Function)(arguments);
    } else {
        return (static_cast<Class&>(self).*Function)();
    }
}

}  // namespace detail

// Handlers are member functions `Value f(Arguments&)`, or `Value f()` for one that reads nothing.
template <auto Function>
[[nodiscard]] constexpr NativeMember native_method(std::u16string_view name,
                                                   std::uint8_t required = 0,
                                                   std::uint8_t optional = 0) {
    NativeMember member;
    member.name = name;
    member.required = required;
    member.accepted = static_cast<std::uint8_t>(required + optional);
    member.call = &detail::call_native<Function>;
    return member;
}

// A property that can only be read.
template <auto Getter>
[[nodiscard]] constexpr NativeMember native_property(std::u16string_view name,
                                                     std::uint8_t required = 0,
                                                     std::uint8_t optional = 0) {
    NativeMember member = native_method<Getter>(name, required, optional);
    member.is_property = true;
    return member;
}

// A property that can also be given a value.
template <auto Getter, auto Letter>
[[nodiscard]] constexpr NativeMember native_property(std::u16string_view name,
                                                     std::uint8_t required = 0,
                                                     std::uint8_t optional = 0) {
    NativeMember member = native_property<Getter>(name, required, optional);
    member.let = &detail::call_native<Letter>;
    return member;
}

// A property that tells values and object references apart.
template <auto Getter, auto Letter, auto Setter>
[[nodiscard]] constexpr NativeMember native_property(std::u16string_view name,
                                                     std::uint8_t required = 0,
                                                     std::uint8_t optional = 0) {
    NativeMember member = native_property<Getter, Letter>(name, required, optional);
    member.set = &detail::call_native<Setter>;
    return member;
}

// A class of native objects: its name and its table, with the look-up of names. One for each class,
// made at its first use and never changed. The number of a member is its row plus 1.
class NativeClass final : public Counted {
  public:
    // `members` must outlive the class; `default_member` is one of its names or empty.
    NativeClass(std::u16string_view name, std::span<const NativeMember> members,
                std::u16string_view default_member = {});

    [[nodiscard]] std::u16string_view name() const noexcept { return name_; }

    [[nodiscard]] std::optional<MemberId> find(std::u16string_view name) const noexcept;

    [[nodiscard]] bool has_default_member() const noexcept { return default_member_ != 0; }

    // Null for a number that no member has.
    [[nodiscard]] const NativeMember* row(MemberId member) const noexcept;

  protected:
    // Whoever remembers the class may count its references; it lives on without any.
    void last_reference_gone() noexcept override {}

  private:
    std::u16string_view name_;
    std::span<const NativeMember> members_;
    MemberId default_member_ = 0;
    std::vector<std::uint16_t> slots_;  // a power of two, rows plus 1 by the hash of their names
};

// Base of the engine's own objects.
class NativeObject : public Object {
  public:
    [[nodiscard]] std::u16string type_name() const override {
        return std::u16string(native_class().name());
    }

    [[nodiscard]] const Counted* class_identity() const noexcept override {
        return &native_class();
    }

    [[nodiscard]] std::optional<MemberId> find_member(std::u16string_view name) const override {
        return native_class().find(name);
    }

    Value invoke(Context& context, MemberId member, Access access,
                 std::span<Value> arguments) override;

    [[nodiscard]] bool has_default_member() const override {
        return native_class().has_default_member();
    }

  protected:
    [[nodiscard]] virtual const NativeClass& native_class() const noexcept = 0;
};

// Walks a list of values that was taken when the loop began.
class ListEnumerator final : public Enumerator {
  public:
    explicit ListEnumerator(std::vector<Value> elements) noexcept
        : elements_(std::move(elements)) {}

    std::optional<Value> next() override {
        if (place_ == elements_.size()) {
            return std::nullopt;
        }
        return std::move(elements_[place_++]);
    }

  private:
    std::vector<Value> elements_;
    std::size_t place_ = 0;
};

}  // namespace vbscript
