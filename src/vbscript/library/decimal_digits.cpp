#include "vbscript/library/decimal_digits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace vbscript {
namespace {

constexpr int kDigitsOfDouble = 15;
constexpr int kDigitsOfCurrency = 4;

}  // namespace

DecimalDigits::DecimalDigits(double number) : negative_(std::signbit(number)) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(number),
                                   std::chars_format::scientific, kDigitsOfDouble - 1)
                         .ptr;
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const std::size_t exponent = text.find('e');
    digits_ = text.substr(0, 1);
    digits_.append(text.substr(2, exponent - 2));
    point_ = std::atoi(text.data() + exponent + 1) + 1;
    drop_leading_zeros();
}

DecimalDigits::DecimalDigits(Currency amount) : negative_(amount.units < 0) {
    digits_ = std::to_string(amount.units);
    if (negative_) {
        digits_.erase(0, 1);
    }
    point_ = static_cast<int>(digits_.size()) - kDigitsOfCurrency;
    drop_leading_zeros();
}

bool DecimalDigits::is_negative() const noexcept {
    return negative_ && !digits_.empty();
}

void DecimalDigits::round_to(int places) {
    const int kept = point_ + places;
    if (kept >= static_cast<int>(digits_.size())) {
        return;
    }
    if (kept < 0) {
        digits_.clear();
        return;
    }
    const auto cut = static_cast<std::size_t>(kept);
    const bool goes_up = digits_[cut] >= '5';
    digits_.resize(cut);
    if (!goes_up) {
        drop_leading_zeros();
        return;
    }
    const auto digit =
        std::find_if(digits_.rbegin(), digits_.rend(), [](char c) { return c != '9'; });
    std::fill(digits_.rbegin(), digit, '0');
    if (digit != digits_.rend()) {
        ++*digit;
    } else {
        digits_.insert(digits_.begin(), '1');
        ++point_;
    }
}

std::string DecimalDigits::whole() const {
    if (point_ <= 0 || digits_.empty()) {
        return {};
    }
    const auto size = static_cast<std::size_t>(point_);
    std::string whole = digits_.substr(0, size);
    whole.resize(size, '0');
    return whole;
}

std::string DecimalDigits::fraction(int places) const {
    std::string fraction;
    if (point_ < 0) {
        fraction.assign(static_cast<std::size_t>(-point_), '0');
    }
    const auto from = static_cast<std::size_t>(std::max(point_, 0));
    if (from < digits_.size()) {
        fraction.append(digits_, from);
    }
    fraction.resize(static_cast<std::size_t>(places), '0');
    return fraction;
}

void DecimalDigits::drop_leading_zeros() {
    const std::size_t zeros = std::min(digits_.find_first_not_of('0'), digits_.size());
    digits_.erase(0, zeros);
    point_ -= static_cast<int>(zeros);
}

}  // namespace vbscript
