#pragma once

namespace vbscript::syntax {

[[nodiscard]] constexpr bool is_digit(char16_t unit) noexcept {
    return unit >= u'0' && unit <= u'9';
}

[[nodiscard]] constexpr bool is_letter(char16_t unit) noexcept {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

[[nodiscard]] constexpr bool is_part_of_name(char16_t unit) noexcept {
    return is_letter(unit) || is_digit(unit) || unit == u'_';
}

[[nodiscard]] constexpr bool is_blank(char16_t unit) noexcept {
    return unit == u' ' || unit == u'\t' || unit == u'\v' || unit == u'\f';
}

[[nodiscard]] constexpr bool is_line_end(char16_t unit) noexcept {
    return unit == u'\r' || unit == u'\n';
}

// The value of a digit of any base up to 16; 16 for any other unit.
[[nodiscard]] constexpr unsigned int digit_value(char16_t unit) noexcept {
    if (is_digit(unit)) {
        return static_cast<unsigned int>(unit - u'0');
    }
    if (unit >= u'a' && unit <= u'f') {
        return static_cast<unsigned int>(unit - u'a') + 10;
    }
    if (unit >= u'A' && unit <= u'F') {
        return static_cast<unsigned int>(unit - u'A') + 10;
    }
    return 16;
}

}  // namespace vbscript::syntax
