#pragma once

#include <bit>
#include <cstdint>

namespace vbscript {

// The language's own sequence of random numbers: 24 bits, x' = (x * 1140671485 + 12820163) mod
// 2^24, so that a script that was seeded gives the same numbers everywhere. One for each engine.
class RandomSequence {
  public:
    // `Rnd` and `Rnd(n)` with n > 0. From 0 to below 1.
    float next() noexcept {
        seed_ = (seed_ * kFactor + kStep) & kMask;
        return last();
    }

    // `Rnd(0)`: the number before again.
    [[nodiscard]] float last() const noexcept { return static_cast<float>(seed_) / kModulus; }

    // `Rnd(n)` with n < 0: the number that belongs to n, and from there on.
    float restart(float number) noexcept {
        const auto bits = std::bit_cast<std::uint32_t>(number);
        seed_ = (bits + (bits >> 24)) & kMask;
        return next();
    }

    // `Randomize n`: puts n into the middle 16 bits; the low byte stays.
    void randomize(double number) noexcept {
        const auto high = static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(number) >> 32);
        const std::uint32_t mixed = (high ^ (high >> 16)) & 0xFFFFU;
        seed_ = (seed_ & 0xFFU) | (mixed << 8);
    }

  private:
    static constexpr std::uint32_t kFactor = 1140671485;
    static constexpr std::uint32_t kStep = 12820163;
    static constexpr std::uint32_t kMask = 0xFFFFFF;
    static constexpr float kModulus = 16777216.0F;

    std::uint32_t seed_ = 327680;
};

}  // namespace vbscript
