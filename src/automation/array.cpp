#include "automation/array.h"

#include <utility>

#include "automation/run_time_error.h"

namespace automation {
namespace {

std::size_t element_count(std::span<const std::int32_t> upper_bounds) {
    if (upper_bounds.empty() || upper_bounds.size() > Array::kMaximumDimensions) {
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    }
    std::size_t count = 1;
    for (const std::int32_t upper_bound : upper_bounds) {
        if (upper_bound < -1) {
            throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
        }
        count *= static_cast<std::size_t>(std::int64_t{upper_bound} + 1);
        if (count > Array::kMaximumElements) {
            throw RunTimeError(ErrorNumber::OutOfMemory);
        }
    }
    return count;
}

}  // namespace

Array::Array(std::vector<Value> elements)
    : upper_bounds_{static_cast<std::int32_t>(elements.size()) - 1},
      elements_(std::move(elements)) {}

Array::Array(std::span<const std::int32_t> upper_bounds)
    : upper_bounds_(upper_bounds.begin(), upper_bounds.end()),
      elements_(element_count(upper_bounds)) {}

std::int32_t Array::upper_bound(std::size_t dimension) const {
    if (dimension >= upper_bounds_.size()) {
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return upper_bounds_[dimension];
}

Value& Array::at(std::span<const std::int32_t> indexes) {
    return elements_[offset(indexes)];
}

const Value& Array::at(std::span<const std::int32_t> indexes) const {
    return elements_[offset(indexes)];
}

std::size_t Array::offset(std::span<const std::int32_t> indexes) const {
    if (indexes.size() != upper_bounds_.size()) {
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    }
    std::size_t offset = 0;
    std::size_t stride = 1;
    for (std::size_t dimension = 0; dimension < indexes.size(); ++dimension) {
        const std::int32_t index = indexes[dimension];
        if (index < 0 || index > upper_bounds_[dimension]) {
            throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
        }
        offset += static_cast<std::size_t>(index) * stride;
        stride *= static_cast<std::size_t>(upper_bounds_[dimension]) + 1;
    }
    return offset;
}

}  // namespace automation
