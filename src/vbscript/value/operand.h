#pragma once

#include "vbscript/value/context.h"
#include "vbscript/value/script_error.h"
#include "vbscript/value/value.h"

// What the operators ask of their operands before they look at sub-types.
namespace vbscript {

// Carries out `operation` on what the operands stand for when one of them is an object.
template <typename Operation>
[[nodiscard]] Value on_plain(Context& context, const Value& left, const Value& right,
                             Operation operation) {
    const Value plain_left = context.plain(left);
    const Value plain_right = context.plain(right);
    return operation(context, plain_left, plain_right);
}

[[nodiscard]] inline bool is_object(const Value& left, const Value& right) noexcept {
    return left.is(Type::Object) || right.is(Type::Object);
}

[[nodiscard]] inline bool is_null(const Value& left, const Value& right) noexcept {
    return left.is(Type::Null) || right.is(Type::Null);
}

// Throws: ScriptError 13 for what no operator takes.
inline void require_operand(const Value& value) {
    if (value.is(Type::Array) || value.is(Type::Error)) {
        throw ScriptError(ErrorNumber::TypeMismatch);
    }
}

inline void require_operands(const Value& left, const Value& right) {
    require_operand(left);
    require_operand(right);
}

[[nodiscard]] inline bool is_whole_number(Type type) noexcept {
    return type >= Type::Boolean && type <= Type::Long;
}

// The number of a whole one; Empty is 0. Requires: Empty, Boolean, Byte, Integer or Long.
[[nodiscard]] inline std::int32_t whole_number(const Value& value) noexcept {
    return value.is(Type::Empty) ? 0 : value.number();
}

}  // namespace vbscript
