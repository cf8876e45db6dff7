#include "vbscript/machine/value_arena.h"

#include <algorithm>
#include <iterator>

#include "vbscript/value/script_error.h"

namespace vbscript {

ValueArena::ValueArena() : values_(memory_.allocate(kCapacity)) {}

ValueArena::~ValueArena() {
    std::destroy_n(values_, size_);
    memory_.deallocate(values_, kCapacity);
}

std::uint32_t ValueArena::allocate(std::uint32_t count) {
    if (count == 0) {
        return 0;
    }
    const auto gap =
        std::ranges::find_if(gaps_, [count](const auto& range) { return range.second >= count; });
    if (gap != gaps_.end()) {
        const auto [first, size] = *gap;
        gaps_.erase(gap);
        if (size > count) {
            gaps_.emplace(first + count, size - count);
        }
        return first;
    }
    if (count > kCapacity - size_) {
        throw ScriptError(ErrorNumber::OutOfMemory);
    }
    std::uninitialized_default_construct_n(values_ + size_, count);
    size_ += count;
    return size_ - count;
}

void ValueArena::free(std::uint32_t first, std::uint32_t count) noexcept {
    if (count == 0) {
        return;
    }
    auto next = gaps_.upper_bound(first);
    if (next != gaps_.end() && first + count == next->first) {
        count += next->second;
        next = gaps_.erase(next);
    }
    if (next != gaps_.begin()) {
        const auto before = std::prev(next);
        if (before->first + before->second == first) {
            before->second += count;
            return;
        }
    }
    gaps_.emplace(first, count);
}

}  // namespace vbscript
