#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "vbscript/value/context.h"
#include "vbscript/value/convert.h"

// Arguments of a library function that a caller may leave out, at the end or in the middle.
namespace vbscript {

[[nodiscard]] inline bool is_given(std::span<const Value> arguments, std::size_t index) noexcept {
    return index < arguments.size() && !arguments[index].is_missing();
}

[[nodiscard]] inline std::int32_t long_or(Context& context, std::span<const Value> arguments,
                                          std::size_t index, std::int32_t otherwise) {
    return is_given(arguments, index) ? to_long(context, arguments[index]) : otherwise;
}

[[nodiscard]] inline bool boolean_or(Context& context, std::span<const Value> arguments,
                                     std::size_t index, bool otherwise) {
    return is_given(arguments, index) ? to_boolean(context, arguments[index]) : otherwise;
}

}  // namespace vbscript
