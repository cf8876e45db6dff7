#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "vbscript/value/value.h"

namespace vbscript {

// An array of 1 to 60 dimensions, each with indexes 0 to its upper bound; or a dynamic array that
// has no dimensions yet. Values that are assigned to one another share it until one of them is
// written to: `writable` gives the writer an array of its own.
class Array final : public Counted {
  public:
    static constexpr std::size_t kMaximumDimensions = 60;
    static constexpr std::size_t kMaximumElements = std::size_t{1} << 26;

    // A dynamic array without dimensions: `Dim a()`, or one that was erased.
    Array() = default;

    // One dimension that holds `elements`; as `Array(...)` and `Split` give it.
    explicit Array(std::vector<Value> elements);

    // All elements Empty. `fixed` arrays refuse `ReDim`. An upper bound of -1 is an empty
    // dimension. Throws: ScriptError 9 for a bound below -1 or too many dimensions, 7 for more than
    // `kMaximumElements`.
    Array(std::span<const std::int32_t> upper_bounds, bool fixed);

    [[nodiscard]] bool is_fixed() const noexcept { return fixed_; }

    [[nodiscard]] std::size_t dimensions() const noexcept { return upper_bounds_.size(); }

    // `dimension` counts from 1. Throws: ScriptError 9.
    [[nodiscard]] std::int32_t upper_bound(std::int32_t dimension) const;

    // All elements, the first dimension running fastest.
    [[nodiscard]] std::span<Value> elements() noexcept { return elements_; }

    [[nodiscard]] std::span<const Value> elements() const noexcept { return elements_; }

    // Throws: ScriptError 9 for an index out of bounds or a wrong count of indexes.
    [[nodiscard]] Value& at(std::span<const std::int32_t> indexes);

    // The common case: the element of a one-dimensional array, a null pointer for any other array
    // or an index out of bounds.
    [[nodiscard]] Value* find(std::int32_t index) noexcept {
        const auto place = static_cast<std::uint32_t>(index);
        return upper_bounds_.size() == 1 && place < elements_.size() ? &elements_[place] : nullptr;
    }

    // `ReDim`: new bounds; with `preserve` the elements stay, and only the last bound may change.
    // Throws: ScriptError 10 for a fixed or locked array, 9, 7.
    void redim(std::span<const std::int32_t> upper_bounds, bool preserve);

    // `Erase`: a fixed array's elements become Empty, a dynamic one loses its dimensions.
    // Throws: ScriptError 10 for a locked array.
    void erase();

    // While an element is passed by reference or a loop walks the array, its bounds cannot change.
    // Whoever locks it holds a reference of its own.
    void lock() noexcept { ++locks_; }

    void unlock() noexcept { --locks_; }

    [[nodiscard]] bool is_locked() const noexcept { return locks_ != 0; }

    // Whether several values hold the array; locks do not count.
    [[nodiscard]] bool is_held_twice() const noexcept { return references() > 1 + locks_; }

    // A deep copy as an assignment makes it: dynamic, whatever the source was.
    [[nodiscard]] Ref<Array> copy() const;

  protected:
    // Arrays in arrays end one after the other, not one inside of the other, however deep they are.
    void last_reference_gone() noexcept override;

  private:
    std::vector<std::int32_t> upper_bounds_;
    std::vector<Value> elements_;
    std::uint32_t locks_ = 0;
    bool fixed_ = false;
};

inline Value::Value(Ref<Array> array) noexcept : type_(Type::Array) {
    content_.shared = array.detach();
}

inline void Value::set_locked_array(Array& array) noexcept {
    if (is_counted()) {
        release();
    }
    type_ = kLockedArray;
    content_.shared = &array;
}

inline Array& Value::array() const noexcept {
    return static_cast<Array&>(*content_.shared);
}

// The array of `holder` for a writer: copied first when other values share it.
// Requires: `holder` holds an array.
[[nodiscard]] inline Array& writable(Value& holder) {
    Array& array = holder.array();
    if (!array.is_held_twice()) {
        return array;
    }
    holder = Value(array.copy());
    return holder.array();
}

}  // namespace vbscript
