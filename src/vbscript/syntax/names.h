#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "vbscript/syntax/arena.h"
#include "vbscript/syntax/token.h"

namespace vbscript::syntax {

// One word of a script, however often and in whatever case it is written.
struct KnownName {
    static constexpr std::uint32_t kNoId = 0xFFFFFFFF;

    std::u16string_view folded;
    Keyword keyword = Keyword::None;
    std::uint32_t id = kNoId;
};

// The words of one script, each looked up once per occurrence: that finds keyword and name alike.
// A word gets its id when it is first used as a name.
class Names {
  public:
    static constexpr std::size_t kMostUnits = 255;

    // The texts go into the arena, which must outlive this.
    explicit Names(Arena& arena) : arena_(arena) {}

    // Requires: at most `kMostUnits` units.
    [[nodiscard]] KnownName& find(std::u16string_view spelled);

    [[nodiscard]] ast::Name name(std::u16string_view spelled, KnownName& known);

    // The names by id.
    [[nodiscard]] std::span<const std::u16string_view> list() { return arena_.list(by_id_); }

  private:
    Arena& arena_;
    std::unordered_map<std::u16string_view, KnownName> known_;
    std::vector<std::u16string_view> by_id_;
};

}  // namespace vbscript::syntax
