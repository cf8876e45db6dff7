#pragma once

#include <cstdint>
#include <string>

#include "vbscript/value/value.h"

namespace vbscript {

// A number as a row of decimal digits, so that rounding and grouping follow what a reader sees: a
// double has 15 digits, money all that it has. Rounds half away from zero.
class DecimalDigits {
  public:
    explicit DecimalDigits(double number);
    explicit DecimalDigits(Currency amount);

    // False for what is rounded to zero.
    [[nodiscard]] bool is_negative() const noexcept;

    // Times a power of ten, exactly.
    void move_point_right(int places) noexcept { point_ += places; }

    void round_to(int places);

    // Digits before the point, "" for a number below 1.
    [[nodiscard]] std::string whole() const;

    // `places` digits behind the point.
    [[nodiscard]] std::string fraction(int places) const;

  private:
    void drop_leading_zeros();

    // Without zeros in front; none for zero. The point stands behind the first `point_` of them,
    // which may be more than there are, or before the first when it is negative.
    std::string digits_;
    int point_ = 0;
    bool negative_ = false;
};

}  // namespace vbscript
