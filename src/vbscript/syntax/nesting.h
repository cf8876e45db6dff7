#pragma once

#include <cstdint>

#include "vbscript/syntax/token_stream.h"

namespace vbscript::syntax {

// Counts how deep the parsers have called each other, so that no script can use up the stack.
class Nesting {
  public:
    // One level, for the life of the object. Throws: SyntaxError 1001 beyond `ast::kMostNesting`.
    class Level {
      public:
        Level(Nesting& nesting, const TokenStream& tokens) : nesting_(nesting) {
            if (nesting_.depth_ == ast::kMostNesting) {
                tokens.fail(SyntaxErrorNumber::OutOfMemory);
            }
            ++nesting_.depth_;
        }

        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

        ~Level() { --nesting_.depth_; }

      private:
        Nesting& nesting_;
    };

  private:
    std::uint32_t depth_ = 0;
};

}  // namespace vbscript::syntax
