#include <algorithm>
#include <array>

#include "vbscript/value/convert.h"
#include "vbscript/value/operators.h"

namespace vbscript {
namespace {

// Base letters of U+00C0 to U+017F, '.' for a sign that is no letter: a dictionary has "é" among
// the "e".
constexpr char16_t kFirstWithBase = 0x00C0;
constexpr std::u16string_view kBaseLetters =
    u"aaaaaaaceeeeiiiidnooooo.ouuuuytsaaaaaaaceeeeiiiidnooooo.ouuuuyty"
    u"aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkkllllllllll"
    u"nnnnnnnnnoooooooorrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";

// Signs in their order before the digits.
constexpr std::u16string_view kSigns = u" _,;:!?.\"()[]{}@*/\\&#%`^+<=>|~$";

constexpr int kFirstDigit = 0x100;
constexpr int kFirstLetter = 0x200;
constexpr int kFirstOther = 0x1000;

bool is_passed_over(char16_t unit) noexcept {
    return unit == u'-' || unit == u'\'';
}

char16_t base_letter(char16_t unit) noexcept {
    const std::size_t place = static_cast<std::size_t>(unit) - kFirstWithBase;
    const bool has_base = unit >= kFirstWithBase && place < kBaseLetters.size();
    return has_base && kBaseLetters[place] != u'.' ? kBaseLetters[place] : unit;
}

// Place of a unit in small letters in a dictionary: signs, digits, letters, everything else.
int place_of(char16_t unit) noexcept {
    const char16_t base = base_letter(unit);
    if (base >= u'a' && base <= u'z') {
        return kFirstLetter + (base - u'a');
    }
    if (base >= u'0' && base <= u'9') {
        return kFirstDigit + (base - u'0');
    }
    const std::size_t sign = kSigns.find(base);
    if (sign != std::u16string_view::npos) {
        return static_cast<int>(sign) + 1;
    }
    return base < 0x20 ? 0 : kFirstOther + base;
}

// The next unit that counts, in small letters; 0 at the end.
class Reader {
  public:
    explicit Reader(std::u16string_view units) noexcept : units_(units) { pass(); }

    [[nodiscard]] bool at_end() const noexcept { return place_ == units_.size(); }

    char16_t take() noexcept {
        const char16_t unit = to_lower(units_[place_++]);
        pass();
        return unit;
    }

  private:
    void pass() noexcept {
        while (place_ < units_.size() && is_passed_over(units_[place_])) {
            ++place_;
        }
    }

    std::u16string_view units_;
    std::size_t place_ = 0;
};

int sign_of(int difference) noexcept {
    if (difference == 0) {
        return 0;
    }
    return difference < 0 ? -1 : 1;
}

int compare_units(std::u16string_view left, std::u16string_view right) noexcept {
    return sign_of(left.compare(right));
}

// Accents decide between words that are otherwise equal, hyphens between those.
int compare_as_words(std::u16string_view left, std::u16string_view right) noexcept {
    Reader one(left);
    Reader other(right);
    const auto lower = [](char16_t unit) { return to_lower(unit); };
    int accents = 0;
    while (!one.at_end() && !other.at_end()) {
        const char16_t left_unit = one.take();
        const char16_t right_unit = other.take();
        if (left_unit == right_unit) {
            continue;
        }
        const int difference = place_of(left_unit) - place_of(right_unit);
        if (difference != 0) {
            return sign_of(difference);
        }
        if (accents == 0) {
            accents = sign_of(left_unit - right_unit);
        }
    }
    if (!one.at_end() || !other.at_end()) {
        return one.at_end() ? -1 : 1;
    }
    if (accents != 0) {
        return accents;
    }
    if (equals_ignoring_case(left, right)) {
        return 0;
    }
    if (left.size() != right.size()) {
        return left.size() < right.size() ? -1 : 1;
    }
    const auto [one_end, other_end] = std::ranges::mismatch(left, right, {}, lower, lower);
    return to_lower(*one_end) < to_lower(*other_end) ? -1 : 1;
}

}  // namespace

int compare_text(std::u16string_view left, std::u16string_view right, bool ignore_case) noexcept {
    return ignore_case ? compare_as_words(left, right) : compare_units(left, right);
}

}  // namespace vbscript
