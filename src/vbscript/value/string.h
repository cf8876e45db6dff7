#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "vbscript/value/counted.h"

namespace vbscript {

// A text of 16-bit units. It never changes while it is shared; the one owner of a text may append
// to it, so that a text built piece by piece costs its length and no more.
class String final : public Counted {
  public:
    explicit String(std::u16string units) noexcept : units_(std::move(units)) {}

    explicit String(std::u16string_view units) : units_(units) {}

    // Joins two texts with one allocation.
    String(std::u16string_view left, std::u16string_view right) {
        units_.reserve(left.size() + right.size());
        units_.append(left).append(right);
    }

    [[nodiscard]] std::u16string_view units() const noexcept { return units_; }

    // Requires: not shared, no half unit. Throws: ScriptError 14 beyond `kMaximumUnits`.
    void append(std::u16string_view more);

    // Byte functions can cut a unit in half: then the last unit holds one byte that counts, its
    // low one, and the high one is 0.
    [[nodiscard]] bool has_half_unit() const noexcept { return has_half_unit_; }

    void set_half_unit(bool half) noexcept { has_half_unit_ = half; }

    [[nodiscard]] std::size_t byte_size() const noexcept {
        return units_.size() * 2 - (has_half_unit_ ? 1U : 0U);
    }

    // Longer texts are error 14, "Out of string space".
    static constexpr std::size_t kMaximumUnits = std::size_t{1} << 26;

  private:
    std::u16string units_;
    bool has_half_unit_ = false;
};

}  // namespace vbscript
