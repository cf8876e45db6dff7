#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "vbscript/machine/script_run.h"

namespace vbscript::testing {

// One row of a table: a script and its output, lines separated by "|", and at the end the error
// that it ends in.
struct ScriptCase {
    std::string_view name;
    std::string_view script;
    std::string_view output;
};

inline std::string case_name(const ::testing::TestParamInfo<ScriptCase>& info) {
    return std::string(info.param.name);
}

class ScriptTable : public ::testing::TestWithParam<ScriptCase> {
  protected:
    static void check() { EXPECT_EQ(output_of(GetParam().script), GetParam().output); }
};

}  // namespace vbscript::testing
