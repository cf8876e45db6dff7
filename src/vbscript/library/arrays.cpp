#include "vbscript/library/arrays.h"

#include <array>

#include "vbscript/library/text_arguments.h"
#include "vbscript/value/array.h"

namespace vbscript {
namespace {

Value array_of_arguments(Context& /*context*/, Arguments arguments) {
    return Value(make<Array>(std::vector<Value>(arguments.begin(), arguments.end())));
}

// Throws: ScriptError 13 for no array, 9 for a dimension that it does not have.
std::int32_t bound_of(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    if (!value.is(Type::Array)) {
        throw ScriptError(ErrorNumber::TypeMismatch);
    }
    return value.array().upper_bound(long_or(context, arguments, 1, 1));
}

Value lower_bound(Context& context, Arguments arguments) {
    static_cast<void>(bound_of(context, arguments));
    return Value(std::int32_t{0});
}

Value upper_bound(Context& context, Arguments arguments) {
    return Value(bound_of(context, arguments));
}

constexpr auto kFunctions = std::to_array<LibraryFunction>({
    {u"Array", 0, kAnyNumber, array_of_arguments},
    {u"LBound", 1, 2, lower_bound},
    {u"UBound", 1, 2, upper_bound},
});

}  // namespace

std::span<const LibraryFunction> array_functions() {
    return kFunctions;
}

}  // namespace vbscript
