#include "vbscript/value/array.h"

#include <algorithm>
#include <iterator>

#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

[[noreturn]] void throw_out_of_range() {
    throw ScriptError(ErrorNumber::SubscriptOutOfRange);
}

// Throws: ScriptError 9, 7.
std::size_t element_count(std::span<const std::int32_t> upper_bounds) {
    if (upper_bounds.empty() || upper_bounds.size() > Array::kMaximumDimensions) {
        throw_out_of_range();
    }
    if (std::ranges::any_of(upper_bounds, [](std::int32_t bound) { return bound < -1; })) {
        throw_out_of_range();
    }
    std::size_t count = 1;
    for (const std::int32_t bound : upper_bounds) {
        count *= static_cast<std::size_t>(bound + std::int64_t{1});
        if (count > Array::kMaximumElements) {
            throw ScriptError(ErrorNumber::OutOfMemory);
        }
    }
    return count;
}

// All but the last dimension agree, so that the elements that stay lie at the front.
bool is_extension(std::span<const std::int32_t> before, std::span<const std::int32_t> after) {
    return before.size() == after.size() &&
           std::ranges::equal(before.first(before.size() - 1), after.first(after.size() - 1));
}

// Moves the elements from `begin` on out, so that cutting them off ends nothing.
std::vector<Value> taken_from(std::vector<Value>& elements, std::size_t begin) {
    const auto first = elements.begin() + static_cast<std::ptrdiff_t>(begin);
    return {std::make_move_iterator(first), std::make_move_iterator(elements.end())};
}

}  // namespace

Array::Array(std::vector<Value> elements)
    : upper_bounds_{static_cast<std::int32_t>(elements.size()) - 1},
      elements_(std::move(elements)) {}

Array::Array(std::span<const std::int32_t> upper_bounds, bool fixed)
    : upper_bounds_(upper_bounds.begin(), upper_bounds.end()),
      elements_(element_count(upper_bounds)),
      fixed_(fixed) {}

std::int32_t Array::upper_bound(std::int32_t dimension) const {
    if (dimension < 1 || static_cast<std::size_t>(dimension) > upper_bounds_.size()) {
        throw_out_of_range();
    }
    return upper_bounds_[static_cast<std::size_t>(dimension) - 1];
}

Value& Array::at(std::span<const std::int32_t> indexes) {
    if (indexes.empty() || indexes.size() != upper_bounds_.size()) {
        throw_out_of_range();
    }
    std::size_t place = 0;
    for (std::size_t dimension = indexes.size(); dimension-- > 0;) {
        const std::int32_t index = indexes[dimension];
        const std::int32_t bound = upper_bounds_[dimension];
        if (index < 0 || index > bound) {
            throw_out_of_range();
        }
        place = place * (static_cast<std::size_t>(bound) + 1) + static_cast<std::size_t>(index);
    }
    return elements_[place];
}

void Array::redim(std::span<const std::int32_t> upper_bounds, bool preserve) {
    if (fixed_ || is_locked()) {
        throw ScriptError(ErrorNumber::ArrayFixedOrLocked);
    }
    const std::size_t count = element_count(upper_bounds);
    std::vector<std::int32_t> bounds(upper_bounds.begin(), upper_bounds.end());
    // What goes ends last: an object among it may run script that sees this array.
    std::vector<Value> gone;
    if (preserve && !upper_bounds_.empty()) {
        if (!is_extension(upper_bounds_, upper_bounds)) {
            throw_out_of_range();
        }
        gone = taken_from(elements_, std::min(count, elements_.size()));
        elements_.resize(count);
    } else {
        gone.resize(count);
        elements_.swap(gone);
    }
    upper_bounds_.swap(bounds);
}

void Array::erase() {
    if (is_locked()) {
        throw ScriptError(ErrorNumber::ArrayFixedOrLocked);
    }
    std::vector<Value> elements(fixed_ ? elements_.size() : 0);
    if (!fixed_) {
        upper_bounds_.clear();
    }
    elements_.swap(elements);
}

void Array::last_reference_gone() noexcept {
    struct Level {
        std::vector<Value> elements;
        std::size_t next = 0;
    };

    std::vector<Level> levels;
    levels.push_back({std::move(elements_)});
    delete this;
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == level.elements.size()) {
            levels.pop_back();
            continue;
        }
        Value element = std::move(level.elements[level.next++]);
        if (!element.is(Type::Array) || element.array().is_shared()) {
            continue;
        }
        levels.push_back({std::move(element.array().elements_)});
    }
}

Ref<Array> Array::copy() const {
    auto result = make<Array>();
    result->upper_bounds_ = upper_bounds_;
    result->elements_ = elements_;
    return result;
}

}  // namespace vbscript
