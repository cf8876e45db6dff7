#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "vbscript/syntax/ast.h"

namespace vbscript::syntax {

// What encloses the place that is being parsed, for the statements that are right only somewhere.
struct Surroundings {
    bool may_use_me = false;
    std::optional<ast::ProcedureKind> procedure{};
    int withs = 0;
    int dos = 0;
    std::vector<std::uint32_t> for_variables{};  // names' ids, the innermost loop last
};

}  // namespace vbscript::syntax
