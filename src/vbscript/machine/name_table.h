#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vbscript {

using NameId = std::uint32_t;

// Every name that the engine has met, in small letters, under one number. Owned by the engine;
// names stay as long as it does.
class NameTable {
  public:
    // The number of a name in any case.
    NameId intern(std::u16string_view name);

    // As `intern`, for a name that is in small letters already.
    NameId intern_folded(std::u16string_view folded);

    // In small letters.
    [[nodiscard]] std::u16string_view text(NameId id) const { return texts_[id]; }

  private:
    std::deque<std::u16string> texts_;
    std::unordered_map<std::u16string_view, NameId> ids_;
};

}  // namespace vbscript
