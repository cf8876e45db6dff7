#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "vbscript/value/value.h"

namespace vbscript {

// Values that never move: the global variables of all modules and the constants of all code, so
// that an instruction reaches each of them by one number. Owned by the engine. The address space is
// taken at once, its memory as it is used.
class ValueArena {
  public:
    static constexpr std::uint32_t kCapacity = std::uint32_t{1} << 20;

    ValueArena();
    ValueArena(const ValueArena&) = delete;
    ValueArena& operator=(const ValueArena&) = delete;
    ~ValueArena();

    // Neighbouring places, all Empty; gives the first one's index. Throws: ScriptError 7.
    [[nodiscard]] std::uint32_t allocate(std::uint32_t count);

    // Requires: a range that `allocate` gave, with nothing but Empty in it.
    void free(std::uint32_t first, std::uint32_t count) noexcept;

    [[nodiscard]] Value& at(std::uint32_t index) noexcept { return values_[index]; }

    [[nodiscard]] Value* begin() noexcept { return values_; }

  private:
    std::allocator<Value> memory_;
    Value* values_;
    std::uint32_t size_ = 0;                         // constructed
    std::map<std::uint32_t, std::uint32_t> gaps_{};  // first index, count; never touching
};

}  // namespace vbscript
