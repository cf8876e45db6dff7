#include "vbscript/objects/wscript/script_arguments.h"

#include <algorithm>
#include <array>

#include "vbscript/value/convert.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

struct NamedArgument {
    std::u16string name;
    Value value;
};

// "/name:value" is a text, "/name+" and "/name-" truth values, "/name" Empty.
[[nodiscard]] std::optional<NamedArgument> named_argument(std::u16string_view argument) {
    if (!argument.starts_with(u'/') || argument.size() < 2) {
        return std::nullopt;
    }
    const std::u16string_view text = argument.substr(1);
    const std::size_t colon = text.find(u':');
    std::u16string_view name = text.substr(0, colon);
    if (name.empty() || name.find_first_of(u"/\\") != std::u16string_view::npos) {
        return std::nullopt;
    }
    if (colon != std::u16string_view::npos) {
        return NamedArgument{std::u16string(name), Value(text.substr(colon + 1))};
    }
    const char16_t last = name.back();
    if (name.size() == 1 || (last != u'+' && last != u'-')) {
        return NamedArgument{std::u16string(name), Value()};
    }
    name.remove_suffix(1);
    return NamedArgument{std::u16string(name), Value(last == u'+')};
}

[[nodiscard]] Value count_of(std::size_t size) {
    return Value(static_cast<std::int32_t>(size));
}

// `WshUnnamed`, and the part that `WshArguments` has in common with it.
class ArgumentList : public NativeObject {
  public:
    explicit ArgumentList(std::vector<Value> arguments) noexcept
        : arguments_(std::move(arguments)) {}

    [[nodiscard]] std::unique_ptr<Enumerator> enumerate(Context& /*context*/) override {
        return std::make_unique<ListEnumerator>(arguments_);
    }

    Value item(Arguments& arguments) {
        const std::int32_t index = arguments.number(0);
        if (index < 0 || static_cast<std::size_t>(index) >= arguments_.size()) {
            throw ScriptError(ErrorNumber::SubscriptOutOfRange);
        }
        return arguments_[static_cast<std::size_t>(index)];
    }

    Value count() const { return count_of(arguments_.size()); }

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    std::vector<Value> arguments_;
};

// `WshNamed`.
class NamedArguments final : public NativeObject {
  public:
    explicit NamedArguments(std::vector<NamedArgument> arguments) noexcept
        : arguments_(std::move(arguments)) {}

    [[nodiscard]] std::unique_ptr<Enumerator> enumerate(Context& /*context*/) override {
        std::vector<Value> names;
        for (const NamedArgument& row : arguments_) {
            names.emplace_back(row.name);
        }
        return std::make_unique<ListEnumerator>(std::move(names));
    }

    Value item(Arguments& arguments) {
        const NamedArgument* row = find(arguments.text(0));
        return row == nullptr ? Value() : row->value;
    }

    Value exists(Arguments& arguments) { return Value(find(arguments.text(0)) != nullptr); }

    Value count() const { return count_of(arguments_.size()); }

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    [[nodiscard]] const NamedArgument* find(std::u16string_view name) const noexcept {
        const auto row = std::ranges::find_if(arguments_, [&](const NamedArgument& argument) {
            return equals_ignoring_case(argument.name, name);
        });
        return row == arguments_.end() ? nullptr : &*row;
    }

    std::vector<NamedArgument> arguments_;
};

// `WshArguments`.
class AllArguments final : public ArgumentList {
  public:
    AllArguments(std::vector<Value> arguments, Ref<Object> named, Ref<Object> unnamed) noexcept
        : ArgumentList(std::move(arguments)),
          named_(std::move(named)),
          unnamed_(std::move(unnamed)) {}

    Value named() const { return Value(named_); }

    Value unnamed() const { return Value(unnamed_); }

  protected:
    [[nodiscard]] const NativeClass& native_class() const noexcept override;

  private:
    Ref<Object> named_;
    Ref<Object> unnamed_;
};

constexpr auto kListMembers = std::to_array<NativeMember>({
    native_property<&ArgumentList::item>(u"Item", 1),
    native_property<&ArgumentList::count>(u"Count"),
    native_property<&ArgumentList::count>(u"Length"),
});

constexpr auto kNamedMembers = std::to_array<NativeMember>({
    native_property<&NamedArguments::item>(u"Item", 1),
    native_property<&NamedArguments::count>(u"Count"),
    native_property<&NamedArguments::count>(u"Length"),
    native_method<&NamedArguments::exists>(u"Exists", 1),
});

constexpr auto kAllMembers = std::to_array<NativeMember>({
    native_property<&AllArguments::item>(u"Item", 1),
    native_property<&AllArguments::count>(u"Count"),
    native_property<&AllArguments::count>(u"Length"),
    native_property<&AllArguments::named>(u"Named"),
    native_property<&AllArguments::unnamed>(u"Unnamed"),
});

const NativeClass& ArgumentList::native_class() const noexcept {
    static const NativeClass kClass(u"WshUnnamed", kListMembers, u"Item");
    return kClass;
}

const NativeClass& NamedArguments::native_class() const noexcept {
    static const NativeClass kClass(u"WshNamed", kNamedMembers, u"Item");
    return kClass;
}

const NativeClass& AllArguments::native_class() const noexcept {
    static const NativeClass kClass(u"WshArguments", kAllMembers, u"Item");
    return kClass;
}

}  // namespace

Ref<Object> script_arguments(const std::vector<std::u16string>& arguments) {
    std::vector<Value> all;
    std::vector<Value> unnamed;
    std::vector<NamedArgument> named;
    for (const std::u16string& argument : arguments) {
        all.emplace_back(argument);
        if (auto row = named_argument(argument)) {
            named.push_back(*std::move(row));
        } else {
            unnamed.emplace_back(argument);
        }
    }
    return make<AllArguments>(std::move(all), make<NamedArguments>(std::move(named)),
                              make<ArgumentList>(std::move(unnamed)));
}

}  // namespace vbscript
