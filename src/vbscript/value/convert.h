#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "vbscript/value/value.h"

// Every rule by which a value becomes another kind of value. All throw ScriptError: 13 for what
// has no such form, 6 for what does not fit, 94 for Null, 91 for Nothing. An object stands for the
// value of its default member, whose call may run script; 438 without one. Fractions round to the
// nearest whole number, ties to even. Texts are read and written by the rules of the locale.
namespace vbscript {

class Context;
struct Locale;

[[nodiscard]] bool to_boolean(Context& context, const Value& value);
[[nodiscard]] std::uint8_t to_byte(Context& context, const Value& value);
[[nodiscard]] std::int16_t to_integer(Context& context, const Value& value);
[[nodiscard]] std::int32_t to_long(Context& context, const Value& value);
[[nodiscard]] float to_single(Context& context, const Value& value);
[[nodiscard]] double to_double(Context& context, const Value& value);
[[nodiscard]] Currency to_currency(Context& context, const Value& value);
[[nodiscard]] Date to_date(Context& context, const Value& value);

// The text of a value; a text itself is shared, not copied.
[[nodiscard]] Ref<String> to_text(Context& context, const Value& value);
[[nodiscard]] std::u16string to_units(Context& context, const Value& value);

// Without an object behind the value, so that no context is needed.
[[nodiscard]] std::u16string text_of_double(const Locale& locale, double value);
[[nodiscard]] std::u16string text_of_single(const Locale& locale, float value);
[[nodiscard]] std::u16string text_of_currency(const Locale& locale, Currency value);

// The number that a whole text is: sign, grouping, decimal mark, exponent, &H and &O forms, a
// currency sign, brackets for a negative amount. Absent for any other text.
[[nodiscard]] std::optional<double> parse_number(const Locale& locale, std::u16string_view text);

[[nodiscard]] double round_half_even(double value) noexcept;

// 16-bit and 8-bit texts, where bytes meet the language.
[[nodiscard]] std::u16string from_utf8(std::string_view text);
[[nodiscard]] std::string to_utf8(std::u16string_view units);

// Simple case mapping of the language, one unit for one.
[[nodiscard]] char16_t to_lower(char16_t unit) noexcept;
[[nodiscard]] char16_t to_upper(char16_t unit) noexcept;
[[nodiscard]] std::u16string to_lower(std::u16string_view units);
[[nodiscard]] std::u16string to_upper(std::u16string_view units);
[[nodiscard]] bool equals_ignoring_case(std::u16string_view left,
                                        std::u16string_view right) noexcept;

}  // namespace vbscript
