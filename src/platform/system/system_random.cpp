#include "platform/system/system_random.h"

#include <chrono>

namespace platform {
namespace {

// A float has 24 binary digits: more would round up to 1.
constexpr int kDigits = 24;

}  // namespace

SystemRandom::SystemRandom() : engine_(std::random_device{}()) {}

float SystemRandom::next() {
    std::uniform_int_distribution<int> digits(0, (1 << kDigits) - 1);
    return static_cast<float>(digits(engine_)) / static_cast<float>(1 << kDigits);
}

void SystemRandom::seed_from_clock() {
    const auto ticks = std::chrono::system_clock::now().time_since_epoch().count();
    engine_.seed(static_cast<std::minstd_rand::result_type>(ticks));
}

}  // namespace platform
