#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

#include "vbscript/value/value.h"

// The operators of the language on any two values, with its promotions: Integer to Long to Double
// on overflow, Null that stays Null, Empty as 0 or "", texts that are numbers, dates and
// currency. The machine carries out the common numeric cases by itself and comes here for the rest.
// Objects stand for their default member. All throw ScriptError 13, 6, 11, 91, 438.
namespace vbscript {

class Context;

[[nodiscard]] Value add(Context& context, const Value& left, const Value& right);
[[nodiscard]] Value subtract(Context& context, const Value& left, const Value& right);
[[nodiscard]] Value multiply(Context& context, const Value& left, const Value& right);
[[nodiscard]] Value divide(Context& context, const Value& left, const Value& right);
[[nodiscard]] Value divide_whole(Context& context, const Value& left, const Value& right);  // "\"
[[nodiscard]] Value remainder(Context& context, const Value& left, const Value& right);     // Mod
[[nodiscard]] Value power(Context& context, const Value& left, const Value& right);
[[nodiscard]] Value concatenate(Context& context, const Value& left, const Value& right);
[[nodiscard]] Value negate(Context& context, const Value& operand);
[[nodiscard]] Value plus(Context& context, const Value& operand);  // unary

[[nodiscard]] Value logical_not(Context& context, const Value& operand);
[[nodiscard]] Value logical_and(Context& context, const Value& left, const Value& right);
[[nodiscard]] Value logical_or(Context& context, const Value& left, const Value& right);
[[nodiscard]] Value logical_xor(Context& context, const Value& left, const Value& right);
[[nodiscard]] Value logical_eqv(Context& context, const Value& left, const Value& right);
[[nodiscard]] Value logical_imp(Context& context, const Value& left, const Value& right);

enum class Comparison : std::uint8_t {
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual
};

// A Boolean, or Null when either side is Null.
[[nodiscard]] Value compare(Context& context, Comparison comparison, const Value& left,
                            const Value& right);

// Which operands of a comparison stand in the source as a number or a text. A variable is converted
// to the kind of a literal; between two variables every number is less than every text.
enum class Literals : std::uint8_t { Left, Right, Both };

// As `compare`, where a number meets a text and at least one of them is a literal.
// Throws: ScriptError 13 as well for a text that is no number.
[[nodiscard]] Value compare_with_literals(Context& context, Comparison comparison,
                                          const Value& left, const Value& right, Literals literals);

// Texts by the rules of `StrComp`: by units, or without regard to case in the locale's order.
[[nodiscard]] int compare_text(std::u16string_view left, std::u16string_view right,
                               bool ignore_case) noexcept;

// `Is`: whether both are the same object. Throws: ScriptError 424 for what is no object.
[[nodiscard]] bool is_same_object(const Value& left, const Value& right);

}  // namespace vbscript
