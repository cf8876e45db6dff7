#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "automation/value.h"

namespace automation {

// An array of values with 1 to 60 dimensions, each with indexes 0 to its upper bound. Shared by
// the values that hold it; whoever needs a copy asks for one.
class Array {
  public:
    static constexpr std::size_t kMaximumDimensions = 60;
    static constexpr std::size_t kMaximumElements = std::size_t{1} << 26;

    // One dimension that holds `elements`.
    explicit Array(std::vector<Value> elements);

    // All elements Empty. An upper bound of -1 is an empty dimension.
    // Throws: RunTimeError 9 for a bound below -1 or a count of dimensions outside 1 to 60, 7 for
    // more than `kMaximumElements`.
    explicit Array(std::span<const std::int32_t> upper_bounds);

    [[nodiscard]] std::size_t dimensions() const noexcept { return upper_bounds_.size(); }

    // `dimension` counts from 0. Throws: RunTimeError 9.
    [[nodiscard]] std::int32_t upper_bound(std::size_t dimension) const;

    // Throws: RunTimeError 9 for an index out of bounds or a wrong count of indexes.
    [[nodiscard]] Value& at(std::span<const std::int32_t> indexes);
    [[nodiscard]] const Value& at(std::span<const std::int32_t> indexes) const;

    // All elements, the first dimension running fastest.
    [[nodiscard]] std::span<const Value> elements() const noexcept { return elements_; }

    [[nodiscard]] std::span<Value> elements() noexcept { return elements_; }

  private:
    [[nodiscard]] std::size_t offset(std::span<const std::int32_t> indexes) const;

    std::vector<std::int32_t> upper_bounds_;
    std::vector<Value> elements_;
};

}  // namespace automation
