#pragma once

#include <random>

#include "host/clock.h"

namespace platform {

// Random numbers that differ from start to start of the program.
class SystemRandom final : public host::Random {
  public:
    SystemRandom();
    float next() override;
    void seed_from_clock() override;

  private:
    std::minstd_rand engine_;
};

}  // namespace platform
