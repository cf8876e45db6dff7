#include <algorithm>
#include <array>

#include "vbscript/library/text.h"
#include "vbscript/library/text_arguments.h"
#include "vbscript/value/byte_text.h"

namespace vbscript {
namespace {

Value length(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    if (value.is(Type::Null)) {
        return Value(kNull);
    }
    return long_value(to_text(context, value)->byte_size());
}

std::string bytes_of_argument(Context& context, const Value& value) {
    return bytes_of(*to_text(context, value));
}

Value left(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    const std::size_t count = count_of(context, arguments[1]);
    if (value.is(Type::Null)) {
        return Value(kNull);
    }
    const std::string bytes = bytes_of_argument(context, value);
    return Value(text_of_bytes(std::string_view(bytes).substr(0, count)));
}

Value right(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    const std::size_t count = count_of(context, arguments[1]);
    if (value.is(Type::Null)) {
        return Value(kNull);
    }
    const std::string bytes = bytes_of_argument(context, value);
    const std::size_t begin = bytes.size() - std::min(count, bytes.size());
    return Value(text_of_bytes(std::string_view(bytes).substr(begin)));
}

Value middle(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    const std::size_t start = count_of(context, arguments[1], 1);
    const std::size_t count =
        is_given(arguments, 2) ? count_of(context, arguments[2]) : std::string::npos;
    if (value.is(Type::Null)) {
        return Value(kNull);
    }
    const std::string bytes = bytes_of_argument(context, value);
    const std::size_t begin = std::min(start - 1, bytes.size());
    return Value(text_of_bytes(std::string_view(bytes).substr(begin, count)));
}

std::size_t find_in_units(const std::string& whole, const std::string& part, std::size_t from) {
    const std::u16string whole_units(whole.begin(), whole.end());
    const std::u16string part_units(part.begin(), part.end());
    return TextSearch(whole_units, part_units, TextSearch::Case::Matters).next(from);
}

// `InStrB(start, whole, part, compare)`; a start is told from a text by the number of arguments.
Value position(Context& context, Arguments arguments) {
    const bool has_start = arguments.size() > 2;
    const std::size_t start = has_start ? count_of(context, arguments[0], 1) : 1;
    const std::size_t first = has_start ? 1 : 0;
    static_cast<void>(case_of(context, arguments, 3));
    const Value whole_value = plain_argument(context, arguments, first);
    const Value part_value = plain_argument(context, arguments, first + 1);
    if (whole_value.is(Type::Null) || part_value.is(Type::Null)) {
        return Value(kNull);
    }
    const std::string whole = bytes_of_argument(context, whole_value);
    const std::string part = bytes_of_argument(context, part_value);
    if (start > whole.size()) {
        return long_value(0);
    }
    if (part.empty()) {
        return long_value(start);
    }
    return long_value(find_in_units(whole, part, start - 1) + 1);
}

constexpr auto kFunctions = std::to_array<LibraryFunction>({
    {u"InStrB", 2, 4, position},
    {u"LeftB", 2, 2, left},
    {u"LenB", 1, 1, length},
    {u"MidB", 2, 3, middle},
    {u"RightB", 2, 2, right},
});

}  // namespace

std::span<const LibraryFunction> byte_functions() {
    return kFunctions;
}

}  // namespace vbscript
