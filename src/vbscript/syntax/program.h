#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "vbscript/syntax/ast.h"

namespace vbscript {

class Arena;

// One parsed script with all that its tree is made of. Move only; moving keeps every node and text
// where it is. Procedures and classes are found in their own lists and not in the body, since they
// exist before the first statement runs.
class Program {
  public:
    // What the parser found; all of it lies in the arena.
    struct Content {
        std::u16string_view source;
        std::span<const std::u16string_view> names;
        bool option_explicit = false;
        ast::Block body;
        std::span<const ast::Procedure* const> procedures;
        std::span<const ast::Class* const> classes;
        const ast::Expression* expression = nullptr;
    };

    Program(std::unique_ptr<Arena> arena, const Content& content) noexcept;
    Program(Program&&) noexcept;
    Program& operator=(Program&&) noexcept;
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    // The source as it was given.
    [[nodiscard]] std::u16string_view source() const noexcept { return content_.source; }

    // Every name that occurs, in small letters, by `ast::Name::id`.
    [[nodiscard]] std::span<const std::u16string_view> names() const noexcept {
        return content_.names;
    }

    [[nodiscard]] bool option_explicit() const noexcept { return content_.option_explicit; }

    // The statements outside of procedures and classes.
    [[nodiscard]] ast::Block body() const noexcept { return content_.body; }

    // Sub and Function, in the order of the source. A name may occur again: the last one holds.
    [[nodiscard]] std::span<const ast::Procedure* const> procedures() const noexcept {
        return content_.procedures;
    }

    [[nodiscard]] std::span<const ast::Class* const> classes() const noexcept {
        return content_.classes;
    }

    // What `parse_expression` read, else null.
    [[nodiscard]] const ast::Expression* expression() const noexcept { return content_.expression; }

  private:
    std::unique_ptr<Arena> arena_;
    Content content_;
};

}  // namespace vbscript
