#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "vbscript/support/fake_context.h"
#include "vbscript/support/values.h"

namespace vbscript {

// One object, driven by the names of its members as a script drives it.
class ObjectTest : public ::testing::Test {
  protected:
    [[nodiscard]] Value call(std::u16string_view name, std::vector<Value> arguments = {}) {
        return vbscript::call(context, object, name, std::move(arguments));
    }

    [[nodiscard]] std::string noted(const Value& value) { return vbscript::noted(context, value); }

    // What the call gives as a text, or its error.
    [[nodiscard]] std::string result(std::u16string_view name, std::vector<Value> arguments = {},
                                     Access access = Access::Call) {
        return noted_result(
            context, [&] { return vbscript::call(context, object, name, arguments, access); });
    }

    // "" or the error.
    std::string let(std::u16string_view name, std::vector<Value> arguments) {
        const std::string noted = result(name, std::move(arguments), Access::Let);
        return noted == "Empty" ? "" : noted;
    }

    FakeContext context;
    Ref<Object> object;
};

// All elements that `For Each` finds: "[1, 2]".
[[nodiscard]] inline std::string walked(Context& context, const Ref<Object>& collection) {
    const auto walk = collection->enumerate(context);
    if (!walk) return "no collection";
    std::vector<Value> elements;
    while (auto element = walk->next()) {
        elements.push_back(*element);
    }
    return noted(context, Value(make<Array>(std::move(elements))));
}

[[nodiscard]] inline Ref<Object> object_of(const Value& value) {
    return Ref<Object>(value.object());
}

}  // namespace vbscript
