#pragma once

#include "automation/date.h"

namespace host {

// The wall clock of the house, in local time. It may jump.
class Clock {
  public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual automation::DateTime now() const = 0;
};

// The source of all random choices.
class Random {
  public:
    virtual ~Random() = default;

    // The next number, at least 0 and below 1, with the precision of a Single.
    virtual float next() = 0;

    // Starts a new sequence from the clock.
    virtual void seed_from_clock() = 0;
};

}  // namespace host
