#pragma once

#include <cstdint>
#include <unordered_map>

#include "vbscript/syntax/token_stream.h"

namespace vbscript::syntax {

// The names of one scope, to find those that are declared twice.
class DeclaredNames {
  public:
    enum class What : std::uint8_t { Variable, Constant, Procedure, Class, Get, Let, Set };

    // `token` is where the name stands. A procedure may take the name of an earlier one, and the
    // three parts of a property share a name. Throws: SyntaxError 1041.
    void declare(const ast::Name& name, What what, const TokenStream& tokens, const Token& token);

  private:
    std::unordered_map<std::uint32_t, std::uint32_t> found_;  // bits of What by a name's id
};

}  // namespace vbscript::syntax
