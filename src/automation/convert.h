#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "automation/value.h"

// Every rule by which a value becomes another kind of value. All functions throw RunTimeError:
// 13 "Type mismatch" for what has no such form, 6 "Overflow" for what does not fit, 94 for Null,
// 91 for Nothing. An object stands for the value of its default member, whose call may pump; 438
// without one. Fractions round to the nearest whole number, ties to even.
namespace automation {

// --- texts, in code page 1252 -------------------------------------------------------------------

// True when the whole trimmed text is one number: sign, digits with grouping commas, decimal
// point, exponent (E or D), &H and &O forms, a currency sign, brackets for a negative amount.
[[nodiscard]] bool is_numeric(std::string_view text);

// The number that the whole text is. Absent exactly when `is_numeric` is false.
[[nodiscard]] std::optional<double> parse_number(std::string_view text);

// The number at the start of a text: blanks, tabs and line ends are passed over, reading stops at
// the first character that no longer belongs to a number; 0 without one. No currency, no commas.
// "&HFFFF" is -1 and "&HFFFF&" 65535, as literals of the language are; so it is in `parse_number`.
[[nodiscard]] double numeric_prefix(std::string_view text);

// "True" and "False" in any case, or a number: not 0 is true. Absent for any other text.
[[nodiscard]] std::optional<bool> parse_boolean(std::string_view text);

[[nodiscard]] std::string trim(std::string_view text);  // blanks only, both ends

// --- numbers -------------------------------------------------------------------------------------

[[nodiscard]] double round_half_even(double number) noexcept;

// Rounded, then checked. Throws: RunTimeError 6 out of range, also for NaN.
[[nodiscard]] std::uint8_t checked_byte(double number);
[[nodiscard]] std::int16_t checked_int16(double number);
[[nodiscard]] std::int32_t checked_int32(double number);

// Arithmetic of 16 bits: the product or sum of two Int16 values is an Int16.
// Throws: RunTimeError 6.
[[nodiscard]] std::int16_t multiply_int16(std::int16_t left, std::int16_t right);
[[nodiscard]] std::int16_t add_int16(std::int16_t left, std::int16_t right);
[[nodiscard]] std::int32_t multiply_int32(std::int32_t left, std::int32_t right);
[[nodiscard]] std::int32_t add_int32(std::int32_t left, std::int32_t right);

// --- texts of values -----------------------------------------------------------------------------

[[nodiscard]] std::string text_of(bool value);    // "True", "False"
[[nodiscard]] std::string text_of(float value);   // 7 significant digits: "1.705547", "1E-08"
[[nodiscard]] std::string text_of(double value);  // 15 significant digits: "0.1", "1E+20"
[[nodiscard]] std::string text_of(Currency value);
[[nodiscard]] std::string text_of(Date value);  // general form, as `general_date`

// --- values --------------------------------------------------------------------------------------

// Empty is 0, "" or false. Null is error 94. True is -1, as a byte 255.
[[nodiscard]] bool to_boolean(const Value& value);
[[nodiscard]] std::uint8_t to_byte(const Value& value);
[[nodiscard]] std::int16_t to_int16(const Value& value);
[[nodiscard]] std::int32_t to_int32(const Value& value);
[[nodiscard]] float to_single(const Value& value);
[[nodiscard]] double to_double(const Value& value);
[[nodiscard]] Currency to_currency(const Value& value);
[[nodiscard]] Date to_date(const Value& value);  // texts by `parse_date`
[[nodiscard]] std::string to_text(const Value& value);
[[nodiscard]] Text to_wide_text(const Value& value);

// The object of a value. Throws: RunTimeError 424 when it holds none; Nothing is a null pointer.
[[nodiscard]] std::shared_ptr<Object> to_object(const Value& value);

// Dates as people of the United States write them: "11/24/2026", "24 Nov 2026", "4:03 PM",
// date and time together, ISO 8601 "2026-11-24". A month above 12 swaps with the day; years 0 to
// 29 are 2000 to 2029, years 30 to 99 are 1930 to 1999. A date must tell its year.
[[nodiscard]] std::optional<Date> parse_date(std::string_view text);

// "Empty", "Null", "Integer", "Long", ..., the type name of an object, "Nothing", "Variant()".
[[nodiscard]] std::string type_name(const Value& value);

// The number of the sub-type: 0 Empty to 17 Byte; 8204 for an array of values.
[[nodiscard]] std::int16_t var_type(const Value& value);

}  // namespace automation
