#pragma once

#include <cstdint>

#include "automation/run_time_error.h"

namespace automation {

// The number of the RunTimeError that `body` throws, 0 without one.
template <typename Body>
[[nodiscard]] std::int32_t thrown_error(Body&& body) {
    try {
        static_cast<void>(body());
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

}  // namespace automation
