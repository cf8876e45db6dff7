#pragma once

#include "vbscript/library/optional_arguments.h"
#include "vbscript/library/text_search.h"
#include "vbscript/value/script_error.h"

// Rules that the arguments of the text functions share.
namespace vbscript {

using Arguments = std::span<const Value>;

// `vbBinaryCompare`, which also stands for an argument that is left out, or `vbTextCompare`.
// Throws: ScriptError 5.
[[nodiscard]] inline TextSearch::Case case_of(Context& context, Arguments arguments,
                                              std::size_t index) {
    constexpr std::int32_t kBinary = 0;
    constexpr std::int32_t kText = 1;
    const std::int32_t number = long_or(context, arguments, index, kBinary);
    if (number != kBinary && number != kText) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    return number == kText ? TextSearch::Case::Ignored : TextSearch::Case::Matters;
}

// A number of units or bytes. Throws: ScriptError 5 below `least`.
[[nodiscard]] inline std::size_t count_of(Context& context, const Value& argument,
                                          std::int32_t least = 0) {
    const std::int32_t number = to_long(context, argument);
    if (number < least) {
        throw ScriptError(ErrorNumber::InvalidProcedureCall);
    }
    return static_cast<std::size_t>(number);
}

// The argument itself or what its default member gives, so that Null can be told from texts.
[[nodiscard]] inline Value plain_argument(Context& context, Arguments arguments,
                                          std::size_t index) {
    return context.plain(arguments[index]);
}

[[nodiscard]] inline Value long_value(std::size_t number) {
    return Value(static_cast<std::int32_t>(number));
}

}  // namespace vbscript
