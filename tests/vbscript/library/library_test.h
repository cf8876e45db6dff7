#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "vbscript/library/functions.h"
#include "vbscript/support/fake_context.h"
#include "vbscript/support/typed.h"

namespace vbscript {

struct LibraryCase {
    std::u16string_view function;
    std::vector<Value> arguments;
    std::string_view expected;
};

// Calls functions of the library by name, as a script does. A count of arguments that a row does
// not take is the machine's error and fails the test.
class LibraryTest : public ::testing::Test {
  protected:
    [[nodiscard]] Value call(std::u16string_view name, const std::vector<Value>& arguments) {
        const auto functions = library_functions();
        const auto row = std::ranges::find(functions, name, &LibraryFunction::name);
        if (row == functions.end()) {
            ADD_FAILURE() << to_utf8(name);
            return {};
        }
        EXPECT_GE(arguments.size(), row->required) << to_utf8(name);
        EXPECT_LE(arguments.size(), row->accepted) << to_utf8(name);
        return row->call(context, arguments);
    }

    // Results with their sub-types.
    void expect(const std::vector<LibraryCase>& cases) {
        for (const LibraryCase& row : cases) {
            EXPECT_EQ(typed_result(context, [&] { return call(row.function, row.arguments); }),
                      row.expected)
                << to_utf8(row.function) << " of "
                << noted_result(context, [&] { return Value(make<Array>(row.arguments)); });
        }
    }

    FakeContext context;
};

[[nodiscard]] inline Value list(std::vector<Value> elements) {
    return Value(make<Array>(std::move(elements)));
}

}  // namespace vbscript
