#include <cmath>
#include <limits>

#include "automation/convert.h"
#include "automation/run_time_error.h"

namespace automation {
namespace {

// Written so that NaN fails.
template <typename Integer>
Integer checked(double number) {
    const double rounded = round_half_even(number);
    const bool fits = rounded >= std::numeric_limits<Integer>::min() &&
                      rounded <= std::numeric_limits<Integer>::max();
    if (!fits) {
        throw RunTimeError(ErrorNumber::Overflow);
    }
    return static_cast<Integer>(rounded);
}

template <typename Integer>
Integer checked(std::int64_t number) {
    if (number < std::numeric_limits<Integer>::min() ||
        number > std::numeric_limits<Integer>::max()) {
        throw RunTimeError(ErrorNumber::Overflow);
    }
    return static_cast<Integer>(number);
}

}  // namespace

double round_half_even(double number) noexcept {
    return std::nearbyint(number);
}

std::uint8_t checked_byte(double number) {
    return checked<std::uint8_t>(number);
}

std::int16_t checked_int16(double number) {
    return checked<std::int16_t>(number);
}

std::int32_t checked_int32(double number) {
    return checked<std::int32_t>(number);
}

std::int16_t multiply_int16(std::int16_t left, std::int16_t right) {
    return checked<std::int16_t>(std::int64_t{left} * right);
}

std::int16_t add_int16(std::int16_t left, std::int16_t right) {
    return checked<std::int16_t>(std::int64_t{left} + right);
}

std::int32_t multiply_int32(std::int32_t left, std::int32_t right) {
    return checked<std::int32_t>(std::int64_t{left} * right);
}

std::int32_t add_int32(std::int32_t left, std::int32_t right) {
    return checked<std::int32_t>(std::int64_t{left} + right);
}

}  // namespace automation
